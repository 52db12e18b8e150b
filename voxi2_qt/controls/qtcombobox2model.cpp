// The part of QtComboBox2 that is about a model of the program's.

#include "qtcombomodel.h"
#include "voxi2_qt/controls/qtcombobox2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QCompleter>
#include <QListView>
#include <QPointer>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>

#include <algorithm>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

void QtComboBox2::doSetViewModel(VXAbstractViewModel2* model)
{
    QtComboModel* const former = m_model;
    if (!model && !former)
        return;
    QtComboModel* const made = model ? new QtComboModel(model, nullptr, this) : nullptr;
    if (made && !made->hasModel()) { // it is dead
        delete made;
        return;
    }
    const QtProgramScope scope;
    // Qt deletes at once what it owns, and may be on its way through it.
    if (former)
        former->setParent(nullptr);
    m_model = made;
    if (m_model) {
        adopt(*m_model);
    } else {
        setModelColumn(0);
        setModel(new QStandardItemModel(0, 1, this));
    }
    fitList();
    if (former) {
        former->TROV::Listener::disconnect();
        former->deleteLater();
    }
    adjustWidth();
}

VXAbstractViewModel2* QtComboBox2::doGetViewModel()
{
    const VXObjectDataLocker lock;
    return m_model ? m_model->abstractModel() : nullptr;
}

void QtComboBox2::doSetModelColumn(unsigned column)
{
    m_column = column;
    followModel();
}

unsigned QtComboBox2::doGetModelColumn() { return m_column; }

// Reports -----------------------------------------------------------------------------------------

/// What opens like a menu shows all items, after it has looked at each of them; what can be edited
/// opens as a list in any style.
void QtComboBox2::showPopup()
{
    const QPointer<QtComboBox2> self(this);
    m_isOpeningModel = m_model;
    QtWidget2Shim::showPopup();
    if (self)
        m_isOpeningModel = false;
}

void QtComboBox2::initStyleOption(QStyleOptionComboBox* option) const
{
    QtWidget2Shim::initStyleOption(option);
    option->editable = option->editable || m_isOpeningModel;
}

// Helpers -----------------------------------------------------------------------------------------

void QtComboBox2::adopt(QtComboModel& model)
{
    setModelColumn(std::max(model.columnFromUID(m_column), 0));
    // Qt's own connections are made between these two.
    connect(&model, &QtViewModel2::dataChanged, this, [this] { m_isAnswerComing = true; });
    setModel(&model);
    connect(&model, &QtViewModel2::dataChanged, this, [this] { m_isAnswerComing = false; });
    connect(&model, &QtViewModel2::aboutToChangeSize, this, [this] {
        // The first row that comes becomes the current one, as with items.
        const bool isEmpty = count() == 0 || m_model->columnCount() == 0;
        m_formerRow = isEmpty && placeholderText().isEmpty() ? 0 : currentIndex();
    });
    connect(&model, &QtViewModel2::sizeChanged, this, &QtComboBox2::followModel);
    if (isEditable())
        setCompleter(nullptr);
}

/// Otherwise the list would ask for every item as soon as it is laid out.
void QtComboBox2::fitList()
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const bool scrolls = m_model || !style()->styleHint(QStyle::SH_ComboBox_Popup, &option, this);
    view()->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    if (auto* const list = qobject_cast<QListView*>(view()))
        list->setUniformItemSizes(m_model);
}

/// After rows and columns have come and gone.
void QtComboBox2::followModel()
{
    if (!m_model)
        return;
    const QtProgramScope scope;
    const int column = std::max(m_model->columnFromUID(m_column), 0);
    if (column != modelColumn())
        setModelColumn(column);
    // Of a large change Qt is told as of another order, in which the current row may be missing.
    if (currentIndex() == -1 && m_formerRow >= 0 && count() > 0 && m_model->columnCount() > 0)
        setCurrentIndex(std::min(m_formerRow, count() - 1));
    m_formerRow = -1;
    update();
}

/// Whether Qt reacts to what the model tells, which is not the user's doing.
bool QtComboBox2::isModelTalking() const
{
    return m_isAnswerComing || (m_model && m_model->isBlockingSelection());
}

QModelIndex QtComboBox2::modelIndex(int index) const
{
    return m_model->index(index, modelColumn());
}

ComboItem QtComboBox2::modelItem(int index) const
{
    const QModelIndex at = modelIndex(index);
    if (!at.isValid())
        return {};
    return {toStdWString(at.data(Qt::DisplayRole).toString()),
            m_model->rowFromIndex(at),
            {},
            toStdWString(at.data(Qt::ToolTipRole).toString()),
            at.flags().testFlag(Qt::ItemIsEnabled)};
}

unsigned QtComboBox2::modelUid(int index) const { return m_model->rowFromIndex(modelIndex(index)); }

int QtComboBox2::modelRow(unsigned uid) const
{
    return uid != 0 && m_model->parentRow(uid) == 0 ? m_model->rowFromUID(uid) : -1;
}

} // namespace VOXI
