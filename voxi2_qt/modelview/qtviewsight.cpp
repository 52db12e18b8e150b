#include "qtviewsight.h"

#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtclock.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>
#include <chrono>
#include <utility>

namespace VOXI {

namespace {

/// An answer that takes less than 100 ms comes without a sign of waiting before it. A cell is found
/// to wait somewhere in its first beat.
constexpr std::chrono::milliseconds Beat{50};
constexpr int Patience = 3;

} // namespace

QtViewSight::QtViewSight(View& view) : m_view(view) {}

// Place -------------------------------------------------------------------------------------------

template <class Function>
void QtViewSight::forRows(const QRect& area, Function&& function) const
{
    const std::vector<int> sections = m_view.sectionsIn(area);
    if (sections.empty())
        return;
    const QAbstractItemView& view = m_view.itemView();
    for (QModelIndex index = m_view.firstRowIn(area, sections); index.isValid();
         index = m_view.rowBelow(index)) {
        const QRect rect = view.visualRect(index);
        if (rect.top() > area.bottom())
            break;
        function(index, rect.top(), sections);
    }
}

void QtViewSight::remember()
{
    if (m_isOver || !m_wasSeen || !m_anchors.empty())
        return;
    forRows(m_view.itemView().viewport()->rect(),
            [&](const QModelIndex& index, int top, const std::vector<int>&) {
                m_anchors.push_back({m_view.viewModel().rowFromIndex(index), top});
            });
}

void QtViewSight::layoutEnds()
{
    m_isLayingOut = false;
    if (!m_isRestoring)
        restore();
    tellLater();
}

void QtViewSight::scrolled()
{
    if (!m_isLayingOut && !m_isRestoring)
        m_anchors.clear(); // the user, or the program, wants another place
    tellLater();
}

void QtViewSight::restore()
{
    if (m_isOver || m_anchors.empty())
        return;
    const bool was = std::exchange(m_isRestoring, true);
    const std::vector<Place> anchors = std::exchange(m_anchors, {});
    for (const Place& place : anchors) {
        const QModelIndex index = m_view.viewModel().indexFromUIDs(place.row, 0);
        if (index.isValid() && !m_view.itemView().visualRect(index).isEmpty()) {
            putTo(index, anchors.front().top);
            break;
        }
    }
    m_isRestoring = was;
}

void QtViewSight::putTo(const QModelIndex& index, int top)
{
    QAbstractItemView& view = m_view.itemView();
    const int way = view.visualRect(index).top() - top;
    if (way == 0)
        return;
    if (view.verticalScrollMode() == QAbstractItemView::ScrollPerPixel) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + way);
        return;
    }
    const int across = view.horizontalScrollBar()->value();
    view.scrollTo(index, QAbstractItemView::PositionAtTop);
    view.horizontalScrollBar()->setValue(across);
}

void QtViewSight::modelReplaced()
{
    m_anchors.clear();
    m_waiting.clear();
    m_wasSeen = false;
    tellLater();
}

// Interest ----------------------------------------------------------------------------------------

void QtViewSight::tellLater()
{
    if (!m_isOver && !m_tellTimer.isActive())
        m_tellTimer.start(0, this);
}

void QtViewSight::tell()
{
    m_view.layOutNow();
    m_anchors.clear(); // nothing was laid out anew
    std::vector<unsigned> rows;
    std::vector<unsigned> columns;
    QtViewModel2& model = m_view.viewModel();
    const QRect area = m_view.itemView().viewport()->rect();
    forRows(area, [&](const QModelIndex& index, int, const std::vector<int>&) {
        rows.push_back(model.rowFromIndex(index));
    });
    for (const int section : m_view.sectionsIn(area))
        columns.push_back(model.headerUIDFromSection(section, Qt::Horizontal));
    m_view.addWanted(rows, columns);
    model.setInSight(std::move(rows), std::move(columns));
}

void QtViewSight::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_tellTimer.timerId())
        return;
    m_tellTimer.stop();
    if (!m_isOver)
        tell();
}

// Waiting -----------------------------------------------------------------------------------------

void QtViewSight::paintWaiting(const QRect& area)
{
    if (m_isOver)
        return;
    m_wasSeen = true;
    const QtViewModel2& model = m_view.viewModel();
    QPainter painter; // begun when something is to be painted
    forRows(area, [&](const QModelIndex& index, int, const std::vector<int>& sections) {
        for (const int section : sections) {
            const QModelIndex cell = index.siblingAtColumn(section);
            if (!model.isKnown(cell)) [[unlikely]]
                markWaiting(painter, cell);
        }
    });
}

void QtViewSight::markWaiting(QPainter& painter, const QModelIndex& index)
{
    const QtViewModel2& model = m_view.viewModel();
    const quint64 key = quint64(model.columnFromIndex(index)) << 32 | model.rowFromIndex(index);
    auto waiting = m_waiting.find(key);
    if (waiting == m_waiting.end())
        waiting = m_waiting.insert(key, {m_beat});
    if (!m_beatTimer)
        startBeat();
    waiting->isShown = m_beat - waiting->since >= Patience;
    if (!waiting->isShown)
        return;
    QWidget* const viewport = m_view.itemView().viewport();
    if (!painter.isActive()) {
        painter.begin(viewport);
        QColor shade = viewport->palette().color(QPalette::Text);
        constexpr float faint = 0.15F;
        shade.setAlphaF(faint);
        painter.setPen(Qt::NoPen);
        painter.setBrush(shade);
    }
    // Like a line of text that cannot be read yet.
    const QRect rect = m_view.itemView().visualRect(index);
    const QFontMetrics metrics = viewport->fontMetrics();
    const int height = std::min(metrics.xHeight(), rect.height());
    const int width = std::min(metrics.averageCharWidth() * 10, rect.width() * 3 / 4);
    const QRect line(rect.left() + metrics.averageCharWidth() / 2, rect.center().y() - height / 2,
                     width, height);
    painter.drawRoundedRect(line & rect, height / 2.0, height / 2.0);
}

void QtViewSight::startBeat()
{
    m_beatTimer = QtClock::current().startTimer(Beat, [this] { beat(); });
}

void QtViewSight::beat()
{
    if (m_isOver)
        return;
    ++m_beat;
    const QtViewModel2& model = m_view.viewModel();
    QWidget* const viewport = m_view.itemView().viewport();
    bool isNews = false;
    m_waiting.removeIf([&](const auto& entry) {
        const Waiting& waiting = entry.value();
        const QModelIndex cell =
            model.indexFromUIDs(unsigned(entry.key()), unsigned(entry.key() >> 32));
        if (!cell.isValid() || model.isKnown(cell)
            || !m_view.itemView().visualRect(cell).intersects(viewport->rect()))
            return true;
        isNews = isNews || (!waiting.isShown && m_beat - waiting.since >= Patience);
        return false;
    });
    m_beatTimer.reset();
    if (!m_waiting.isEmpty())
        startBeat();
    if (isNews)
        viewport->update();
}

} // namespace VOXI
