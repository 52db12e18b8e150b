// What an item model shows of the rows and columns of a model that change, and what Qt's views and
// selections make of it.

#include "../../voxi2/modelview/naiveview.h"
#include "askedmodel.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTableView>

#include <optional>
#include <set>

namespace VOXI {
namespace {

std::set<CellId> cellsOf(const QtViewModel2& model, const QItemSelection& selection)
{
    std::set<CellId> cells;
    for (const QItemSelectionRange& range : selection) {
        EXPECT_TRUE(range.isValid());
        // Its own list leaves out what is not known, and so not enabled.
        for (int row = range.top(); row <= range.bottom(); ++row) {
            for (int column = range.left(); column <= range.right(); ++column) {
                const QModelIndex index = model.index(row, column, range.parent());
                cells.emplace(model.rowFromIndex(index), model.columnFromIndex(index));
            }
        }
    }
    return cells;
}

/// A view's part: an item model, a selection, and indexes that somebody keeps.
class Shown
{
public:
    Shown(Model& model, bool isTested, bool floods) : m_item(&model, nullptr), m_selection(&m_item)
    {
        if (isTested)
            m_tester.emplace(&m_item, QAbstractItemModelTester::FailureReportingMode::Fatal);
        m_item.setSelectionModel(&m_selection);
        if (floods)
            m_item.setFloodLimits({.work = -1});
    }

    void select(CellId first, CellId last)
    {
        const QModelIndex from = m_item.indexFromUIDs(first.first, first.second);
        const QModelIndex to = m_item.indexFromUIDs(last.first, last.second);
        if (first.second == 0 || !from.isValid() || from.parent() != to.parent())
            return;
        // As a user does with the control key held, and with a new current cell.
        m_selection.select({from, to}, QItemSelectionModel::Toggle);
        m_selection.setCurrentIndex(to, QItemSelectionModel::NoUpdate);
        m_held.push_back({from, first});
    }
    std::set<CellId> selected() const { return cellsOf(m_item, m_selection.selection()); }
    CellId current() const
    {
        const QModelIndex index = m_selection.currentIndex();
        return {m_item.rowFromIndex(index), m_item.columnFromIndex(index)};
    }

    QtViewModel2 m_item;
    std::optional<QAbstractItemModelTester> m_tester;
    QItemSelectionModel m_selection;
    std::vector<std::pair<QPersistentModelIndex, CellId>> m_held;
};

enum class Form { Table, List, Tree };

/// Changes a model at random, with much that is wrong, and looks after each change at what two
/// views have made of it, one of which takes every change for a flood.
class RandomShape
{
public:
    RandomShape(unsigned seed, Form form)
        : m_random(seed),
          m_form(form),
          // The tester wants rows to be children of the first column only.
          m_steps(m_model, form != Form::Tree, false),
          m_floods(m_model, form != Form::Tree, true)
    {
        change({SizeChange2::appendColumns(form == Form::List ? Uids{1} : Uids{1, 2, 3}),
                SizeChange2::appendRows(ascending(1, 20))});
    }

    void step()
    {
        if (below(3) == 0) {
            const Uid first = anyRow();
            const Uid last = anyRow();
            const CellId from{first, anyColumn()};
            const CellId to{last, anyColumn()};
            m_steps.select(from, to);
            m_floods.select(from, to);
            return;
        }
        if (below(4) == 0) {
            change({SizeChange2::hasChildren(anyRow(), below(2) == 0)});
            return;
        }
        std::vector<SizeChange2> changes;
        for (unsigned count = 1 + below(7); count > 0; --count)
            changes.push_back(anyChange());
        change(changes);
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(m_random() % end); }
    Uid anyRow() { return below(40); }
    Uid anyColumn() { return below(m_form == Form::List ? 2 : 7); }
    Uids some(Uid end)
    {
        Uids uids;
        for (unsigned count = below(4); count > 0; --count)
            uids.push_back(below(end));
        return uids;
    }
    SizeChange2 anyChange()
    {
        const int kind = static_cast<int>(below(12)) - 1;
        const Uid parent = below(2) == 0 ? 0 : m_form == Form::Table ? 100 + below(9) : anyRow();
        if (kind < SizeChange2::InsertRowsAfter || kind == SizeChange2::RemoveColumn)
            return {kind, anyColumn(), parent, some(m_form == Form::List ? 2 : 7)};
        Uids rows = some(40);
        rows.push_back(anyRow());
        return {kind, anyRow(), parent, std::move(rows)};
    }

    void change(const std::vector<SizeChange2>& changes)
    {
        const std::set<CellId> selected = m_steps.selected();
        const CellId currents[] = {m_steps.current(), m_floods.current()};
        m_model.changeSize(changes);
        settle();
        for (const SizeChange2& each : changes) {
            if (each.kind() == SizeChange2::PrependRows && each.uids().empty())
                m_expanders[each.parent()] = each.hasChildren();
        }
        std::erase_if(m_expanders,
                      [this](const auto& each) { return !m_steps.m_item.isValidRow(each.first); });
        for (Shown* each : {&m_steps, &m_floods}) {
            compareRows(each->m_item, 0, {});
            EXPECT_EQ(each->m_item.columns(), m_naive.m_columns);
            EXPECT_FALSE(each->m_item.isBlockingSelection());
            for (const auto& [index, cell] : each->m_held) {
                EXPECT_EQ(index, each->m_item.indexFromUIDs(cell.first, cell.second))
                    << cell.first << ' ' << cell.second;
            }
            const CellId current = currents[each == &m_floods];
            EXPECT_TRUE(!isThere(current) || each->current() == current);
            // Qt has what comes into the middle of selected columns below a row selected as well.
            if (m_form != Form::Tree) {
                std::set<CellId> left = selected;
                std::erase_if(left, [this](CellId cell) { return !isThere(cell); });
                EXPECT_EQ(each->selected(), left);
            }
            std::erase_if(each->m_held, [](const auto& held) { return !held.first.isValid(); });
        }
    }

    bool isThere(CellId cell) const
    {
        return m_steps.m_item.isValidRow(cell.first) && cell.second != 0
               && m_steps.m_item.isValidColumn(cell.second);
    }

    void compareRows(const QtViewModel2& item, Uid parent, const QModelIndex& parentIndex)
    {
        const auto found = m_naive.m_rows.find(parent);
        const Uids rows = found == m_naive.m_rows.end() ? Uids() : found->second;
        EXPECT_EQ(item.getChildRows(parent), rows);
        ASSERT_EQ(item.rowCount(parentIndex), std::ssize(rows));
        for (int place = 0; place < std::ssize(rows); ++place) {
            const Uid row = rows[std::size_t(place)];
            EXPECT_EQ(item.rowFromUID(row), place);
            const QModelIndex index = item.index(place, 0, parentIndex);
            if (m_naive.m_columns.empty()) {
                EXPECT_FALSE(index.isValid());
                continue;
            }
            EXPECT_EQ(item.rowFromIndex(index), row);
            EXPECT_EQ(item.parent(index), parentIndex);
            EXPECT_EQ(item.hasChildren(index), m_naive.m_rows.contains(row) || m_expanders[row]);
            compareRows(item, row, index);
        }
    }

    std::mt19937 m_random;
    Form m_form;
    Model m_model;
    NaiveView m_naive{m_model};
    Shown m_steps;
    Shown m_floods;
    std::map<Uid, bool> m_expanders;
};

TEST_F(QtViewModels, followWhatComesAndGoes)
{
    const unsigned seed = randomSeed();
    for (const Form form : {Form::Table, Form::List, Form::Tree}) {
        SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed) + " form "
                     + std::to_string(int(form)));
        RandomShape shape(seed, form);
        for (int step = 0; step < 1500; ++step) {
            shape.step();
            ASSERT_FALSE(HasFailure()) << "step " << step;
        }
    }
}

/// A table of a hundred rows, some of which the user has made special.
class Table : public QTableView
{
public:
    Table(Model& model, bool floods) : m_item(new QtViewModel2(&model, nullptr, this))
    {
        new QAbstractItemModelTester(m_item, this);
        setModel(m_item);
        m_item->setSelectionModel(selectionModel());
        if (floods)
            m_item->setFloodLimits({.work = -1});
        horizontalHeader()->setMinimumSectionSize(0);
        resize(300, 400);
    }

    /// The size of each row by its UID; 0 for hidden ones.
    std::map<Uid, int> heights() const
    {
        std::map<Uid, int> sizes;
        EXPECT_EQ(verticalHeader()->count(), m_item->rowCount());
        for (int row = 0; row < m_item->rowCount(); ++row)
            sizes[m_item->headerUIDFromSection(row, Qt::Vertical)] = rowHeight(row);
        return sizes;
    }
    std::map<Uid, int> widths() const
    {
        std::map<Uid, int> sizes;
        EXPECT_EQ(horizontalHeader()->count(), m_item->columnCount());
        for (int column = 0; column < m_item->columnCount(); ++column)
            sizes[m_item->columns()[std::size_t(column)]] = columnWidth(column);
        return sizes;
    }

    QtViewModel2* m_item;
};

TEST_F(QtViewModels, keepSizesInFloods)
{
    const std::vector<std::vector<SizeChange2>> floods{
        {SizeChange2::removeRows({1, 3, 5, 7, 9}), SizeChange2::appendRows({201, 202})},
        // All special ones, and the first row and column, by which headers remember them.
        {SizeChange2::removeRows({1, 10, 20, 30, 50})},
        {SizeChange2::removeRows({10, 20, 30, 40}), SizeChange2::prependRows({201}),
         SizeChange2::removeRows({1})},
        {SizeChange2::removeRows({1, 20, 50}), SizeChange2::appendRows({20, 1})},
        {SizeChange2::removeColumns({1, 2}), SizeChange2::appendColumns({1, 9})},
        {SizeChange2::removeRows(ascending(1, 100)), SizeChange2::appendRows(ascending(101, 100))},
    };
    for (const auto& flood : floods) {
        SCOPED_TRACE(&flood - floods.data());
        Model model({1, 2, 3}, ascending(1, 100));
        Table steps(model, false);
        Table atOnce(model, true);
        std::map<Uid, int> heights;
        std::map<Uid, int> widths;
        for (Table* each : {&steps, &atOnce}) {
            each->show();
            each->setRowHeight(9, 77);
            each->setRowHeight(19, 55);
            each->hideRow(29);
            each->setColumnWidth(1, 44);
            each->hideColumn(2);
            heights = each->heights();
            widths = each->widths();
        }
        model.changeSize(flood);
        model.answerAll();
        for (Table* each : {&steps, &atOnce}) {
            for (const auto& [row, height] : each->heights())
                EXPECT_EQ(height, heights.contains(row) ? heights[row] : heights[2]) << row;
            for (const auto& [column, width] : each->widths())
                EXPECT_EQ(width, widths.contains(column) ? widths[column] : widths[1]) << column;
        }
    }
}

TEST_F(QtViewModels, selectNothingNewInFloods)
{
    Model model({1, 2}, ascending(1, 1000));
    Shown view(model, true, true);
    view.select({1, 1}, {1000, 2});
    model.changeSize({SizeChange2::removeRows({1, 500, 700, 1000}),
                      SizeChange2::insertRowsAfter(600, {2001, 2002}),
                      SizeChange2::appendRows({2003, 2004})});
    settle();
    EXPECT_EQ(view.selected().size(), 2u * 996);
    EXPECT_EQ(view.current(), CellId(999, 2));
}

} // namespace
} // namespace VOXI
