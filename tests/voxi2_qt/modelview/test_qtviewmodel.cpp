// The item model that each view has of its own: what it shows at any time, and what Qt's views and
// selections make of its changes.

#include "../../voxi2/modelview/naiveview.h"
#include "qtviewmodel2.h"
#include "support/waitfor.h"
#include "support/watchedtest.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTableView>

#include <condition_variable>
#include <deque>
#include <iostream>
#include <mutex>
#include <optional>
#include <random>
#include <thread>

namespace VOXI {
namespace {

using Uid = QtViewModel2::Uid;
using Uids = QtViewModel2::Uids;
using CellId = std::pair<Uid, Uid>;

void settle() { TROV::Thread::getCurrentThread()->process(); }

class Model : public VXAbstractViewModel2
{
public:
    using VXAbstractViewModel2::answer;
    using VXAbstractViewModel2::changeData;
    using VXAbstractViewModel2::changeHeader;
    using VXAbstractViewModel2::changeSize;
    using VXAbstractViewModel2::clearCachedHeaderUIData;
    using VXAbstractViewModel2::clearCachedUIData;

    Model() = default;
    Model(const Uids& columns, const Uids& rows)
    {
        changeSize(SizeChange2::appendColumns(columns));
        changeSize(SizeChange2::appendRows(rows));
    }
    void query(const ViewQuery2& each) override { m_queries.push_back(each); }
    void queryHeader(const HeaderQuery2& each) override { m_headerQueries.push_back(each); }

    std::string text(Uid row, Uid column) const
    {
        const auto version = m_versions.find({row, column});
        return std::to_string(row) + '/' + std::to_string(column) + '.'
               + std::to_string(version == m_versions.end() ? 0 : version->second);
    }
    QueryResult2 cells(const ViewQuery2& query) const
    {
        QueryResult2 result;
        for (const Uid row : query.rows()) {
            for (const Uid column : query.columns())
                result.set(row, column, text(row, column));
        }
        return result;
    }
    void answerAll()
    {
        settle();
        for (const ViewQuery2& each : std::exchange(m_queries, {}))
            answer(each, cells(each));
        for (const HeaderQuery2& each : std::exchange(m_headerQueries, {}))
            answerBlank(each);
        settle();
    }

    std::vector<ViewQuery2> m_queries;
    std::vector<HeaderQuery2> m_headerQueries;
    std::map<CellId, int> m_versions;
};

Uids ascending(Uid first, std::size_t count)
{
    Uids uids;
    for (Uid uid = first; uids.size() < count; ++uid)
        uids.push_back(uid);
    return uids;
}

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

class QtViewModels : public WatchedTest
{};

unsigned randomSeed()
{
    const char* const wanted = std::getenv("VOXI_TEST_SEED");
    const unsigned seed = wanted ? unsigned(std::atoi(wanted)) : std::random_device{}();
    std::cout << "VOXI_TEST_SEED=" << seed << std::endl;
    return seed;
}

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

TEST_F(QtViewModels, askForBlocksAndNothingTwice)
{
    Model model(ascending(1, 13), ascending(101, 25));
    QtViewModel2 item(&model, model.modelEmitters());
    const QSignalSpy changed(&item, &QAbstractItemModel::dataChanged);
    const QModelIndex index = item.index(23, 12);
    EXPECT_FALSE(index.data().isValid());
    EXPECT_FALSE(item.index(20, 10).data(Qt::FontRole).isValid());
    EXPECT_EQ(index.flags(), Qt::ItemIsSelectable);
    EXPECT_FALSE(item.isKnown(item.index(0, 0))) << "flags and this ask for nothing";
    settle();
    ASSERT_EQ(model.m_queries.size(), 1u);
    EXPECT_EQ(model.m_queries[0].rows(), ascending(121, 5));
    EXPECT_EQ(model.m_queries[0].columns(), ascending(11, 3));
    EXPECT_EQ(model.m_queries[0].expanderRows(), ascending(121, 5));

    // Rows in between, a row that goes, one that is not there, what was not asked, and twice.
    const ViewQuery2 query = model.m_queries[0];
    model.m_queries.clear();
    model.changeSize({SizeChange2::prependRows({200, 201}), SizeChange2::removeRow(121),
                      SizeChange2::hasChildren(122)});
    QueryResult2 result;
    for (const Uid row : {121u, 122u, 123u, 123u, 999u, 0u})
        result.set(row, 12, CellUIData("x").setReadOnly(row == 123).setBold());
    result.set(102, 3, "not asked");
    result.setHasChildren(124);
    result.setHasChildren(777);
    Model::answer(query, result);
    Model::answer(query, result);
    Model::answer(ViewQuery2({model.id(), query.asker(), 1'000'000, 0, {}, {}, {}, {}}), result);
    settle();
    ASSERT_EQ(changed.size(), 1);
    const auto corner = [&](int which) {
        const auto at = changed[0][which].toModelIndex();
        return CellId(item.rowFromIndex(at), item.columnFromIndex(at));
    };
    EXPECT_EQ(corner(0), CellId(102, 1)) << "trees draw the expander beside the first column";
    EXPECT_EQ(corner(1), CellId(124, 12));
    EXPECT_TRUE(item.hasChildren(item.indexFromUIDs(124, 0)));
    EXPECT_EQ(item.indexFromUIDs(122, 12).flags(),
              Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
    EXPECT_TRUE(item.indexFromUIDs(122, 12).data(Qt::FontRole).value<QFont>().bold());

    // What was left out is asked for once more, and then taken for empty until it is looked for
    // anew; else a view would paint, ask and be told to paint for ever.
    for (const std::size_t asked : {1u, 0u}) {
        EXPECT_FALSE(item.indexFromUIDs(125, 12).data().isValid());
        settle();
        EXPECT_EQ(model.m_queries.size(), asked);
        for (const ViewQuery2& each : std::exchange(model.m_queries, {}))
            Model::answer(each, result);
        settle();
    }
    item.setInSight({125}, {12});
    EXPECT_FALSE(item.indexFromUIDs(125, 12).data().isValid());
    settle();
    ASSERT_EQ(model.m_queries.size(), 1u);

    // One that nobody has looked after although it is in sight has to be painted, to be asked.
    const auto times = changed.size();
    QueryResult2 dropped;
    dropped.setDropped();
    Model::answer(model.m_queries[0], dropped);
    settle();
    EXPECT_EQ(changed.size(), times + 1);
    EXPECT_FALSE(item.indexFromUIDs(125, 12).data().isValid());
    settle();
    EXPECT_EQ(model.m_queries.size(), 2u);
}

TEST_F(QtViewModels, askForHeadersByTheHundred)
{
    Model model({7, 8}, ascending(1, 250));
    QtViewModel2 item(&model, nullptr);
    const QSignalSpy changed(&item, &QAbstractItemModel::headerDataChanged);
    EXPECT_EQ(item.headerData(240, Qt::Vertical), 241);
    EXPECT_EQ(item.headerData(201, Qt::Vertical, Qt::FontRole), QVariant());
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), 2);
    EXPECT_EQ(item.headerData(2, Qt::Horizontal), QVariant());
    settle();
    ASSERT_EQ(model.m_headerQueries.size(), 2u);
    EXPECT_EQ(model.m_headerQueries[0].sections(), ascending(201, 50));
    HeaderQueryResult2 named;
    named.set(8, CellUIData("Name").setBold());
    named.set(99, "nobody");
    Model::answer(model.m_headerQueries[1], named);
    model.changeHeader({8});
    settle();
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), QStringLiteral("Name"));
    EXPECT_EQ(item.headerData(0, Qt::Horizontal), 1);
    ASSERT_EQ(model.m_headerQueries.size(), 3u) << "asked for anew since it has changed";
    EXPECT_EQ(model.m_headerQueries[2].sections(), Uids{8});
    // The old answer comes last, and counts for nothing.
    HeaderQueryResult2 renamed;
    renamed.set(8, "Surname");
    Model::answer(model.m_headerQueries[2], renamed);
    Model::answer(model.m_headerQueries[1], named);
    settle();
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), QStringLiteral("Surname"));
    item.doClearCachedHeaderUIData();
    EXPECT_EQ(item.headerData(1, Qt::Horizontal), 2);
}

TEST_F(QtViewModels, bearModelsThatAreNoneOrGo)
{
    const QtViewModel2 none;
    EXPECT_EQ(none.rowCount() + none.columnCount(), 0);
    EXPECT_TRUE(none.createCell(1, 1).isNull());

    std::optional<Model> model(std::in_place, Uids{1}, ascending(1, 5));
    QtViewModel2 item(&*model, nullptr);
    EXPECT_EQ(item.cellFromIndex(item.index(2, 0)), (ModelCell2{3, 1, &*model}));
    EXPECT_TRUE(item.cellFromIndex({}).isNull());
    item.index(0, 0).data();
    settle();
    const ViewQuery2 query = model->m_queries.at(0);
    const QueryResult2 result = model->cells(query);
    model.reset();
    Model::answer(query, result);
    settle();
    EXPECT_EQ(item.rowCount(), 5);
    EXPECT_FALSE(item.index(3, 0).data().isValid());
    EXPECT_TRUE(item.cellFromIndex(item.index(2, 0)).isNull());
}

/// The cells of a table whose answers come late, in any order, with news in between that they do
/// not know of.
TEST_F(QtViewModels, showTheLatestWhateverComesLate)
{
    const unsigned seed = randomSeed();
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t end) { return static_cast<Uid>(random() % end); };
    Model model(ascending(1, 15), ascending(1, 45));
    QtViewModel2 item(&model, nullptr);
    std::vector<std::pair<ViewQuery2, QueryResult2>> late;
    const auto answerAll = [&] {
        for (int quiet = 0; quiet < 2;) {
            quiet = model.m_queries.empty() && late.empty() ? quiet + 1 : 0;
            for (const auto& [query, result] : std::exchange(late, {}))
                Model::answer(query, result);
            model.answerAll();
        }
    };
    const auto compare = [&](bool all) {
        for (int row = 0; row < item.rowCount(); ++row) {
            for (int column = 0; column < item.columnCount(); ++column) {
                const QModelIndex index = item.index(row, column);
                if (all && !index.data().isValid())
                    answerAll();
                if (all || item.isKnown(index)) {
                    ASSERT_EQ(index.data().toString().toStdString(),
                              model.text(item.rowFromIndex(index), item.columnFromIndex(index)));
                }
            }
        }
    };
    Uid newest = 45;
    for (int step = 0; step < 4000; ++step) {
        const Uid row = 1 + below(newest);
        const Uid column = 1 + below(15);
        switch (below(12)) {
        case 0:
            ++model.m_versions[{row, column}];
            model.changeData(row, column);
            break;
        case 1:
            if (below(20) == 0) {
                for (Uid each = 1; each <= newest; ++each)
                    ++model.m_versions[{each, column}];
                model.clearCachedUIData();
            }
            break;
        case 2:
            model.changeSize(SizeChange2::insertRowsAfter(row, {++newest}));
            break;
        case 3:
            model.changeSize(SizeChange2::removeRow(row));
            // Another row of the same number, sometimes in an event of its own.
            if (below(2) == 0)
                settle();
            ++model.m_versions[{row, column}];
            model.changeSize(SizeChange2::insertRowsBefore(1 + below(newest), {row}));
            model.changeData(row, column);
            break;
        case 4:
        case 5:
            for (const ViewQuery2& each : std::exchange(model.m_queries, {}))
                late.emplace_back(each, below(9) == 0 ? QueryResult2() : model.cells(each));
            break;
        case 6:
        case 7:
        case 8:
            if (!late.empty()) {
                std::swap(late[below(late.size())], late.back());
                Model::answer(late.back().first, late.back().second);
                late.pop_back();
            }
            break;
        default:
            item.indexFromUIDs(row, column).data();
        }
        if (below(2) == 0)
            settle();
        if (step % 40 == 0) {
            answerAll();
            ASSERT_NO_FATAL_FAILURE(compare(false)) << step;
        }
    }
    answerAll();
    item.setCacheLimit(400);
    compare(true);
    EXPECT_LE(item.knownCells(), 400);
}

/// Answers by four threads, when it suits them.
class BusyModel : public VXAbstractViewModel2
{
public:
    using VXAbstractViewModel2::changeData;
    using VXAbstractViewModel2::changeSize;

    BusyModel()
    {
        for (unsigned i = 0; i < 4; ++i)
            m_threads.emplace_back([this, i](const std::stop_token& stop) { work(stop, i); });
    }
    ~BusyModel() override
    {
        for (std::jthread& each : m_threads)
            each.request_stop();
        m_threads.clear();
        retire();
    }
    void query(const ViewQuery2& each) override
    {
        const std::lock_guard lock(m_mutex);
        m_queries.push_back(each);
        m_changed.notify_one();
    }
    bool isIdle()
    {
        const std::lock_guard lock(m_mutex);
        return m_queries.empty() && m_busy == 0;
    }
    static std::string text(Uid row, int version)
    {
        return std::to_string(row) + '.' + std::to_string(version);
    }

    std::atomic<int> m_version{0};

private:
    void work(const std::stop_token& stop, unsigned seed)
    {
        std::mt19937 random(seed);
        std::unique_lock lock(m_mutex);
        while (m_changed.wait(lock, stop, [this] { return !m_queries.empty(); })) {
            const auto place = m_queries.begin() + long(random() % m_queries.size());
            const ViewQuery2 query = *place;
            m_queries.erase(place);
            ++m_busy;
            lock.unlock();
            QueryResult2 result;
            const int version = m_version;
            for (const Uid row : query.rows()) {
                for (const Uid column : query.columns())
                    result.set(row, column, text(row, version));
            }
            if (random() % 4 == 0)
                std::this_thread::yield();
            answer(query, std::move(result));
            lock.lock();
            --m_busy;
        }
    }

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<ViewQuery2> m_queries;
    int m_busy = 0;
    std::vector<std::jthread> m_threads; // the last: they use the others
};

TEST_F(QtViewModels, areAnsweredByManyThreads)
{
    BusyModel model;
    model.changeSize(SizeChange2::appendColumns(ascending(1, 4)));
    model.changeSize(SizeChange2::appendRows(ascending(1, 5000)));
    QTableView view;
    auto* const item = new QtViewModel2(&model, nullptr, &view);
    item->setCacheLimit(2000);
    view.setModel(item);
    view.resize(400, 600);
    view.show();
    std::mt19937 random(1);
    for (Uid step = 1; step <= 300; ++step) {
        view.scrollTo(item->index(int(random() % 4000), 0), QTableView::PositionAtTop);
        const Uid row = 1 + Uid(random() % 5000);
        model.changeSize(SizeChange2::removeRow(row));
        model.changeSize(SizeChange2::insertRowsAfter(1 + Uid(random() % 5000), {5000 + step}));
        if (step % 10 == 0) {
            ++model.m_version;
            DataChanges changes;
            for (Uid each = 1; each <= 5000 + step; ++each)
                changes[each] = {1, 2, 3, 4};
            model.changeData(changes);
        }
        view.viewport()->repaint();
        QCoreApplication::processEvents();
        settle();
    }
    const int top = view.rowAt(0);
    EXPECT_TRUE(waitFor([&] {
        settle();
        for (int row = top; row < top + 10; ++row) {
            const QModelIndex index = item->index(row, 2);
            if (index.data().toString().toStdString()
                != BusyModel::text(item->rowFromIndex(index), model.m_version))
                return false;
        }
        return model.isIdle();
    }));
}

} // namespace
} // namespace VOXI
