#include "editareasupport.h"
#include "support/waitfor.h"

#include <QPointer>
#include <QTreeView>

#include <functional>
#include <thread>
#include <utility>
#include <vector>

namespace VOXI {
namespace {

using Suggestions = std::vector<TextSuggestion>;

class EditAreaSuggest : public EditArea
{
protected:
    EditAreaSuggest()
    {
        m_area.suggestionsWanted().connect(&m_taken, [this](const VXEditAreaSuggestEvent2& event) {
            m_asked.push_back(event);
            if (m_answer)
                m_answer(event);
        });
    }

    QTreeView* list() const
    {
        auto* const found = edit().findChild<QTreeView*>();
        return found && found->isVisible() ? found : nullptr;
    }
    void answersFruit()
    {
        m_answer = [this](const VXEditAreaSuggestEvent2& event) {
            const std::wstring begun = m_area.textOf(event.word());
            Suggestions found;
            for (const wchar_t* each : {L"apple", L"apricot", L"banana"}) {
                if (std::wstring(each).starts_with(begun))
                    found.push_back({.text = each, .detail = L"fruit"});
            }
            event.answer(found);
        };
    }

    Log<VXEditAreaSuggestionEvent2> m_taken{m_area.suggestionTaken()};
    std::vector<VXEditAreaSuggestEvent2> m_asked;
    std::function<void(const VXEditAreaSuggestEvent2&)> m_answer;
};

TEST_F(EditAreaSuggest, isAskedForByItsKeyAndTakenByKeys)
{
    answersFruit();
    m_area.setText("eat an ");
    m_area.setCursorPosition(7);
    type("ap");
    EXPECT_TRUE(m_asked.empty());
    press(Qt::Key_Space, Qt::ControlModifier);
    ASSERT_TRUE(list());
    EXPECT_EQ(m_asked.back().word(), (TextRange{7, 2}));
    EXPECT_EQ(m_asked.back().area(), &m_area);
    EXPECT_FALSE(m_asked.back().isTyping());
    EXPECT_EQ(m_area.suggestions().size(), 2U);
    EXPECT_TRUE(edit().hasFocus());
    EXPECT_GT(list()->y(), edit().viewport()->mapToGlobal(edit().cursorRect().topLeft()).y());
    m_edited.clear();
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    EXPECT_EQ(m_area.textU(), L"eat an apricot");
    EXPECT_EQ(m_area.cursorPosition(), 14);
    EXPECT_EQ(m_edited.only().added(), L"apricot");
    EXPECT_EQ(m_taken.only().index(), 1);
    EXPECT_EQ(m_taken.only().text(), L"apricot");
    EXPECT_FALSE(list());
    EXPECT_TRUE(m_area.suggestions().empty());
    m_area.undo();
    EXPECT_EQ(m_area.textU(), L"eat an ap");

    press(Qt::Key_Space, Qt::ControlModifier);
    type("r");
    EXPECT_TRUE(m_asked.back().isTyping()) << "what is offered follows";
    EXPECT_EQ(m_area.suggestions().size(), 1U);
    press(Qt::Key_Return);
    EXPECT_EQ(m_area.textU(), L"eat an apricot");
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_FALSE(list()) << "it stands there already";
    press(Qt::Key_Return);
    EXPECT_EQ(m_area.textU(), L"eat an apricot\n");
}

TEST_F(EditAreaSuggest, comesWhileItsUserTypesAndGoesWhenHeDoesNotWantIt)
{
    answersFruit();
    m_area.setSuggestionLength(2);
    type("b");
    EXPECT_TRUE(m_asked.empty());
    type("a");
    EXPECT_TRUE(list());
    press(Qt::Key_Backspace);
    EXPECT_TRUE(list());
    press(Qt::Key_Escape);
    EXPECT_FALSE(list());
    type("an");
    EXPECT_FALSE(list()) << "not for this word";
    type(" ap");
    EXPECT_TRUE(list());
    const std::vector<std::pair<const char*, std::function<void()>>> ways = {
        {"a blank", [this] { type(" "); }},
        {"another place", [this] { m_area.setCursorPosition(0); }},
        {"another text", [this] { m_area.setText("ap"); }},
        {"another kind of text", [this] { m_area.setRichText(!m_area.isRichText()); }},
        {"undo", [this] { press(Qt::Key_Z, Qt::ControlModifier); }},
        {"none",
         [this] {
             m_area.suggest({m_area.cursorPosition(), 0}, {});
         }},
        {"read-only", [this] { m_area.setReadOnly(true); }},
        {"disabled", [this] { m_area.setEnabled(false); }},
        {"hidden", [this] { m_area.hide(); }},
    };
    for (const auto& [name, goes] : ways) {
        m_area.setReadOnly(false);
        m_area.setEnabled(true);
        m_area.show();
        m_area.setFocus();
        m_area.setText("x ");
        m_area.setCursorPosition(2);
        type("ap");
        EXPECT_TRUE(list()) << name;
        goes();
        turn();
        EXPECT_FALSE(list()) << name;
        EXPECT_TRUE(m_area.suggestions().empty()) << name;
    }
}

TEST_F(EditAreaSuggest, onlyTheAnswerToTheLastQuestionCounts)
{
    m_area.setSuggestionLength(1);
    type("a");
    const VXEditAreaSuggestEvent2 former = m_asked.back();
    type("p");
    former.answer({{L"apple"}});
    EXPECT_FALSE(list());
    const VXEditAreaSuggestEvent2 latter = m_asked.back();
    std::thread([&] { latter.answer({0, 2}, {{L"apple"}, {L"apricot"}}); }).join();
    turn();
    EXPECT_TRUE(list());
    latter.answer({{L"other"}});
    EXPECT_EQ(m_area.suggestions().size(), 2U) << "a second answer";
    type("p");
    m_area.setCursorPosition(0);
    m_asked.back().answer({{L"apple"}});
    EXPECT_EQ(m_area.suggestions().size(), 2U) << "the cursor is elsewhere";
    m_area.suggest({0, 3}, {{L"pear\nplum"}});
    ASSERT_TRUE(list()) << "the program's own";
    type("x");
    m_area.imitateSuggestion(7);
    m_area.imitateSuggestion(0);
    EXPECT_EQ(m_area.textU(), L"pear\nplum") << "with what was typed before it";
    auto* const other = new VXEditArea2;
    other->suggestionsWanted().connect(
        &m_taken, [this](const VXEditAreaSuggestEvent2& event) { m_asked.push_back(event); });
    other->imitateSuggestionKey();
    EXPECT_EQ(m_asked.back().area(), other);
    other->destroy();
    m_asked.back().answer({{L"late"}});
    EXPECT_EQ(m_asked.back().area(), nullptr);
}

/// A click takes one; its handler, and that of the question, may end all.
TEST_F(EditAreaSuggest, aClickTakesOneAndHandlersMayEndAll)
{
    answersFruit();
    m_area.imitateSuggestionKey();
    ASSERT_TRUE(list());
    const QRect last = list()->visualRect(list()->model()->index(2, 0));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, last.center());
    EXPECT_EQ(m_area.textU(), L"banana");
    EXPECT_TRUE(edit().hasFocus());

    for (const bool isAsked : {true, false}) {
        auto* const area = new VXEditArea2;
        area->show();
        area->setFocus();
        turn();
        const QPointer<QWidget> widget = qt(*area);
        const auto end = [area] {
            area->destroy();
            runDeletions();
            turn();
        };
        if (isAsked)
            area->suggestionsWanted().connect(nullptr, end);
        else
            area->suggestionTaken().connect(nullptr, end);
        area->suggest({0, 0}, {{L"one"}});
        QTest::keyClick(widget.data(), Qt::Key_Space, Qt::ControlModifier);
        if (widget)
            QTest::keyClick(widget.data(), Qt::Key_Return);
        EXPECT_TRUE(waitFor([&] {
            runDeletions();
            return widget.isNull();
        }));
    }
}

} // namespace
} // namespace VOXI
