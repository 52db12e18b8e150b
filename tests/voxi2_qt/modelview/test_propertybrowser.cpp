// What a property browser shows, in which order, and what becomes of it when properties go.

#include "propertysupport.h"
#include "support/reportederrors.h"
#include "support/worker.h"

#include <QHeaderView>
#include <QItemDelegate>

#include <stdexcept>
#include <thread>

namespace VOXI {
namespace {

using Browser = PropertyBrowserTest;

TEST_F(Browser, isSetUpAsATreeOfNamesAndValues)
{
    const QTreeWidget& made = tree();
    EXPECT_EQ(made.columnCount(), 2);
    EXPECT_EQ(made.headerItem()->text(0), QStringLiteral("Property"));
    EXPECT_EQ(made.headerItem()->text(1), QStringLiteral("Value"));
    EXPECT_TRUE(made.rootIsDecorated() && made.alternatingRowColors());
    EXPECT_EQ(made.indentation(), 11);
    EXPECT_EQ(made.header()->sectionSize(0), 140);
    EXPECT_FALSE(made.header()->sectionsMovable());
    EXPECT_EQ(made.editTriggers(), QAbstractItemView::CurrentChanged
                                       | QAbstractItemView::DoubleClicked
                                       | QAbstractItemView::SelectedClicked);

    add("name", any(1));
    QStyleOptionViewItem option;
    option.font = made.font();
    const QModelIndex cell = made.indexFromItem(item("name"), 1);
    EXPECT_EQ(made.itemDelegate()->sizeHint(option, cell),
              QItemDelegate().sizeHint(option, cell) + QSize(3, 3));
}

TEST_F(Browser, showsWhatThePropertiesSayAndFollowsThem)
{
    VXSimpleProperty2* const group = addGroup("group");
    VXSimpleProperty2* const number = add("number", any(1), group);
    VXSimpleProperty2* const text = add("text", any("one"));
    EXPECT_EQ(shown(), "group= (number=1) text=one");
    EXPECT_EQ(m_browser->properties(), (std::vector{group, text}));

    TROV::Worker worker;
    worker.run([&] {
        number->setValue(2);
        text->setName("other");
    });
    EXPECT_EQ(shown(), "group= (number=2) other=one");
    text->setNameTextColor({1, 2, 3, 128});
    EXPECT_EQ(item("other")->foreground(0).color(), QColor(1, 2, 3, 128));
    text->setNameTextColor({1, 2, 3, 0});
    EXPECT_FALSE(item("other")->data(0, Qt::ForegroundRole).isValid());
    m_browser->setToolTip(number, u8"\u00fcber");
    EXPECT_EQ(item("number")->toolTip(1), QStringLiteral("\u00fcber"));
    EXPECT_EQ(m_browser->toolTip(), "");

    std::wstring huge;
    huge.resize(10'000'000, L'x');
    text->setValue(huge);
    EXPECT_LT(item("other")->text(1).size(), 2'000);
    EXPECT_EQ(text->valueAs<std::wstring>().size(), huge.size());
}

TEST_F(Browser, propertiesMoveButNeverIntoThemselves)
{
    VXSimpleProperty2* const a = addGroup("a");
    VXSimpleProperty2* const b = addGroup("b", a);
    VXSimpleProperty2* const c = add("c", any(1), b);
    m_browser->setExpanded(b, true);
    m_browser->setCurrent(c);
    m_browser->addProperty(a, a);
    m_browser->addProperty(a, b);
    m_browser->addProperty(a, c);
    EXPECT_EQ(shown(), "a= (b= (c=1))");
    m_browser->addProperty(b);
    EXPECT_EQ(shown(), "a= b= (c=1)");
    EXPECT_TRUE(m_browser->isExpanded(b));
    EXPECT_EQ(m_browser->current(), c);

    VXSimpleProperty2 elsewhere("elsewhere");
    m_browser->addProperty(c, &elsewhere);
    m_browser->addProperty(new VXSimpleProperty2("lost", &m_owner), &elsewhere);
    m_browser->addProperty(nullptr, a);
    EXPECT_EQ(shown(), "a= b= (c=1)");

    m_browser->setCurrent(a);
    m_browser->addProperty(b, a);
    EXPECT_EQ(shown(), "a= (b= (c=1))");
    EXPECT_TRUE(m_browser->isExpanded(b)) << "nothing in it is current";
}

TEST_F(Browser, whatIsRemovedOrEndsGoesWithWhatIsInIt)
{
    VXSimpleProperty2* const a = addGroup("a");
    VXSimpleProperty2* const b = add("b", any(1), a);
    VXSimpleProperty2* const c = add("c", any(2));
    VXSimplePropertyBrowser2 other;
    other.addProperty(b);
    m_browser->removeProperty(a);
    EXPECT_EQ(shown(), "c=2");
    EXPECT_EQ(other.properties(), std::vector{b});
    m_browser->addProperty(a);
    m_browser->addProperty(b, a);
    EXPECT_EQ(shown(), "c=2 a= (b=1)");

    TROV::Worker worker;
    worker.run([&] { delete b; });
    EXPECT_EQ(shown(), "c=2 a=");
    EXPECT_TRUE(other.properties().empty());
    delete a;
    EXPECT_EQ(shown(), "c=2");
    m_browser->clear();
    EXPECT_EQ(shown(), "");
    c->setValue(3); // which nobody shows
    m_browser->addProperty(c);
    EXPECT_EQ(shown(), "c=3");
}

TEST_F(Browser, thousandsOfLevelsComeAndGo)
{
    VXSimpleProperty2* inner = nullptr;
    for (int i = 0; i < 30'000; ++i)
        inner = addGroup("level", inner);
    m_browser->setSort(VXSimplePropertyComparator2::byName());
    EXPECT_TRUE(m_browser->properties(inner).empty());
    m_browser->clear();
    EXPECT_EQ(shown(), "");
    for (int i = 0; i < 30'000; ++i)
        inner = addGroup("level", i == 0 ? nullptr : inner);
    delete m_browser;
    runDeletions();
}

TEST_F(Browser, aTextThatThrowsLeavesWhatWasThere)
{
    TROV::ReportedErrors errors;
    bool isBad = true;
    AskedProperty asked([&]() -> std::wstring {
        if (isBad)
            throw std::runtime_error("no text");
        return L"good";
    });
    m_browser->addProperty(&asked);
    EXPECT_EQ(shown(), "asked=");
    isBad = false;
    m_browser->refreshUI();
    EXPECT_EQ(shown(), "asked=good");
    isBad = true;
    m_browser->refreshUI();
    EXPECT_EQ(shown(), "asked=good");
    EXPECT_EQ(errors.take(), (std::vector<std::string>{"no text", "no text"}));
}

/// What a property does while it is read, when it is added and when it is refreshed.
TEST_F(Browser, whatIsReadMayEndAnything)
{
    using Act =
        std::function<void(PropertyBrowserTest&, VXSimplePropertyBrowser2&, AskedProperty*)>;
    using B = VXSimplePropertyBrowser2;
    const Act acts[] = {
        [](auto&, B& browser, AskedProperty* self) { browser.removeProperty(self); },
        [](auto&, B&, AskedProperty* self) { delete self; },
        [](auto&, B& browser, AskedProperty*) { browser.clear(); },
        [](auto&, B& browser, AskedProperty* self) {
            browser.clear();
            browser.addProperty(self);
        },
        [](auto&, B& browser, AskedProperty*) { browser.refreshUI(); },
        [](auto&, B& browser, AskedProperty*) { delete &browser; },
        [](auto&, B& browser, AskedProperty*) {
            delete &browser;
            runDeletions();
        },
    };
    for (const bool isAdding : {false, true}) {
        for (const Act& act : acts) {
            auto* const browser = new VXSimplePropertyBrowser2;
            VXSimpleProperty2 before("before", any(1));
            VXSimpleProperty2 after("after", any(2));
            browser->addProperty(&before);
            bool isArmed = isAdding;
            AskedProperty* asked = nullptr;
            asked = new AskedProperty([&, browser] {
                if (std::exchange(isArmed, false))
                    act(*this, *browser, asked);
                return L"text";
            });
            const VXHandle<VXSimplePropertyBrowser2> handle(browser);
            const VXHandle<VXSimpleProperty2> property(asked);
            browser->addProperty(asked);
            handle->addProperty(&after, nullptr);
            isArmed = !isAdding;
            handle->refreshUI();
            turn();
            handle->refreshUI();
            EXPECT_FALSE(isArmed);
            if (handle)
                handle->destroy();
            if (property)
                property.get()->destroy();
            runDeletions();
        }
    }
}

TEST_F(Browser, sortsAllLevelsAndKeepsWhatTheUserHasMade)
{
    VXSimpleProperty2* const b = addGroup("b");
    VXSimpleProperty2* const z = add("z", any(1), b);
    add("y", any(2), b);
    m_browser->setExpanded(b, true);
    m_browser->setCurrent(z);
    m_browser->setSort(VXSimplePropertyComparator2::byName());
    add("c", any(3));
    add("a", any(4));
    EXPECT_EQ(m_browser->properties().front()->name(), "a"); // without a turn of the loop
    EXPECT_EQ(shown(), "a=4 b= (y=2 z=1) c=3");
    EXPECT_TRUE(m_browser->isExpanded(b));
    EXPECT_EQ(m_browser->current(), z);
    VXSimpleProperty2* const group = addGroup("0");
    add("in", any(5), group); // whose group has no row yet
    VXSimpleProperty2* const removed = add("1", any(6));
    m_browser->removeProperty(removed);
    EXPECT_EQ(shown(), "0= (in=5) a=4 b= (y=2 z=1) c=3");
    m_browser->setSort(nullptr);
    add("A", any(7));
    EXPECT_EQ(shown(), "0= (in=5) a=4 b= (y=2 z=1) c=3 A=7");
}

TEST_F(Browser, aComparatorMayDoAnything)
{
    TROV::ReportedErrors errors;
    for (int i = 0; i < 40; ++i)
        add("name", any(i));
    unsigned random = 1;
    m_browser->setSort(std::make_shared<Order>([&](auto&, auto&) {
        random = random * 1'103'515'245 + 12'345;
        return (random >> 16) % 2 == 0;
    }));
    EXPECT_EQ(m_browser->properties().size(), 40u);
    m_browser->setSort(std::make_shared<Order>(
        [](auto&, auto&) -> bool { throw std::runtime_error("no order"); }));
    EXPECT_EQ(m_browser->properties().size(), 40u);
    EXPECT_EQ(errors.take(), std::vector<std::string>{"no order"});
    m_browser->setSort(std::make_shared<Order>([&](auto&, auto&) {
        m_browser->setSort(nullptr);
        return true;
    }));
    EXPECT_EQ(m_browser->properties().size(), 40u);
    int left = 50;
    m_browser->setSort(std::make_shared<Order>([&](auto& a, auto&) {
        if (--left == 40)
            delete &a;
        else if (--left == 20)
            m_browser->clear();
        return false;
    }));
    EXPECT_TRUE(m_browser->properties().empty());
    add("one", any(1));
    add("two", any(2));
    m_browser->setSort(std::make_shared<Order>([&](auto&, auto&) {
        if (m_handle)
            delete m_browser;
        return true;
    }));
    turn();
    EXPECT_FALSE(m_handle.isValid());
}

TEST_F(Browser, showsOnlyWhatIsSearched)
{
    VXSimpleProperty2* const size = addGroup("Size");
    add("width", any(7), size);
    VXSimpleProperty2* const height = add("height", any(8), size);
    add("Name", any("wide"));
    m_browser->setFilter("WID");
    EXPECT_EQ(shown(), "Size= (width=7) Name=wide");
    EXPECT_TRUE(m_browser->isExpanded(size));
    height->setName("not so wide");
    EXPECT_EQ(shown(), "Size= (width=7 not so wide=8) Name=wide");
    add("other", any(1));
    add("widget", any(1));
    EXPECT_EQ(shown(), "Size= (width=7 not so wide=8) Name=wide widget=1");
    m_browser->setFilter("size");
    EXPECT_EQ(shown(), "Size= (width=7 not so wide=8)");
    m_browser->setFilter("");
    EXPECT_EQ(shown(), "Size= (width=7 not so wide=8) Name=wide other=1 widget=1");
}

TEST_F(Browser, reportsWhatItsUserDoesAndNothingElse)
{
    VXSimpleProperty2* const group = addGroup("group");
    VXSimpleProperty2* const inside = add("inside", any(1), group);
    Log expanded(m_browser->propertyExpanded());
    Log collapsed(m_browser->propertyCollapsed());
    Log doubleClicked(m_browser->propertyDoubleClicked());
    Log current(m_browser->currentChanged());
    m_browser->setExpanded(group, true);
    m_browser->setCurrent(inside);
    m_browser->setExpanded(group, false);
    m_browser->setCurrent(nullptr);
    turn();
    EXPECT_TRUE(expanded.isEmpty() && collapsed.isEmpty() && current.isEmpty());

    click("group", 0);
    EXPECT_EQ(current.only().property(), group);
    EXPECT_EQ(current.only().browser(), m_browser);
    click("group", 1);
    EXPECT_EQ(current.count(), 1) << "it is still the same";
    click("group", 0);
    QTest::keyClick(&tree(), Qt::Key_Right);
    EXPECT_EQ(expanded.only().property(), group);
    QTest::keyClick(&tree(), Qt::Key_Left);
    EXPECT_EQ(collapsed.only().property(), group);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle("group", 0));
    EXPECT_EQ(doubleClicked.only().property(), group);
    EXPECT_TRUE(m_browser->isExpanded(group));
    current.clear();
    m_browser->setCurrent(inside);
    m_browser->removeProperty(group); // the focus goes on by itself
    turn();
    EXPECT_TRUE(current.isEmpty());
}

/// Keys and focus are the tree's; for the program they are the browser's.
TEST_F(Browser, keysAndFocusOfTheTreeAreTheBrowsers)
{
    add("name", any(1));
    VXWidget2& browser = *m_browser;
    Log keys(browser.keyPressed());
    Log lost(browser.focusLost());
    browser.setFocus();
    EXPECT_TRUE(browser.hasFocus());
    QTest::keyClick(&tree(), Qt::Key_F9); // which the tree does not want
    turn();
    EXPECT_EQ(keys.only().key(), Key::F9);
    keys.clear();
    QTest::keyClick(&tree(), Qt::Key_Down);
    turn();
    EXPECT_EQ(keys.only().key(), Key::Down);
    tree().clearFocus();
    EXPECT_EQ(lost.count(), 1);
    browser.setEventConsumed(WidgetEvent::KeyPress, true);
    m_browser->setCurrent(nullptr);
    QTest::keyClick(&tree(), Qt::Key_Down);
    EXPECT_EQ(m_browser->current(), nullptr);
}

TEST_F(Browser, otherValuesThanTheDefaultAreBold)
{
    VXSimpleProperty2& number = *add("number", 3);
    const auto isBold = [this] {
        turn();
        return item("number")->font(1).bold();
    };
    EXPECT_FALSE(isBold());
    number.setDefaultValue(4);
    EXPECT_TRUE(isBold());
    number.reset();
    EXPECT_FALSE(isBold());
}

/// Each that shows it is told by itself: who has read it speaks for no other.
TEST_F(Browser, changesReachAllBrowsersHoweverManyThereAre)
{
    VXSimpleProperty2& number = *add("number", 1);
    VXSimplePropertyBrowser2 other;
    other.addProperty(&number);
    std::thread([&] {
        for (int i = 2; i <= 5'000; ++i)
            number.setValue(i);
    }).join();
    m_browser->refreshUI();
    EXPECT_EQ(item("number")->text(1), QStringLiteral("5000"));
    number.setValue(7);
    EXPECT_EQ(shown(), "number=7");
    EXPECT_EQ(shownIn(*qt(other)->findChild<QTreeWidget*>()->invisibleRootItem()), "number=7");
}

TEST_F(Browser, aPropertyAsAProgramUsesIt)
{
    VXSimpleProperty2 number("number", PropertyType::integer(1, 10));
    Log edited(number.valueEdited());
    Log refused(number.editRefused());
    EXPECT_EQ(number.valueAs<long long>(), 1);
    EXPECT_TRUE(number.setValue(7u));
    EXPECT_FALSE(number.setValue(11));
    EXPECT_FALSE(number.setValue(any("7")));
    EXPECT_TRUE(number.setDefaultValue(3));
    EXPECT_FALSE(number.isDefault());
    number.reset();
    EXPECT_TRUE(number.isDefault());
    EXPECT_TRUE(edited.isEmpty());

    EXPECT_TRUE(number.imitateEditText("5"));
    EXPECT_EQ(std::any_cast<long long>(edited.only().newValue()), 5);
    EXPECT_TRUE(number.imitateEdit(5)); // which it has
    EXPECT_FALSE(number.imitateEditText("fifty"));
    EXPECT_EQ(refused.only().message(), number.validationMessage());
    EXPECT_FALSE(number.validationMessage().empty());
    number.setValidator([](const any& value) -> std::wstring {
        return std::any_cast<long long>(value) % 2 ? L"" : L"odd, please";
    });
    EXPECT_FALSE(number.imitateEdit(6));
    EXPECT_EQ(number.validationMessage(), L"odd, please");
    EXPECT_TRUE(number.imitateReset());
    EXPECT_EQ(number.validationMessage(), L"");
    EXPECT_EQ(edited.count(), 2);
    number.setReadOnly(true);
    EXPECT_FALSE(number.imitateEdit(9));
    EXPECT_EQ(number.valueText(), "3");
    EXPECT_TRUE(number.setValue(9));
}

} // namespace
} // namespace VOXI
