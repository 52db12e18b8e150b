// The gallery as assistive programs see and use it, over the accessibility bus.

#include "accessclient.h"
#include "gallerysupport.h"
#include "qttwin.h"
#include "support/realinput.h"
#include "support/watchdog.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QWindow>

#include <fstream>

namespace VOXI {
namespace {

/// What holds others may go without a name, and cells and rows may be empty.
bool isControl(const Spoken& spoken)
{
    static const QStringList others{QStringLiteral("filler"), QStringLiteral("cell"),
                                    QStringLiteral("tree item"), QStringLiteral("list item")};
    return !others.contains(spoken.role);
}

class GalleryAccess : public GalleryTest
{
protected:
    static void SetUpTestSuite()
    {
        GalleryTest::SetUpTestSuite();
        s_client = std::make_unique<AccessClient>();
    }
    static void TearDownTestSuite()
    {
        s_client.reset();
        GalleryTest::TearDownTestSuite();
    }

    void SetUp() override { ASSERT_EQ(client().error(), QString()); }

    static AccessClient& client() { return *s_client; }

    static const Spoken* find(const std::vector<Spoken>& all, const QString& path)
    {
        const auto found = std::ranges::find(all, path, &Spoken::path);
        return found == all.end() ? nullptr : &*found;
    }

    static std::string textOf(const std::vector<Spoken>& all)
    {
        std::string text;
        for (const Spoken& each : all)
            text += each.line().toStdString() + '\n';
        return text;
    }

    static bool hears(const QString& what)
    {
        return waitFor(
            [&] {
                return std::ranges::any_of(
                    client().heard(), [&](const QString& each) { return each.startsWith(what); });
            },
            Patience);
    }

    /// One that is not chosen yet, wherever it is in the list; in a long one, whose rows have not
    /// been read, by its place, or the list is opened.
    static void choose(const std::vector<Spoken>& all, const Spoken& from)
    {
        const auto begin = std::ranges::find(all, from.path, &Spoken::path);
        for (auto each = begin + 1; each != all.end() && each->depth > from.depth; ++each) {
            if (each->actions.contains(QStringLiteral("Toggle")) && !each->is(Spoken::Selected)) {
                client().act(*each, QStringLiteral("Toggle"));
                return;
            }
        }
        if (from.actions.contains(QStringLiteral("Press"))) {
            client().act(from, QStringLiteral("Press"));
            return;
        }
        for (const int row : {1, 0})
            client().selectRow(from.path, row);
    }

    /// The abstract event has to come, or a menu.
    static void operate(QWidget& control, const Spoken& spoken, const std::vector<Spoken>& all,
                        Closing& closing)
    {
        const Uses uses(&control);
        if (!uses.isKnown() || (uses.isText() && !spoken.is(Spoken::Editable)))
            return;
        const std::string name = nameOf(&control);
        auto* const box = qobject_cast<QComboBox*>(&control);
        const int former = box ? box->currentIndex() : 0;
        closing.hasClosed();
        if (uses.isText()) {
            client().setText(spoken.path, QStringLiteral("2020-01-02"));
        } else if (uses.isChoice()) {
            choose(all, spoken);
        } else if (uses.isRange()) {
            client().setValue(spoken.path, uses.otherValue());
        } else {
            const QStringList& actions = spoken.actions;
            for (const QString& action :
                 {QStringLiteral("Press"), QStringLiteral("Toggle"), QStringLiteral("ShowMenu")}) {
                if (actions.contains(action)) {
                    client().act(spoken, action);
                    break;
                }
            }
        }
        EXPECT_TRUE(waitFor([&] { return uses.count() > 0 || closing.hasClosed(); }, Patience))
            << name << " is not operated: " << spoken.line().toStdString();
        if (box)
            box->setCurrentIndex(former); // for the comparison with plain Qt's
    }

private:
    static inline std::unique_ptr<AccessClient> s_client;
};

TEST_F(GalleryAccess, showsAndDoesAllThatTheMouseCan)
{
    const Watchdog watchdog(std::chrono::seconds(150), "access");
    Closing closing;
    for (const std::string& name : gallery::pageNames()) {
        SCOPED_TRACE(name);
        show(name);
        const std::vector<Spoken> all = client().read(&page());
        EXPECT_TRUE(client().isReachedFromTop(all.front().path));
        if (const char* const folder = std::getenv("VOXI_ACCESS_DIR"))
            std::ofstream(std::string(folder) + '/' + name + ".txt") << textOf(all);
        for (const Spoken& each : all) {
            const bool isUsed = each.is(Spoken::Focusable) && each.is(Spoken::Showing)
                                && each.is(Spoken::Enabled) && isControl(each);
            EXPECT_FALSE(isUsed && each.name.isEmpty())
                << "without a name: " << each.line().toStdString();
        }
        for (const auto& each : controls()) {
            const Spoken* const spoken = each ? find(all, AccessClient::pathOf(each)) : nullptr;
            EXPECT_TRUE(spoken || !each) << nameOf(each) << " is not there";
            if (spoken && each->isVisible() && each->isEnabled())
                operate(*each, *spoken, all, closing);
        }
        closeOthers();
    }
}

TEST_F(GalleryAccess, hearsFocusAndTexts)
{
    const Watchdog watchdog(std::chrono::seconds(60), "access");
    show("signup");
    const auto press = [](Qt::Key key) { QTest::keyClick(window().windowHandle(), key); };
    auto* const tree = window().findChild<QWidget*>(QStringLiteral("pages"));
    // The program learns by and by that somebody listens.
    ASSERT_TRUE(waitFor(
        [&] {
            tree->setFocus();
            window().findChild<QWidget*>(QStringLiteral("search"))->setFocus();
            return !client().heard().isEmpty();
        },
        Patience));
    tree->setFocus();
    int stops = 0;
    for (; stops < 6; ++stops) {
        client().forget();
        const QWidget* const former = QApplication::focusWidget();
        press(Qt::Key_Tab);
        ASSERT_TRUE(waitFor([&] { return QApplication::focusWidget() != former; }, Patience));
        const QString path = AccessClient::pathOf(QApplication::focusWidget());
        EXPECT_TRUE(hears(path + QStringLiteral(" StateChanged focused 1")))
            << nameOf(QApplication::focusWidget());
    }

    // The log has a name of its own, which must not hide what is written into it.
    auto* const log = window().findChild<QLabel*>(QStringLiteral("log"));
    ASSERT_TRUE(log);
    show("counting");
    client().forget();
    window().findChild<QWidget*>(QStringLiteral("counter"))->setFocus();
    press(Qt::Key_Space);
    const QString path = AccessClient::pathOf(log);
    EXPECT_TRUE(hears(path + QStringLiteral(" TextChanged insert")));
    // More is written while it is asked for.
    EXPECT_TRUE(waitFor([&] { return client().textOf(path) == log->text(); }, Patience));
}

TEST_F(GalleryAccess, hearsOfRows)
{
    const Watchdog watchdog(std::chrono::seconds(60), "access");
    show("explorerbar");
    auto* const bar = page().findChild<QAbstractItemView*>(QStringLiteral("bar"));
    ASSERT_TRUE(bar);
    const std::vector<Spoken> all = client().read(bar);
    const auto group = std::ranges::find(all, 1, &Spoken::depth);
    ASSERT_NE(group, all.end());
    client().forget();
    for (const auto& each : controls()) {
        if (each->property("text") == QStringLiteral("Add a task"))
            QMetaObject::invokeMethod(each, "click");
    }
    EXPECT_TRUE(hears(group->path + QStringLiteral(" ChildrenChanged add")));
}

/// By role and name, what of `mine` there is nothing in `yours` for that can do as much.
std::vector<std::string> missing(const std::vector<Spoken>& mine, const std::vector<Spoken>& yours)
{
    const quint64 passing = 1ULL << Spoken::Focused | 1ULL << Spoken::Showing | 1ULL << 30
                            | 1ULL << 1 | 1ULL << 4; // what changes: visible, active, checked
    std::vector<std::string> all;
    for (const Spoken& each : mine) {
        const bool isUsed = each.is(Spoken::Focusable) && isControl(each);
        if (!isUsed && each.role != QLatin1String("progress bar"))
            continue;
        const bool isThere = std::ranges::any_of(yours, [&](const Spoken& other) {
            return other.role == each.role && other.name == each.name
                   && (each.states & ~other.states & ~passing) == 0
                   && std::ranges::all_of(each.actions, [&](const QString& action) {
                          return other.actions.contains(action);
                      });
        });
        if (!isThere)
            all.push_back(each.line().toStdString());
    }
    return all;
}

TEST_F(GalleryAccess, hasAllThatPlainQtHas)
{
    const Watchdog watchdog(std::chrono::seconds(60), "access");
    for (const char* const name : {"forms", "buttons", "ranges"}) {
        SCOPED_TRACE(name);
        show(name);
        const std::vector<Spoken> ours = client().read(&page());
        const std::unique_ptr<QWidget> twin = plainTwin(name);
        twin->show();
        ASSERT_TRUE(waitFor([&] { return twin->isActiveWindow(); }, Patience));
        const std::vector<Spoken> theirs = client().read(twin.get());
        EXPECT_GT(theirs.size(), 8U);
        EXPECT_EQ(missing(theirs, ours), std::vector<std::string>()) << textOf(ours);
    }
}

} // namespace
} // namespace VOXI
