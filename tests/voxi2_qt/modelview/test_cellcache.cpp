#include "cellcache.h"
#include "cellroles.h"
#include "support/randomseed.h"

#include <QColor>
#include <QFont>
#include <QIcon>

#include <deque>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

using namespace VOXI;

namespace {

using Cell = CellCache::Cell;

/// The answer to a query for some cells, all with one look.
void answer(CellCache& cache, const std::vector<Cell>& cells, const CellUIData& data)
{
    std::vector<CellCache::News> news;
    news.reserve(cells.size());
    for (const Cell& cell : cells)
        news.push_back({cell, &data});
    cache.insert(news);
}

std::vector<Cell> rowsOf(unsigned first, unsigned last)
{
    std::vector<Cell> cells;
    for (unsigned row = first; row <= last; ++row)
        cells.push_back({row, 1});
    return cells;
}

Icon redIcon() { return Icon::fromPixmap(Pixmap(1, 1, {0xff0000ff})); }

} // namespace

TEST(CellRecord, saysWhatWasSetAndNothingElse)
{
    CellStyles styles;
    const CellRecord plain(CellUIData(), styles);
    for (const int role : {0, 1, 2, 3, 6, 7, 8, 9, 10, 53, 54, 55})
        EXPECT_FALSE(plain.data(role).isValid()) << role;
    EXPECT_EQ(plain.data(CellEnabledRole), QVariant(true));
    EXPECT_EQ(plain.data(CellReadOnlyRole), QVariant(true));
    EXPECT_EQ(plain.data(CellRendererRole), QVariant(0));

    CellUIData data(std::wstring(L"Anna"));
    data.setEnabled(false).setReadOnly(false).setRenderer(CellRenderer::CheckBox, std::string("x"));
    data.setToolTip("tip").setIcon(redIcon()).setAlignment(AlignmentFlag::Right).setWidget(77);
    data.setBackground(Color(1, 2, 3, 4)).setForeground(Color(5, 6, 7));
    data.setBold(false).setItalic().setFontFamily("Some Family");
    const CellRecord full(data, styles);
    EXPECT_EQ(full.data(Qt::DisplayRole), QVariant(QStringLiteral("Anna")));
    EXPECT_FALSE(full.data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(full.data(Qt::ToolTipRole), QVariant(QStringLiteral("tip")));
    EXPECT_EQ(full.data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight));
    EXPECT_EQ(full.data(Qt::BackgroundRole).value<QColor>(), QColor(1, 2, 3, 4));
    EXPECT_EQ(full.data(Qt::ForegroundRole).value<QColor>(), QColor(5, 6, 7));
    EXPECT_EQ(full.data(CellEnabledRole), QVariant(false));
    EXPECT_EQ(full.data(CellReadOnlyRole), QVariant(false));
    EXPECT_EQ(full.data(CellRendererRole), QVariant(3));
    EXPECT_EQ(full.data(CellRendererTextRole), QVariant(QStringLiteral("x")));
    EXPECT_EQ(full.data(CellWidgetRole).toUInt(), 77u);

    // What is not set comes from the view.
    QFont view(QStringLiteral("Other Family"), 33, QFont::Black);
    view.setUnderline(true);
    const QFont font = full.data(Qt::FontRole).value<QFont>().resolve(view);
    EXPECT_EQ(font.family(), QStringLiteral("Some Family"));
    EXPECT_EQ(font.pointSize(), 33);
    EXPECT_EQ(font.weight(), int(QFont::Normal));
    EXPECT_TRUE(font.italic() && font.underline());

    // An empty text is a value, and numbers have texts.
    const QVariant empty = CellRecord(CellUIData(std::string()), styles).data(Qt::DisplayRole);
    EXPECT_TRUE(empty.isValid() && empty.toString().isEmpty());
    EXPECT_EQ(CellRecord(CellUIData(42), styles).data(Qt::DisplayRole).toString(),
              QStringLiteral("42"));
    // A size that is none is no reason for Qt to warn.
    EXPECT_TRUE(CellRecord(CellUIData().setFontSize(0), styles).data(Qt::FontRole).isValid());
}

TEST(CellRecord, cellsThatLookAlikeShareAStyle)
{
    CellStyles styles;
    const CellRecord one(CellUIData(1).setIcon(redIcon()).setToolTip("a"), styles);
    const CellRecord other(CellUIData(2).setIcon(redIcon()), styles);
    EXPECT_EQ(&one.style(), &other.style());
    const CellRecord green(CellUIData(2).setForeground(Color(0, 255, 0)), styles);
    EXPECT_NE(&one.style(), &green.style());
    // Those of cells that have gone go when there are many.
    for (int i = 0; i < 10000; ++i)
        CellRecord(CellUIData().setFontSize(10 + i), styles);
    EXPECT_LT(styles.size(), 100);
    EXPECT_EQ(&CellRecord(CellUIData().setIcon(redIcon()), styles).style(), &one.style());
}

TEST(CellCache, whatIsOnScreenOrWasSeenLastStays)
{
    CellCache cache;
    cache.setLimit(100);
    for (unsigned first = 1; first <= 91; first += 10)
        answer(cache, rowsOf(first, first + 9), CellUIData(int(first)));
    EXPECT_FALSE(cache.isTooLarge());
    EXPECT_TRUE(cache.find({15, 1}));
    EXPECT_TRUE(cache.peek({25, 1}));
    answer(cache, rowsOf(101, 110), {});
    EXPECT_TRUE(cache.isTooLarge());
    cache.trim(std::vector<Cell>{{1, 1}, {999, 9}});
    EXPECT_LE(cache.size(), 100);
    EXPECT_TRUE(cache.peek({10, 1}) && cache.peek({11, 1}) && cache.peek({110, 1}));
    EXPECT_FALSE(cache.peek({21, 1})); // the oldest: looked at only in passing
    // More on the screen than the limit allows.
    cache.setLimit(5);
    cache.trim(std::vector<Cell>{{1, 1}, {11, 1}});
    EXPECT_EQ(cache.size(), 20);
    // The next time other cells may be there.
    cache.trim({});
    EXPECT_EQ(cache.size(), 0);
}

TEST(CellCache, randomStepsEqualAPlainMap)
{
    const unsigned seed = randomSeed();
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](unsigned end) { return unsigned(random() % end); };
    CellCache cache;
    cache.setLimit(600);
    std::map<std::pair<unsigned, unsigned>, int> naive;
    for (int step = 0; step < 3000; ++step) {
        const Cell cell{below(100), below(20)};
        const unsigned what = below(20);
        if (what < 8) {
            std::deque<CellUIData> data;
            std::vector<CellCache::News> news;
            for (unsigned i = below(100); i > 0; --i) { // some cells twice
                const Cell where{cell.row + below(10), cell.column + below(10)};
                const int value = int(random() >> 1);
                news.push_back({where, &data.emplace_back(value)});
                naive[{where.row, where.column}] = value;
            }
            cache.insert(news);
        } else if (what == 8) {
            const std::vector<unsigned> rows{cell.row, cell.row + 1};
            const std::vector<unsigned> columns{cell.column, cell.column + 2};
            cache.removeRows(rows, columns);
            for (const unsigned row : rows)
                for (const unsigned column : columns)
                    naive.erase({row, column});
        } else if (what == 9) {
            cache.removeIf([&](Cell each) { return each.column == cell.column; });
            std::erase_if(naive,
                          [&](const auto& each) { return each.first.second == cell.column; });
        } else if (what == 10 && below(50) == 0) {
            cache.clear();
            naive.clear();
        } else if (cache.isTooLarge() && what == 11) {
            cache.trim(std::vector<Cell>{cell});
            ASSERT_LE(cache.size(), std::max<qsizetype>(cache.limit(), 100));
            if (const auto kept = naive.find({cell.row, cell.column}); kept != naive.end()) {
                ASSERT_TRUE(cache.peek(cell));
            }
            std::erase_if(naive, [&](const auto& each) {
                return !cache.peek({each.first.first, each.first.second});
            });
        }
        ASSERT_EQ(cache.size(), qsizetype(naive.size()));
        for (int i = 0; i < 20; ++i) {
            const Cell where{below(110), below(30)};
            const CellRecord* const record = i % 2 ? cache.find(where) : cache.peek(where);
            const auto known = naive.find({where.row, where.column});
            ASSERT_EQ(record != nullptr, known != naive.end());
            if (record) {
                ASSERT_EQ(record->text(), QString::number(known->second));
            }
        }
    }
}
