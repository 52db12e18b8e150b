// Tables of a million rows, beside a QTableView with a model made for it.

#include "viewrows.h"
#include "viewsettle.h"
#include "voxi2/modelview/vxtableview2.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QTableView>

#include <memory>

namespace {

using bench::settleFilled;
using VOXI::SizeChange2;

constexpr unsigned Million = 1'000'000;

struct VoxiTable
{
    static constexpr unsigned Spare = 2 * Million; // numbers of rows that there are not at first

    bench::VoxiRows m_model;
    std::unique_ptr<VOXI::VXTableView2> m_view = std::make_unique<VOXI::VXTableView2>();
    QTableView& m_qView = dynamic_cast<QTableView&>(*bench::widgetOf(m_view.get()));
    unsigned m_next = Spare;

    explicit VoxiTable(unsigned rows = Million) : m_model(rows)
    {
        m_view->setViewModel(&m_model);
        m_view->resize({bench::ViewWidth, bench::ViewHeight});
    }

    void show() { m_view->show(); }
    void insertInTheMiddle()
    {
        m_model.changeSize(SizeChange2::insertRowsAfter(Million / 2, {m_next++}));
    }
    void selectRows(const std::vector<unsigned>& rows) { m_view->selectRows(rows); }
    /// In one event, as the model has learned it.
    void change(const std::vector<unsigned>& anchors, const std::vector<unsigned>& removed)
    {
        std::vector<SizeChange2> changes;
        for (const unsigned anchor : anchors)
            changes.push_back(SizeChange2::insertRowsAfter(anchor, {m_next++}));
        for (const unsigned row : removed)
            changes.push_back(SizeChange2::removeRow(row));
        m_model.changeSize(std::move(changes));
    }
};

struct QtTable
{
    bench::QtRows m_model;
    QTableView m_qView;
    unsigned m_next = 2 * Million;

    explicit QtTable(unsigned rows = Million) : m_model(rows)
    {
        m_qView.setModel(&m_model);
        m_qView.resize(bench::ViewWidth, bench::ViewHeight);
    }

    void show() { m_qView.show(); }
    void insertInTheMiddle() { m_model.insert(Million / 2, m_next++); }
    void selectRows(const std::vector<unsigned>& rows)
    {
        QItemSelection selection;
        for (const unsigned row : rows) {
            const QModelIndex index = m_model.index(static_cast<int>(row) - 1, 0);
            selection.select(index, index);
        }
        m_qView.selectionModel()->select(selection,
                                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    /// One by one, from below so that the positions hold.
    void change(const std::vector<unsigned>& anchors, const std::vector<unsigned>& removed)
    {
        for (auto anchor = anchors.rbegin(); anchor != anchors.rend(); ++anchor)
            m_model.insert(static_cast<int>(*anchor), m_next++);
        int before = static_cast<int>(anchors.size());
        for (auto row = removed.rbegin(); row != removed.rend(); ++row, --before)
            m_model.remove(static_cast<int>(*row) - 1 + before);
    }
};

/// From nothing to the first full paint.
template <class Table>
void open(benchmark::State& state)
{
    { // what is loaded and made once
        Table first(100);
        first.show();
        settleFilled(first.m_qView);
    }
    for (auto _ : state) {
        std::unique_ptr<Table> table;
        bench::measure(state, [&] {
            table = std::make_unique<Table>();
            table->show();
            settleFilled(table->m_qView);
        });
        table.reset();
        bench::settle();
    }
}

template <class Table>
std::unique_ptr<Table> shown()
{
    auto table = std::make_unique<Table>();
    table->show();
    settleFilled(table->m_qView);
    return table;
}

/// Of cells that were painted before.
template <class Table>
void repaint(benchmark::State& state)
{
    const auto table = shown<Table>();
    QWidget* const viewport = table->m_qView.viewport();
    viewport->repaint();
    bench::repeat(state, [&] { viewport->repaint(); });
}

/// What painting asks for, cell by cell.
template <class Table>
void indexData(benchmark::State& state)
{
    const auto table = shown<Table>();
    const QAbstractItemModel& model = *table->m_qView.model();
    constexpr int Rows = 20;
    constexpr int Cells = 10;
    bench::repeat(state, [&] {
        for (int row = 0; row < Rows; ++row) {
            for (int column = 0; column < Cells; ++column)
                benchmark::DoNotOptimize(model.index(row, column).data());
        }
    });
}

/// Ten rows in a turn, down through rows that were never in sight.
template <class Table>
void scroll(benchmark::State& state)
{
    const auto table = shown<Table>();
    QScrollBar& bar = *table->m_qView.verticalScrollBar();
    for (auto _ : state) {
        bench::measure(state, [&] {
            for (int rows = 0; rows < 10'000; rows += 10) {
                bar.setValue(bar.value() + 10);
                QCoreApplication::processEvents();
            }
            settleFilled(table->m_qView);
        });
    }
}

/// Until the view could paint.
template <class Table>
void insertRow(benchmark::State& state)
{
    const auto table = shown<Table>();
    table->m_qView.viewport()->setUpdatesEnabled(false);
    bench::repeat(state, [&] {
        table->insertInTheMiddle();
        bench::settle();
    });
}

/// 1 000 rows come and 1 000 go, all over the table, while 400 are selected.
template <class Table>
void scatter(benchmark::State& state)
{
    constexpr unsigned Changes = 1'000;
    for (auto _ : state) {
        const auto table = shown<Table>();
        std::vector<unsigned> selected;
        std::vector<unsigned> anchors;
        std::vector<unsigned> removed;
        for (unsigned i = 0; i < 400; ++i)
            selected.push_back(1 + i * 2'000);
        for (unsigned i = 0; i < Changes; ++i) {
            anchors.push_back(100 + i * 997);
            removed.push_back(200 + i * 997);
        }
        table->selectRows(selected);
        bench::settle();
        table->m_qView.viewport()->setUpdatesEnabled(false);
        bench::measure(state, [&] {
            table->change(anchors, removed);
            bench::settle();
        });
    }
}

const bool s_added = bench::addPairs({
    {"TableOpen", open<VoxiTable>, open<QtTable>},
    {"TableRepaint", repaint<VoxiTable>, repaint<QtTable>},
    {"TableIndexData", indexData<VoxiTable>, indexData<QtTable>},
    {"TableScroll", scroll<VoxiTable>, scroll<QtTable>, 3},
    {"TableInsertRow", insertRow<VoxiTable>, insertRow<QtTable>},
    {"TableScatter", scatter<VoxiTable>, scatter<QtTable>, 3},
});

} // namespace
