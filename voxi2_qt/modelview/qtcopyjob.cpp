#include "qtcopyjob.h"

#include "qtcopiedcells.h"
#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtclock.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimerEvent>

#include <chrono>
#include <set>
#include <utility>

namespace VOXI {

namespace {

/// Of more nobody can mean all, and to fetch them would push out what the view knows.
constexpr std::size_t MostFetched = 20'000;
/// How long no cell comes before the rest is given up.
constexpr std::chrono::seconds Patience{2};

} // namespace

QtCopyJob::QtCopyJob(QtAbstractView2& view, std::vector<ModelBlock> cells)
    : m_view(view),
      m_cells(std::move(cells))
{
    findMissing();
}

void QtCopyJob::start()
{
    const QtViewModel2& model = m_view.viewModel();
    for (const Cell& cell : m_missing)
        model.cell(model.indexFromUIDs(cell.row, cell.column));
    const auto later = [this] { m_lookTimer.start(0, this); };
    connect(&model, &QAbstractItemModel::dataChanged, this, later);
    connect(&model, &QtViewModel2::sizeChanged, this, later);
    goOn();
}

void QtCopyJob::findMissing()
{
    std::size_t count = 0;
    for (const ModelBlock& block : m_cells)
        count += block.rows.size() * block.columns.size();
    if (count > MostFetched)
        return;
    for (const ModelBlock& block : m_cells) {
        for (const unsigned row : block.rows) {
            const std::size_t before = m_missing.size();
            for (const unsigned column : block.columns) {
                if (isMissing({row, column}))
                    m_missing.push_back({row, column});
            }
            if (m_missing.size() > before)
                m_rows.push_back(row);
        }
    }
    std::set<unsigned> columns;
    for (const Cell& cell : m_missing)
        columns.insert(cell.column);
    m_columns.assign(columns.begin(), columns.end());
}

bool QtCopyJob::isMissing(const Cell& cell) const
{
    const QModelIndex index = m_view.viewModel().indexFromUIDs(cell.row, cell.column);
    return index.isValid() && !m_view.viewModel().isKnown(index);
}

bool QtCopyJob::takeKnown()
{
    const std::size_t before = m_missing.size();
    while (!m_missing.empty() && !isMissing(m_missing.back()))
        m_missing.pop_back();
    return m_missing.size() < before;
}

void QtCopyJob::goOn()
{
    const bool isNews = takeKnown();
    if (m_missing.empty())
        finish();
    else if (isNews || !m_patience)
        wait();
}

void QtCopyJob::wait()
{
    m_patience = QtClock::current().startTimer(Patience, [this] {
        // In a busy program more may have come than was looked at.
        if (takeKnown() && !m_missing.empty())
            wait();
        else
            finish();
    });
}

void QtCopyJob::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_lookTimer.timerId())
        return;
    m_lookTimer.stop();
    goOn();
}

void QtCopyJob::finish()
{
    const QtCopiedCells cells(m_view, m_cells);
    if (!cells.isEmpty()) {
        auto* const data = new QMimeData;
        data->setText(cells.text());
        data->setHtml(cells.html());
        QGuiApplication::clipboard()->setMimeData(data);
    }
    m_view.copyDone(); // deletes this
}

} // namespace VOXI
