// The explorer's window on a display with a window manager, worked with the real pointer and keys.

#include "explorersupport.h"
#include "qthost/qthost.h"
#include "support/realinput.h"

namespace VOXI {
namespace {

class ExplorerOnDisplay : public ExplorerTest
{
protected:
    static void SetUpTestSuite() { s_host = std::make_unique<QtHost>(); }
    static void TearDownTestSuite() { s_host.reset(); }

    static void click(const VXWidget2& widget, VXPoint<int> inside, const char* how = "click 1")
    {
        const VXPoint<int> point = widget.mapToGlobal(inside);
        xdotool(at({point.x, point.y}) + QStringLiteral(" ") + QString::fromLatin1(how));
    }
    bool isPlaced()
    {
        VXRect<int> former;
        return waitFor([&] { return explorer().window()->isActiveWindow(); }, Patience)
               && waitFor(
                   [&] {
                       const bool isSettled = former == rows().globalPosition();
                       former = rows().globalPosition();
                       QTest::qWait(100);
                       return isSettled;
                   },
                   Patience);
    }

private:
    static inline std::unique_ptr<QtHost> s_host;
};

TEST_F(ExplorerOnDisplay, sortsFiltersEditsAndCommitsByPointerAndKeys)
{
    const Path file = shop();
    open(file);
    show("customers");
    ASSERT_TRUE(isPlaced());
    // The header of the first column twice: from the greatest down. At another place, for two
    // clicks at one place are a double click, which sorts once.
    const VXRect<int> header = rows().columnHeaderRect(1);
    const auto all = explorer().rows().count();
    for (const SortOrder order : {SortOrder::Ascending, SortOrder::Descending}) {
        const int part = order == SortOrder::Ascending ? 1 : 2;
        click(rows(), {header.x + header.width * part / 3, header.y + header.height / 2});
        ASSERT_TRUE(waitFor(
            [&] {
                return rows().sortIndicator() == SortIndicator{1, order}
                       && !explorer().rows().isListing();
            },
            Patience));
    }
    rows().scrollTo({static_cast<unsigned>(all), 1, nullptr});
    EXPECT_EQ(rows().cellAt(5, 5).row, all);

    auto* const filter = find<VXEdit2>("filter-1");
    click(*filter, {10, 10});
    ASSERT_TRUE(waitFor([&] { return filter->hasFocus(); }, Patience));
    xdotool(QStringLiteral("type =12"));
    ASSERT_TRUE(waitFor([&] { return explorer().rows().count() == 1; }, Patience));
    ASSERT_EQ(text(12, 1), L"12");

    // Into the cell by two clicks, out of it by Return.
    const VXRect<int> cell = rows().cellRect(12, 2);
    const VXRect<int> second = rows().columnHeaderRect(2);
    click(rows(), {cell.x + 30, second.y + second.height + cell.y + cell.height / 2},
          "click --repeat 2 --delay 30 1");
    ASSERT_TRUE(waitFor([&] { return rows().editor(12, 2) != nullptr; }, Patience));
    xdotool(QStringLiteral("key ctrl+a"));
    xdotool(QStringLiteral("type Typed"));
    xdotool(QStringLiteral("key Return"));
    ASSERT_TRUE(waitFor([&] { return explorer().document()->hasChanges(); }, Patience));
    xdotool(QStringLiteral("key ctrl+s"));
    ASSERT_TRUE(waitFor([&] { return !explorer().document()->hasChanges(); }, Patience));
    EXPECT_EQ(SQL::Database(file, SQL::Database::Mode::ReadOnly)
                  .scalar("SELECT name FROM customers WHERE id = 12"),
              SQL::Value(std::string("Typed")));

    // To the other page and back, by keys alone.
    xdotool(QStringLiteral("key ctrl+2"));
    auto* const sql = find<VXEditArea2>("sql");
    ASSERT_TRUE(waitFor([&] { return sql->hasFocus(); }, Patience));
    xdotool({QStringLiteral("type"), QStringLiteral("SELECT 42")});
    xdotool({QStringLiteral("key"), QStringLiteral("ctrl+Return")});
    EXPECT_TRUE(waitFor([&] { return explorer().query().rows().count() == 1; }, Patience));
    xdotool(QStringLiteral("key ctrl+1"));
    EXPECT_TRUE(waitFor([&] { return rows().hasFocus(); }, Patience));
}

} // namespace
} // namespace VOXI
