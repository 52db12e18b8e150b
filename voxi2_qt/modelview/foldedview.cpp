#include "voxi2_qt/modelview/foldedview.h"

#include "extentsums.h"
#include "foldedaccess.h"
#include "qtkeyboardsearch.h"
#include "qtmodelswap.h"
#include "qtviewmodel2.h"
#include "qtviewsight.h"
#include "textlayouts.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtreporthold.h"

#include <QScrollBar>
#include <QStyle>
#include <QTimerEvent>

#include <utility>

namespace VOXI {

/// What it is for its sight.
class FoldedView::Sight final : public QtViewSight::View
{
public:
    explicit Sight(FoldedView& view) : m_view(view) {}

    QAbstractItemView& itemView() const override { return m_view; }
    QtViewModel2& viewModel() const override { return *m_view.m_model; }
    std::vector<int> sectionsIn(const QRect&) const override
    {
        return m_view.groupCount() > 0 ? std::vector<int>{0} : std::vector<int>();
    }
    QModelIndex firstRowIn(const QRect& area, const std::vector<int>&) const override
    {
        return m_view.indexOf(m_view.spotAt(area.top()));
    }
    QModelIndex rowBelow(const QModelIndex& index) const override { return m_view.rowBelow(index); }
    void layOutNow() override { m_view.layOutNow(); }
    void addWanted(std::vector<unsigned>& rows, std::vector<unsigned>&) const override
    {
        rows.insert(rows.end(), m_view.m_unknown.begin(), m_view.m_unknown.end());
    }

private:
    FoldedView& m_view;
};

void FoldedView::Host::noteDrag(unsigned) {}
bool FoldedView::Host::noteShift(unsigned, bool) { return false; }

FoldedView::FoldedView(QWidget* parent, Host& host)
    : QAbstractItemView(parent),
      m_host(&host),
      m_sightView(std::make_unique<Sight>(*this)),
      m_sight(std::make_unique<QtViewSight>(*m_sightView)),
      m_layouts(TextLayouts::shared()),
      m_sums(std::make_unique<ExtentSums>())
{
    makeFoldedAccessible();
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Window);
    viewport()->setAttribute(Qt::WA_Hover);
    connect(&m_sliding, &QVariantAnimation::valueChanged, this, &FoldedView::setSlide);
    connect(&m_sliding, &QVariantAnimation::finished, this, &FoldedView::endSlide);
}

void FoldedView::begin() { showModel(nullptr); }

FoldedView::~FoldedView() { end(); }

void FoldedView::end()
{
    if (!std::exchange(m_host, nullptr))
        return;
    m_sight->end();
    m_sliding.stop();
    m_askTimer.stop();
    dropAccess(true);
    setModel(nullptr);
    delete std::exchange(m_model, nullptr);
}

// What is there -----------------------------------------------------------------------------------

void FoldedView::showModel(VXAbstractViewModel2* model)
{
    auto* const made = new QtViewModel2(model, nullptr, this);
    if (model && !made->hasModel()) { // it is dead
        delete made;
        return;
    }
    const QtProgramScope scope;
    endSlide();
    m_folded.clear();
    dropAccess(true);
    m_pressed = QPersistentModelIndex();
    hover({});
    // Before Qt's own connections, which would have it laid out as it was.
    connect(made, &QAbstractItemModel::layoutChanged, this, [this] {
        m_isLaidOut = false;
        m_hasLostRows = true;
    });
    QtViewModel2* const former = std::exchange(m_model, made);
    m_isLaidOut = false;
    swapModels(*this, *made, former);
    connect(made, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex& parent, int first, int last) {
                tellKnownRows(parent, first, last, QAccessible::ObjectDestroyed);
            });
    connect(made, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex& parent) { rowsRemoved(parent); });
    const auto relay = [this] { relayLater(); };
    connect(made, &QAbstractItemModel::columnsInserted, this, relay);
    connect(made, &QAbstractItemModel::columnsRemoved, this, relay);
    connect(made, &QtViewModel2::aboutToChangeSize, this, [this] { m_sight->remember(); });
    connect(made, &QtViewModel2::sizeChanged, this, [this] { sizeChanged(); });
    m_sight->modelReplaced();
}

void FoldedView::rowsInserted(const QModelIndex& parent, int first, int last)
{
    noteArrivals(parent, first, last);
    regroup(parent);
}

/// Its rows are others.
void FoldedView::regroup(const QModelIndex& parent)
{
    if (!parent.isValid() || !m_filter.isEmpty())
        relayLater();
    else if (!parent.parent().isValid())
        groupChanged(parent.row());
}

void FoldedView::rowsRemoved(const QModelIndex& parent)
{
    m_hasLostRows = true;
    regroup(parent);
}

void FoldedView::sizeChanged()
{
    if (std::exchange(m_hasLostRows, false)) {
        std::erase_if(m_folded, [&](const auto& each) { return !m_model->isValidRow(each.first); });
        dropAccess(false);
    }
    m_sight->changed();
    tellArrivals();
}

void FoldedView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                             const QList<int>&)
{
    tellKnownRows(topLeft.parent(), topLeft.row(), bottomRight.row(), QAccessible::NameChanged);
    if (!m_filter.isEmpty())
        relayLater();
    viewport()->update();
}

QModelIndex FoldedView::indexOf(unsigned row) const
{
    return m_model ? m_model->indexFromUIDs(row, 0) : QModelIndex();
}

bool FoldedView::isEnabledRow(const QModelIndex& index) const
{
    const CellRecord* const record = m_model->peekCell(index);
    return record && record->isEnabled() && isEnabled();
}

// Folding -----------------------------------------------------------------------------------------

void FoldedView::setFolded(unsigned group, bool folded, By by)
{
    const QModelIndex header = indexOf(group);
    if (!header.isValid() || header.parent().isValid() || isFolded(group) == folded)
        return;
    const bool isUser = by == By::User;
    if (isUser && foldOf(header.row()) == Fold::None)
        return;
    const QtReportHold hold; // told when all is done
    m_folded[group] = folded;
    if (isUser)
        slideTo(group, folded);
    else if (m_slidingGroup == group)
        endSlide();
    groupChanged(header.row());
    if (isUser)
        m_host->noteFolded(group, folded);
    if (folded && currentIndex().parent() == header)
        makeCurrent(header);
    tellFolded(group);
}

bool FoldedView::isFolded(unsigned group) const
{
    const auto said = m_folded.find(group);
    return said == m_folded.end() ? m_foldsAll : said->second;
}

void FoldedView::setAllFolded(bool folded)
{
    m_foldsAll = folded;
    m_folded.clear();
    endSlide();
    relayLater();
    if (folded && currentIndex().parent().isValid())
        makeCurrent(currentIndex().parent());
}

void FoldedView::slideTo(unsigned group, bool folded)
{
    const double share = m_slidingGroup == group ? m_sliding.currentValue().toDouble()
                         : folded                ? 1
                                                 : 0;
    endSlide();
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (duration <= 0 || !isVisible())
        return;
    m_slidingGroup = group;
    m_sliding.setDuration(duration);
    m_sliding.setStartValue(share);
    m_sliding.setEndValue(folded ? 0. : 1.);
    m_sliding.start();
}

void FoldedView::setSlide(const QVariant&)
{
    const QModelIndex group = indexOf(m_slidingGroup);
    if (m_slidingGroup == 0 || !group.isValid() || group.parent().isValid())
        return;
    groupChanged(group.row());
    layOutNow();
    viewport()->update();
}

void FoldedView::endSlide()
{
    const unsigned group = std::exchange(m_slidingGroup, 0);
    m_sliding.stop();
    if (group == 0)
        return;
    const QModelIndex index = indexOf(group);
    if (index.isValid() && !index.parent().isValid())
        groupChanged(index.row());
}

// The filter --------------------------------------------------------------------------------------

namespace {
/// Of more nobody can mean all, and to fetch them would push out what the view knows.
constexpr int MostSearched = 20'000;
} // namespace

void FoldedView::setFilter(const QString& text)
{
    if (m_filter == text)
        return;
    endSlide();
    m_filter = text;
    relayLater();
    tellFiltered();
}

void FoldedView::findMatches() const
{
    m_matches.clear();
    m_unknown.clear();
    if (m_filter.isEmpty())
        return;
    m_matches.resize(static_cast<std::size_t>(groupCount()));
    int left = MostSearched;
    for (int group = 0; group < groupCount() && left > 0; ++group) {
        const QModelIndex parent = m_model->index(group, 0);
        const int count = std::min(m_model->rowCount(parent), left);
        left -= count;
        for (int row = 0; row < count; ++row) {
            const QModelIndex index = m_model->index(row, 0, parent);
            const CellRecord* const record = m_model->peekCell(index);
            if (!record)
                m_unknown.push_back(m_model->rowFromIndex(index));
            else if (record->text().contains(m_filter, Qt::CaseInsensitive))
                m_matches[static_cast<std::size_t>(group)].push_back(row);
        }
    }
}

/// Told before as wanted, or those who answer would leave out what is not in sight.
void FoldedView::askForUnknown()
{
    m_sight->tell();
    for (const unsigned row : m_unknown)
        m_model->cell(indexOf(row));
}

void FoldedView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_askTimer.timerId()) {
        QAbstractItemView::timerEvent(event);
        return;
    }
    m_askTimer.stop();
    if (isAlive())
        askForUnknown();
}

// The current row ---------------------------------------------------------------------------------

void FoldedView::setCurrent(unsigned row)
{
    const QModelIndex index = indexOf(row);
    if (index.isValid() && index.parent().isValid())
        setFolded(m_model->parentRow(row), false, By::Program);
    if (index.isValid() || row == 0)
        makeCurrent(index);
}

unsigned FoldedView::currentRow() const { return m_model->rowFromIndex(currentIndex()); }

/// Qt's own refuses what is not known yet.
void FoldedView::makeCurrent(const QModelIndex& index)
{
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void FoldedView::currentChanged(const QModelIndex& current, const QModelIndex&)
{
    viewport()->update();
    if (!isAlive())
        return;
    if (current.isValid() && isVisible() && !m_pressed.isValid())
        scrollTo(current);
    const unsigned row = m_model->rowFromIndex(current);
    if (hasFocus())
        tellAccess(row, QAccessible::Focus);
    m_host->noteCurrent(row);
}

void FoldedView::reveal(unsigned row)
{
    const QModelIndex index = indexOf(row);
    if (!index.isValid())
        return;
    if (index.parent().isValid())
        setFolded(m_model->parentRow(row), false, By::Program);
    scrollTo(index);
}

} // namespace VOXI
