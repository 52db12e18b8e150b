#include "qtviewmodel2.h"

#include "voxi2_qt/kernel/qtenums.h"

#include <QEvent>
#include <QThread>

#include <utility>

namespace VOXI {

QtViewModel2::QtViewModel2(QObject* parent) : QtViewModel2(nullptr, nullptr, parent) {}

QtViewModel2::QtViewModel2(VXAbstractViewModel2* model, VXAbstractViewModel2Emitters* emitters,
                           QObject* parent)
    : QtViewModel2(model, emitters, parent, VXObjectDataLocker())
{}

/// Under the lock: what changes is in the shape, or heard, and not both.
QtViewModel2::QtViewModel2(VXAbstractViewModel2* model, VXAbstractViewModel2Emitters* emitters,
                           QObject* parent, const VXObjectDataLocker&)
    : QAbstractItemModel(parent),
      m_queries(model, m_rows, m_columns)
{
    if (parent && parent->isWidgetType())
        parent->installEventFilter(this);
    if (!model || !VXObject::isObjectValid(model))
        return;
    m_model = model->id();
    if (!emitters)
        emitters = model->modelEmitters();
    using M = QtViewModel2;
    emitters->clearCachedUIData.signal().connect(this, &M::doClearCachedUIData);
    emitters->clearCachedHeaderUIData.signal().connect(this, &M::doClearCachedHeaderUIData);
    emitters->queryResult.signal().connect(this, &M::handleQueryResult);
    emitters->headerQueryResult.signal().connect(this, &M::handleHeaderQueryResult);
    emitters->dataChanged.signal().connect(this, &M::handleDataChanged);
    emitters->sizeChanged.signal().connect(this, &M::handleSizeChanged);
    emitters->headerChanged.signal().connect(this, &M::handleHeaderChanged);
    applySizeChanges(m_queries.link().shape());
}

QtViewModel2::~QtViewModel2() { Listener::disconnect(); }

VXAbstractViewModel2* QtViewModel2::abstractModel() const
{
    return m_model != 0 ? static_cast<VXAbstractViewModel2*>(VXObject::objectById(m_model))
                        : nullptr;
}

// Qt's --------------------------------------------------------------------------------------------

QModelIndex QtViewModel2::index(int row, int column, const QModelIndex& parent) const
{
    if (column < 0 || column >= m_columns.count())
        return {};
    const Uid uid = m_rows.at(rowFromIndex(parent), row);
    return uid != 0 ? indexAt(row, column, uid) : QModelIndex();
}

QModelIndex QtViewModel2::parent(const QModelIndex& index) const
{
    const Uid above = m_rows.placeOf(rowFromIndex(index)).parent;
    return above != 0 ? indexAt(m_rows.placeOf(above).row, 0, above) : QModelIndex();
}

QModelIndex QtViewModel2::sibling(int row, int column, const QModelIndex& index) const
{
    // Views go along rows; trees would look for the parent at each cell.
    if (row == index.row() && column >= 0 && column < m_columns.count() && index.isValid())
        return createIndex(row, column, index.internalId());
    return QAbstractItemModel::sibling(row, column, index);
}

int QtViewModel2::rowCount(const QModelIndex& parent) const
{
    return m_rows.rowCount(rowFromIndex(parent));
}

int QtViewModel2::columnCount(const QModelIndex&) const { return m_columns.count(); }

bool QtViewModel2::hasChildren(const QModelIndex& parent) const
{
    const Uid row = rowFromIndex(parent);
    return (m_columns.count() > 0 && m_rows.rowCount(row) > 0)
           || m_rows.hasChildren(row) == RowForest::HasChildren::Yes;
}

QVariant QtViewModel2::data(const QModelIndex& index, int role) const
{
    const CellRecord* const record = cell(index);
    return record ? record->data(role) : QVariant();
}

void QtViewModel2::multiData(const QModelIndex& index, QModelRoleDataSpan roles) const
{
    const CellRecord* const record = cell(index);
    for (QModelRoleData& each : roles)
        each.setData(record ? record->data(each.role()) : QVariant());
}

QVariant QtViewModel2::headerData(int section, Qt::Orientation orientation, int role) const
{
    int recordsRole = role;
    switch (role) {
    case HeaderIconRole:
        recordsRole = Qt::DecorationRole;
        break;
    case HeaderToolTipRole:
        recordsRole = Qt::ToolTipRole;
        break;
    case Qt::DisplayRole:
    case Qt::FontRole:
    case Qt::TextAlignmentRole:
    case Qt::BackgroundRole:
    case Qt::ForegroundRole:
        break;
    default:
        return QAbstractItemModel::headerData(section, orientation, role);
    }
    const Uid uid = headerUIDFromSection(section, orientation);
    if (uid == 0)
        return {};
    const CellRecord* const record = m_sections.find(sectionCell(uid, orientation));
    if (!record)
        m_queries.askAroundSection(section, Qt2VX(orientation));
    return record && record->renderer() != NumberedSection
               ? record->data(recordsRole)
               : QAbstractItemModel::headerData(section, orientation, role);
}

Qt::ItemFlags QtViewModel2::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (m_isMovingColumns)
        return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    Qt::ItemFlags flags = Qt::ItemIsSelectable;
    // In passing: a view asks for the flags of all that is selected.
    if (const CellRecord* const record = peekCell(index)) {
        flags.setFlag(Qt::ItemIsEnabled, record->isEnabled());
        flags.setFlag(Qt::ItemIsEditable, !record->isReadOnly());
    } else {
        flags.setFlag(Qt::ItemIsEnabled, isWayOpen());
    }
    return flags;
}

// Between indexes and UIDs ------------------------------------------------------------------------

ModelCell2 QtViewModel2::cellFromIndex(const QModelIndex& index) const
{
    return index.isValid() ? createCell(rowFromIndex(index), columnFromIndex(index)) : ModelCell2();
}

ModelCell2 QtViewModel2::createCell(Uid row, Uid column) const
{
    const VXObjectDataLocker lock;
    VXAbstractViewModel2* const model = abstractModel();
    return model ? ModelCell2{row, column, model} : ModelCell2();
}

QModelIndex QtViewModel2::indexFromUIDs(Uid row, Uid column) const
{
    const int place = column == 0 ? 0 : columnFromUID(column);
    const int rowPlace = rowFromUID(row);
    const bool isThere = rowPlace >= 0 && place >= 0 && place < m_columns.count();
    return isThere ? indexAt(rowPlace, place, row) : QModelIndex();
}

int QtViewModel2::headerSectionFromUID(Uid section, Qt::Orientation orientation) const
{
    if (orientation == Qt::Horizontal)
        return columnFromUID(section);
    const RowForest::Place place = m_rows.placeOf(section);
    return place.parent == 0 ? place.row : -1;
}

QtViewModel2::Uid QtViewModel2::headerUIDFromSection(int section, Qt::Orientation orientation) const
{
    return orientation == Qt::Horizontal ? m_columns.at(section) : m_rows.at(0, section);
}

QtViewModel2::Cell QtViewModel2::sectionCell(Uid section, Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? Cell{0, section} : Cell{section, 0};
}

// For the view ------------------------------------------------------------------------------------

/// Always null: the answer comes later.
const CellRecord* QtViewModel2::askFor(const QModelIndex& index) const
{
    if (index.isValid())
        m_queries.askAround(rowFromIndex(index), index.column());
    return nullptr;
}

QtViewModel2::OpenWay::OpenWay(QtViewModel2& model)
    : m_model(&model),
      m_former(std::exchange(model.m_wayLevel, QThread::currentThread()->loopLevel()))
{}

QtViewModel2::OpenWay::~OpenWay()
{
    if (m_model)
        m_model->m_wayLevel = m_former;
}

bool QtViewModel2::isWayOpen() const
{
    return m_wayLevel >= 0 && m_wayLevel == QThread::currentThread()->loopLevel();
}

const CellRecord* QtViewModel2::peekCell(const QModelIndex& index) const
{
    return m_cells.peek(cellAt(index));
}

void QtViewModel2::setCacheLimit(qsizetype cells)
{
    m_cells.setLimit(cells);
    m_sections.setLimit(cells);
    trim();
}

void QtViewModel2::remakeFonts()
{
    m_cells.remakeFonts();
    m_sections.remakeFonts();
}

bool QtViewModel2::eventFilter(QObject* object, QEvent* event)
{
    if (object == QObject::parent() && event->type() == QEvent::ApplicationFontChange)
        remakeFonts();
    return QAbstractItemModel::eventFilter(object, event);
}

} // namespace VOXI
