#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/kernel/vxaction2.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QCompleter>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <climits>
#include <gtest/gtest.h>
#include <stdexcept>

namespace VOXI {
namespace {

class Edit : public testing::Test
{
protected:
    Edit()
    {
        m_edit.show();
        m_edit.setFocus();
        turn();
    }

    QLineEdit& line() const { return dynamic_cast<QLineEdit&>(*qt(m_edit)); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&line(), key, modifiers);
        turn();
    }
    void type(const char* text) const
    {
        QTest::keyClicks(&line(), QString::fromLatin1(text));
        turn();
    }

    VXEdit2 m_edit;
    Log<VXEditTextEvent2> m_edited{m_edit.textEdited()};
    Log<VXEditFinishEvent2> m_finished{m_edit.editingFinished()};
    Log<VXEditCursorEvent2> m_moved{m_edit.cursorMoved()};
    Log<VXEditSelectionEvent2> m_selected{m_edit.selectionChanged()};
};

TEST_F(Edit, reportsWhatItsUserDoesAndNothingElse)
{
    Log returned(m_edit.returnPressed());
    m_edit.setText("one");
    m_edit.selectAll();
    m_edit.insert(L"two");
    m_edit.undo();
    m_edit.setCursorPosition(1);
    m_edit.setSelection({0, 2});
    m_edit.cut();
    m_edit.paste();
    m_edit.setMaximumLength(2);
    turn();
    EXPECT_EQ(m_edit.textU(), L"on");
    EXPECT_TRUE(m_edited.isEmpty() && m_moved.isEmpty() && m_selected.isEmpty());

    m_edit.setMaximumLength(-1);
    m_edit.setText("");
    type("ab");
    ASSERT_EQ(m_edited.count(), 2);
    EXPECT_EQ(m_edited.last().edit(), &m_edit);
    EXPECT_EQ(m_edited.last().newText(), L"ab");
    EXPECT_EQ(m_moved.last().newPosition(), 2);
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_edit.selectedText(), L"b");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m_edited.count(), 3);
    EXPECT_TRUE(m_finished.isEmpty());
    press(Qt::Key_Return);
    EXPECT_EQ(m_finished.count(), 1);
    EXPECT_EQ(returned.count(), 1);
}

TEST_F(Edit, theTextThatStandsIsNotSetAgain)
{
    type("some");
    m_edit.setSelection({1, 2});
    m_edit.setText("some");
    EXPECT_EQ(m_edit.selection(), (TextRange{1, 2}));
    EXPECT_TRUE(m_edit.isUndoAvailable());
    m_edit.setText("other");
    EXPECT_EQ(m_edit.cursorPosition(), 5);
    EXPECT_FALSE(m_edit.isUndoAvailable());
}

/// Qt counts UTF-16 units.
TEST_F(Edit, positionsCountCharacters)
{
    m_edit.setText(L"a\U0001f600b\xd83d"
                   L"c");
    EXPECT_EQ(m_edit.cursorPosition(), 5);
    m_edit.setSelection({1, 1});
    EXPECT_EQ(m_edit.selectedText(), L"\U0001f600");
    EXPECT_EQ(m_edit.selection(), (TextRange{1, 1}));
    m_edit.setSelection({3, -2});
    EXPECT_EQ(m_edit.selectedText(), L"\U0001f600b");
    m_edit.setSelection({2, 2'000'000'000});
    EXPECT_EQ(m_edit.selection(), (TextRange{2, 3}));
    m_edit.setCursorPosition(-7);
    EXPECT_EQ(m_edit.cursorPosition(), 0);
    EXPECT_EQ(m_edit.selection(), (TextRange{0, 0}));
    m_edit.setCursorPosition(2'000'000'000);
    EXPECT_EQ(m_edit.cursorPosition(), 5);
}

TEST_F(Edit, validatorsJudgeWhatIsTyped)
{
    const auto typed = [this](const TextValidator& validator, const char* text) {
        m_edit.setText("");
        m_edit.setValidator(validator);
        type(text);
        return m_edit.text() + (m_edit.isAcceptable() ? "+" : "-");
    };
    EXPECT_EQ(typed(TextValidator::integer(10, 50), "1x"), "1-");
    EXPECT_EQ(typed(TextValidator::integer(10, 50), "423"), "42+");
    EXPECT_EQ(typed(TextValidator::decimal(0, 10, 1), "2.5e7"), "2.5+");
    EXPECT_EQ(typed(TextValidator::matching(L"[a-c]{2}"), "adb"), "ab+");
    EXPECT_EQ(typed(TextValidator::matching(L"(["), "adb"), "adb+");
    EXPECT_EQ(typed(TextValidator(), "adb"), "adb+");
    EXPECT_EQ(typed(TextValidator::function(nullptr), "adb"), "adb+");

    const auto even = TextValidator::function([](const std::wstring& text) {
        if (text.find(L'x') != text.npos)
            return TextValidity::No;
        return text.size() % 2 == 0 ? TextValidity::Acceptable : TextValidity::NotYet;
    });
    EXPECT_EQ(typed(even, "axb"), "ab+");
    m_finished.clear();
    type("c");
    press(Qt::Key_Return);
    EXPECT_TRUE(m_finished.isEmpty());
    EXPECT_EQ(m_edit.validator(), even);
}

/// It is called in the middle of Qt's work.
TEST_F(Edit, aValidatorMayDoAnything)
{
    auto* const other = new VXEdit2;
    other->show();
    int calls = 0;
    other->setValidator(TextValidator::function([&](const std::wstring& text) {
        if (text.empty())
            return TextValidity::Acceptable;
        ++calls;
        other->setValidator(TextValidator::integer(1, 9));
        other->destroy();
        runDeletions();
        turn();
        return TextValidity::Acceptable;
    }));
    const QPointer<QWidget> widget = qt(*other);
    QTest::keyClicks(widget, QStringLiteral("7"));
    EXPECT_EQ(calls, 1);
    runDeletions();
    EXPECT_TRUE(widget.isNull());

    m_edit.setValidator(TextValidator::function(
        [](const std::wstring&) -> TextValidity { throw std::runtime_error("from a validator"); }));
    std::string thrown;
    TROV::Thread::setExceptionHandler([&](std::exception_ptr error) {
        try {
            std::rethrow_exception(std::move(error));
        } catch (const std::exception& exception) {
            thrown = exception.what();
        }
    });
    type("1");
    TROV::Thread::setExceptionHandler({});
    EXPECT_EQ(thrown, "from a validator");
    EXPECT_EQ(m_edit.text(), "1");
}

TEST_F(Edit, compositionIsNeitherReportedNorJudged)
{
    m_edit.setValidator(TextValidator::matching(L"[a-z]*"));
    QInputMethodEvent composing(QStringLiteral("\u3042"), {});
    QCoreApplication::sendEvent(&line(), &composing);
    turn();
    EXPECT_TRUE(m_edited.isEmpty());
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("ok"));
    QCoreApplication::sendEvent(&line(), &done);
    turn();
    ASSERT_EQ(m_edited.count(), 1);
    EXPECT_EQ(m_edited.last().newText(), L"ok");
}

TEST_F(Edit, aChosenSuggestionIsReported)
{
    m_edit.setCompletion({{L"Alpha", L"Beta", L"Gamma beta"}, true, false});
    type("be");
    QAbstractItemView* const popup = line().completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->model()->rowCount(), 2);
    // The one that is chosen is told while the list changes.
    m_edit.textEdited().connect(&m_edited, [this](const VXEditTextEvent2& event) {
        if (event.newText().size() > 2)
            m_edit.setCompletion({});
    });
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    turn();
    EXPECT_EQ(m_edited.last().newText(), L"Beta");
    EXPECT_EQ(m_edit.textU(), L"Beta");
    type("x");
    EXPECT_FALSE(popup->isVisible());
}

TEST_F(Edit, theClearButtonFollowsTheProgramsText)
{
    m_edit.setClearButtonVisible(true);
    m_edit.setText("text");
    auto* const button = line().findChild<QToolButton*>();
    ASSERT_NE(button, nullptr);
    ASSERT_TRUE(waitFor([&] { return button->isVisible(); }));
    QTest::mouseClick(button, Qt::LeftButton);
    turn();
    EXPECT_EQ(m_edit.textU(), L"");
    ASSERT_EQ(m_edited.count(), 1);
}

/// Qt's own button would be deleted under its own click.
TEST_F(Edit, sideActionsMayGoInTheirClick)
{
    VXAction2 owned;
    auto* const dying = new VXAction2;
    m_edit.addSideAction(&owned, EditSide::Leading);
    m_edit.addSideAction(&owned);
    m_edit.addSideAction(dying);
    m_edit.addSideAction(nullptr);
    const auto buttons = [this] {
        for (int i = 0; i < 2; ++i)
            runDeletions(); // of an action, and of its button by that
        return line().findChildren<QToolButton*>();
    };
    ASSERT_EQ(buttons().size(), 2);
    dying->triggered().connect(&m_edited, [&](const VXActionTriggerEvent2&) {
        dying->destroy();
        m_edit.removeSideAction(&owned);
        turn();
        runDeletions();
    });
    QTest::mouseClick(buttons().last(), Qt::LeftButton);
    EXPECT_EQ(buttons().size(), 0);
}

TEST_F(Edit, takesWhateverIsPasted)
{
    const std::wstring texts[] = {std::wstring(L"a\0b", 3),
                                  L"\xd800 alone",
                                  L"\xdc00\xd83d",
                                  L"\u0633\u0644\u0627\u0645 \u202e and back",
                                  std::wstring(1000, L'\u0301'),
                                  L"\U0001f600 \U0010ffff"};
    for (const std::wstring& text : texts) {
        m_edit.setText(text);
        EXPECT_EQ(m_edit.textU(), text);
        m_edit.setSelection({0, 1});
        m_edit.setCursorPosition(2'000'000'000);
        m_edit.selectAll();
        EXPECT_EQ(m_edit.selectedText(), text);
        m_edit.imitateTyping(text);
        EXPECT_EQ(m_edit.textU(), text);
        qt(m_edit)->grab();
    }
    // By the clipboard, as its user does.
    QGuiApplication::clipboard()->setText(QString(20'000'000, u'x') + QChar(0xd800));
    for (const int most : {32'767, -1}) {
        m_edit.setMaximumLength(most);
        m_edit.selectAll();
        QTest::keySequence(qt(m_edit), QKeySequence::Paste);
        const int held = most < 0 ? VXEdit2::GreatestLength : most;
        EXPECT_TRUE(m_edit.textU() == std::wstring(std::size_t(held), L'x'));
    }
    QGuiApplication::clipboard()->clear();
}

TEST_F(Edit, hugeTextsAreCutOff)
{
    const std::wstring huge(5'000'000, L'x');
    m_edit.setText(huge);
    EXPECT_EQ(m_edit.textU().size(), 32767u);
    m_edit.selectAll();
    m_edit.imitateTyping(huge);
    EXPECT_EQ(m_edit.textU().size(), 32767u);
    m_edit.setMaximumLength(INT_MAX);
    EXPECT_EQ(m_edit.maximumLength(), -1);
    m_edit.setText(huge);
    EXPECT_EQ(m_edit.textU().size(), std::size_t(VXEdit2::GreatestLength));
    m_edit.setMaximumLength(0);
    EXPECT_EQ(m_edit.textU(), L"");
    m_edit.setReadOnly(true);
    m_edit.setMaximumLength(10);
    m_edit.insert("x");
    m_edit.imitateTyping("x");
    EXPECT_EQ(m_edit.textU(), L"");
}

} // namespace
} // namespace VOXI
