// How values are edited, and what may happen meanwhile.

#include "propertysupport.h"
#include "support/reportederrors.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>

#include <stdexcept>

namespace VOXI {
namespace {

/// Makes what a test says, and remembers what becomes of it.
class Factory : public VXSimplePropertyEditorFactory2
{
public:
    using Make = std::function<VXWidget2*(VXSimplePropertyBrowser2&, VXSimpleProperty2&)>;

    unsigned createEditor(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property) override
    {
        ++m_asked;
        VXWidget2* const made = m_make(browser, property);
        m_editor = made;
        return made ? made->id() : 0;
    }
    void commitEditor(VXSimpleProperty2& property, unsigned editor) override
    {
        ++m_committed;
        if (m_commit)
            return m_commit();
        if (const auto* edit = dynamic_cast<VXEdit2*>(VXObject::objectById(editor)))
            property.imitateEdit(edit->text());
    }
    void releaseEditor(unsigned editor) override
    {
        ++m_released;
        VXSimplePropertyEditorFactory2::releaseEditor(editor);
    }

    Make m_make = [](VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property) {
        return new VXEdit2(property.valueTextU(), &browser);
    };
    std::function<void()> m_commit;
    VXHandle<VXWidget2> m_editor;
    int m_asked = 0;
    int m_committed = 0;
    int m_released = 0;
};

class PropertyEditing : public PropertyBrowserTest
{
public:
    PropertyEditing()
    {
        m_text = add("text", any("one"));
        m_other = add("other", any("two"));
        m_browser->setEditorFactory(m_factory);
    }

    QLineEdit& open(const char* name = "text")
    {
        click(name);
        auto* const line = qobject_cast<QLineEdit*>(editor(name));
        if (!line)
            throw std::logic_error("no editor");
        return *line;
    }
    bool isReleased()
    {
        turn();
        turn(); // the release comes behind the close
        runDeletions();
        return m_factory->m_asked == m_factory->m_released && !m_factory->m_editor.isValid()
               && !m_browser->editedProperty();
    }

    std::shared_ptr<Factory> m_factory = std::make_shared<Factory>();
    VXSimpleProperty2* m_text;
    VXSimpleProperty2* m_other;
};

TEST_F(PropertyEditing, opensOnlyWhatMayBeEdited)
{
    click("text", 0);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle("text", 0));
    EXPECT_EQ(m_factory->m_asked, 0);
    m_browser->setReadOnly(true);
    click("text");
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle("text"));
    m_browser->edit(m_text);
    turn();
    EXPECT_EQ(m_factory->m_asked, 0);
    m_browser->setReadOnly(false);
    m_text->setReadOnly(true);
    addGroup("group");
    click("text");
    click("group");
    EXPECT_EQ(m_factory->m_asked, 0);
    click("other");
    EXPECT_EQ(m_factory->m_asked, 1);
    EXPECT_EQ(m_browser->editedProperty(), m_other);
    m_browser->setReadOnly(true);
    EXPECT_TRUE(isReleased());
}

TEST_F(PropertyEditing, takesOverWhatIsTypedWhenItsUserIsDone)
{
    Log closed(m_browser->editorClosed());
    Log edited(m_text->valueEdited());
    QLineEdit& line = open();
    EXPECT_TRUE(line.hasFocus());
    EXPECT_EQ(line.geometry(),
              tree()
                  .visualItemRect(item("text"))
                  .intersected(tree().visualRect(tree().indexFromItem(item("text"), 1))));
    QTest::keyClicks(&line, QStringLiteral("new"));
    EXPECT_EQ(shown(), "text=one other=two");
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(shown(), "text=new other=two");
    EXPECT_EQ(edited.count(), 1);
    EXPECT_TRUE(closed.only().isCommitted());
    EXPECT_EQ(closed.only().property(), m_text);
    EXPECT_TRUE(isReleased());
    EXPECT_TRUE(tree().hasFocus());

    closed.clear();
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle("text"));
    turn();
    QTest::keyClicks(editor("text"), QStringLiteral("never"));
    QTest::keyClick(editor("text"), Qt::Key_Escape);
    EXPECT_EQ(shown(), "text=new other=two");
    EXPECT_FALSE(closed.only().isCommitted());
    EXPECT_TRUE(isReleased());

    closed.clear();
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle("text"));
    turn();
    QTest::keyClicks(editor("text"), QStringLiteral("left"));
    click("other");
    EXPECT_EQ(shown(), "text=left other=two");
    EXPECT_EQ(m_browser->editedProperty(), m_other);
    EXPECT_EQ(closed.only().property(), m_text);
    closed.clear();
    m_browser->closeOpenEditor();
    EXPECT_TRUE(closed.isEmpty());
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(m_factory->m_committed, 2);
}

/// It says what it shows each time that it is asked, and nothing when that is another.
TEST_F(PropertyEditing, whatAPropertyMakesOfACommitIsShown)
{
    std::wstring said = L"before";
    m_browser->addProperty(new AskedProperty([&] { return said; }, &m_owner));
    m_factory->m_commit = [&] { said = L"after"; };
    QTest::keyClick(&open("asked"), Qt::Key_Return);
    EXPECT_EQ(shown(), "text=one other=two asked=after");
}

TEST_F(PropertyEditing, tabGoesOnToTheNextValue)
{
    QLineEdit& line = open();
    QTest::keyClicks(&line, QStringLiteral("new"));
    QTest::keyClick(&line, Qt::Key_Tab);
    turn();
    EXPECT_EQ(shown(), "text=new other=two");
    EXPECT_EQ(m_browser->editedProperty(), m_other);
    EXPECT_EQ(m_browser->current(), m_other);
}

TEST_F(PropertyEditing, aFocusThatAPopUpTakesEndsNothing)
{
    m_factory->m_make = [](VXSimplePropertyBrowser2& browser, VXSimpleProperty2&) {
        auto* const box = new VXComboBox2(&browser);
        box->addItem("one");
        box->addItem("two");
        return box;
    };
    click("text");
    auto* const box = qobject_cast<QComboBox*>(editor("text"));
    ASSERT_TRUE(box);
    QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(box, &popup);
    EXPECT_EQ(editor("text"), box);
    box->showPopup();
    ASSERT_TRUE(waitFor([&] { return QApplication::activePopupWidget() != nullptr; }));
    turn();
    EXPECT_EQ(editor("text"), box);
    EXPECT_EQ(m_factory->m_committed, 0);
    box->hidePopup();
    VXWidget2& elsewhere = *new VXEdit2(&m_owner);
    elsewhere.show();
    elsewhere.setActiveWindow();
    elsewhere.setFocus();
    ASSERT_TRUE(waitFor([&] { return qt(elsewhere)->hasFocus(); }));
    EXPECT_TRUE(isReleased());
}

TEST_F(PropertyEditing, anEditorMayConsistOfSeveralWidgets)
{
    m_factory->m_make = [](VXSimplePropertyBrowser2& browser, VXSimpleProperty2&) {
        auto* const both = new VXPanel2(&browser);
        auto* const first = new VXEdit2("first", both);
        auto* const second = new VXEdit2("second", both);
        second->moveTo({50, 0});
        both->setFocusProxy(first);
        return both;
    };
    click("text");
    QWidget* const both = editor("text");
    ASSERT_TRUE(both);
    const auto lines = both->findChildren<QLineEdit*>();
    EXPECT_TRUE(lines[0]->hasFocus());
    lines[1]->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(editor("text"), both);
    QTest::keyClick(lines[1], Qt::Key_Return);
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(m_factory->m_committed, 1);
}

TEST_F(PropertyEditing, withoutAFactoryTheProgramIsAsked)
{
    m_browser->setEditorFactory(nullptr);
    Log requested(m_browser->editRequested());
    click("text");
    EXPECT_EQ(requested.only().property(), m_text);
    EXPECT_EQ(editor("text"), nullptr);

    VXButton2 button("Edit");
    VXButton2 second("Second");
    Comings comings{&button, &second};
    m_browser->setEditor(m_text, &button);
    EXPECT_EQ(editor("text"), qt(button));
    EXPECT_TRUE(button.isVisible());
    m_browser->setEditor(m_text, &button);
    m_browser->setEditor(m_text, m_browser); // which it is in
    m_browser->closeOpenEditor();            // which this is not
    EXPECT_EQ(editor("text"), qt(button));
    m_browser->setEditor(m_text, &second);
    EXPECT_FALSE(button.isVisible());
    m_browser->setEditor(m_other, &second); // it cannot be in both
    EXPECT_EQ(editor("text"), nullptr);
    EXPECT_EQ(editor("other"), qt(second));
    m_browser->setEditor(m_other, nullptr);
    EXPECT_EQ(editor("other"), nullptr);
    m_browser->setEditor(m_other, &second);
    m_browser->removeProperty(m_other);
    m_browser->setEditor(m_text, &button);
    m_browser->clear();
    EXPECT_FALSE(button.isVisible() || second.isVisible());
    m_browser->addProperty(m_text);
    m_browser->setEditor(m_text, &button);
    VXPanel2 elsewhere;
    button.setParent(&elsewhere);
    EXPECT_EQ(editor("text"), nullptr);
    m_browser->setEditor(m_text, &second);
    EXPECT_FALSE(comings.areReported());
    delete m_browser;
    runDeletions();
    EXPECT_TRUE(qt(button) && qt(second));
}

/// What may happen while an editor is open.
TEST_F(PropertyEditing, anOpenEditorSurvivesNothingButHarmsNothing)
{
    using Act = std::function<void(PropertyEditing&)>;
    const Act acts[] = {
        [](PropertyEditing& t) { t.m_browser->removeProperty(t.m_text); },
        [](PropertyEditing& t) { t.m_browser->clear(); },
        [](PropertyEditing& t) { t.m_browser->addProperty(t.m_text, t.m_other); },
        [](PropertyEditing& t) { t.m_browser->setEditor(t.m_text, new VXButton2(&t.m_owner)); },
        [](PropertyEditing& t) { t.m_factory->m_editor.get()->destroy(); },
        [](PropertyEditing& t) { t.m_factory->m_editor.get()->setParent(nullptr); },
        [](PropertyEditing& t) { t.m_browser->edit(t.m_other), t.m_browser->closeOpenEditor(); },
        [](PropertyEditing& t) { delete t.m_text; },
        [](PropertyEditing& t) { delete t.m_browser; },
    };
    for (const Act& act : acts) {
        m_browser->addProperty(m_text);
        m_browser->addProperty(m_other);
        m_browser->edit(m_text);
        ASSERT_EQ(m_browser->editedProperty(), m_text);
        QTest::keyClicks(editor("text"), QStringLiteral("x"));
        QTest::keyClick(editor("text"), Qt::Key_Return); // whose end comes with the next turn
        act(*this);
        if (!m_handle)
            break;
        EXPECT_TRUE(isReleased());
        m_browser->clear();
        if (&act == &acts[7])
            m_text = add("text", any("one"));
    }
    turn();
    runDeletions();
    turn();
    EXPECT_EQ(m_factory->m_asked, m_factory->m_released);
    EXPECT_FALSE(m_factory->m_editor.isValid());
}

/// Sorting and refreshing leave an editor alone.
TEST_F(PropertyEditing, anEditorStaysWhileOtherThingsChange)
{
    QLineEdit& line = open();
    QTest::keyClicks(&line, QStringLiteral("typed"));
    m_text->setValue("by the program");
    m_browser->setSort(VXSimplePropertyComparator2::byName());
    add("a", any(1));
    m_browser->refresh();
    EXPECT_EQ(shown(), "a=1 other=two text=by the program");
    EXPECT_EQ(editor("text"), &line);
    EXPECT_EQ(line.text(), QStringLiteral("typed"));
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(shown(), "a=1 other=two text=typed");
}

TEST_F(PropertyEditing, aFactoryMayDoAnything)
{
    TROV::ReportedErrors errors;
    using Make = Factory::Make;
    using B = VXSimplePropertyBrowser2;
    using P = VXSimpleProperty2;
    const Make makes[] = {
        [](B&, P&) -> VXWidget2* { return nullptr; },
        [](B&, P&) -> VXWidget2* { throw std::runtime_error("no editor"); },
        [](B& browser, P& property) -> VXWidget2* {
            browser.removeProperty(&property);
            return new VXEdit2(&browser);
        },
        [](B& browser, P&) -> VXWidget2* {
            browser.clear();
            return new VXEdit2(&browser);
        },
        [](B& browser, P&) -> VXWidget2* {
            browser.setReadOnly(true);
            return new VXEdit2(&browser);
        },
        [](B& browser, P& property) -> VXWidget2* {
            browser.edit(&property);
            browser.setEditorFactory(nullptr);
            turn();
            browser.addProperty(&property, nullptr);
            browser.clear();
            return new VXEdit2(&browser);
        },
        [](B& browser, P&) -> VXWidget2* {
            auto* const edit = new VXEdit2;
            delete &browser;
            runDeletions();
            return edit;
        },
    };
    for (const Make& make : makes) {
        m_browser->setEditorFactory(m_factory);
        m_browser->setReadOnly(false);
        m_browser->addProperty(m_text);
        turn();
        m_factory->m_make = make;
        const int asked = m_factory->m_asked;
        QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle("text"));
        turn();
        EXPECT_GT(m_factory->m_asked, asked);
        if (m_handle) {
            EXPECT_EQ(m_browser->editedProperty(), nullptr);
        }
        turn();
        runDeletions();
        EXPECT_FALSE(m_factory->m_editor.isValid());
        if (m_handle) {
            m_browser->setCurrent(nullptr);
            m_browser->clear();
        }
    }
    EXPECT_FALSE(m_handle.isValid());
    EXPECT_EQ(errors.take().front(), "no editor");
}

TEST_F(PropertyEditing, aCommitMayDoAnything)
{
    TROV::ReportedErrors errors;
    const std::function<void()> acts[] = {
        [] { throw std::runtime_error("no commit"); },
        [&] { m_browser->removeProperty(m_text); },
        [&] { m_browser->clear(); },
        [&] { m_factory->m_editor.get()->destroy(); },
        [&] { m_browser->closeOpenEditor(); },
        [&] {
            m_factory->m_editor.get()->destroy();
            turn();
            runDeletions();
        },
        [&] { delete m_browser; },
    };
    for (const bool byKey : {true, false}) {
        for (const auto& act : acts) {
            if (!m_handle) {
                m_browser = new VXSimplePropertyBrowser2;
                m_handle = m_browser;
                m_browser->setEditorFactory(m_factory);
                m_browser->show();
            }
            m_browser->addProperty(m_text);
            m_browser->addProperty(m_other);
            m_browser->edit(m_text);
            m_factory->m_commit = act;
            if (byKey)
                QTest::keyClick(editor("text"), Qt::Key_Return);
            else
                QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, middle("other"));
            turn();
            m_factory->m_commit = nullptr;
            if (m_handle) {
                m_browser->closeOpenEditor();
                m_browser->clear();
                m_browser->setCurrent(nullptr);
            }
            turn();
            runDeletions();
            EXPECT_EQ(m_factory->m_asked, m_factory->m_released);
        }
    }
    EXPECT_EQ(errors.take(), (std::vector<std::string>{"no commit", "no commit"}));
}

} // namespace
} // namespace VOXI
