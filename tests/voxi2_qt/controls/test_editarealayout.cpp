#include "editareasupport.h"
#include "support/waitfor.h"
#include "support/worker.h"

#include <QAbstractTextDocumentLayout>

#include <random>

namespace VOXI {
namespace {

/// The height of lines that nobody has seen is a guess, which must not show.
TEST_F(EditArea, laysOutWhatIsSeen)
{
    std::wstring text = lines(20'000);
    for (std::size_t at = text.find(L"5\n"); at != text.npos; at = text.find(L"5\n", at + 5'000))
        text.insert(at, std::wstring(900, L'w') + L" \x4e9c\x05d0 ");
    m_area.setText(text);
    turn();
    EXPECT_LT(laidOut(), 100);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(isCursorInSight());
    for (int i = 0; i < 40; ++i) {
        press(Qt::Key_PageUp);
        EXPECT_TRUE(isCursorInSight());
    }
    EXPECT_LT(laidOut(), 2000);
    for (const int line : {17'000, 3, 9'995, 12'345}) {
        m_area.setTopLine(line);
        turn();
        EXPECT_EQ(m_area.topLine(), line);
        m_area.setCursorPlace({line + 7'000 * (line < 12'000), 1'000});
        EXPECT_TRUE(isCursorInSight());
        // A click where a character is shown means that character.
        const QTextCursor there = edit().cursorForPosition({60, 150});
        QTest::mouseClick(edit().viewport(), Qt::LeftButton, {}, edit().cursorRect(there).center());
        EXPECT_EQ(m_area.cursorPosition(), there.position());
    }
}

TEST_F(EditArea, heightsFollowEachChange)
{
    m_area.setText(lines(60));
    std::mt19937 random(5);
    const auto below = [&](int end) { return static_cast<int>(random() % unsigned(end)); };
    for (int i = 0; i < 120; ++i) {
        const int start = below(m_area.length() + 1);
        const std::wstring come(static_cast<std::size_t>(below(120)), L'm');
        m_area.replace({start, below(40)}, below(3) == 0 ? come + L"\n\n" + come : come);
        if (below(10) == 0)
            m_area.setWrap(below(2) == 0 ? TextWrap::None : TextWrap::Anywhere);
        if (below(10) == 0)
            m_area.setZoom(50 + below(100));
        if (below(8) == 0)
            m_area.resize({200 + below(300), 300});
        if (below(4) == 0)
            turn();
    }
    turn();
    VXEditArea2 fresh;
    fresh.resize({edit().width(), edit().height()});
    fresh.setWrap(m_area.wrap());
    fresh.setZoom(m_area.zoom());
    fresh.show();
    fresh.setText(m_area.textU());
    turn();
    const QTextDocument& other = *dynamic_cast<QTextEdit&>(*qt(fresh)).document();
    qreal end = 4; // the margin
    QTextBlock expected = other.begin();
    for (QTextBlock block = edit().document()->begin(); block.isValid(); block = block.next()) {
        const QRectF place = edit().document()->documentLayout()->blockBoundingRect(block);
        EXPECT_EQ(place.top(), end);
        EXPECT_EQ(place.size(), other.documentLayout()->blockBoundingRect(expected).size());
        end = place.bottom();
        expected = expected.next();
    }
    EXPECT_FALSE(expected.isValid());
    EXPECT_EQ(edit().document()->size().height(), end + 4);
}

/// What is hard to lay out, or not a text at all.
TEST_F(EditArea, takesAnything)
{
    const std::wstring odd = std::wstring(L"a\0b\n", 4) + L"\xd83d x \xde00\n"
                             + L"\x05e9\x05dc\x05d5\x05dd abc \x0627\x0644\n"
                             + std::wstring(5'000, L'\x0301') + L"e\t\x7f\xfffe\xfffc";
    m_area.setWrap(TextWrap::None);
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        edit().setLayoutDirection(direction);
        m_area.setText(odd);
        m_area.setLineNumbersVisible(true);
        turn();
        EXPECT_EQ(m_area.textU(), odd);
        for (int line = 0; line < m_area.lineCount(); ++line) {
            m_area.setCursorPlace({line, 3});
            EXPECT_TRUE(isCursorInSight()) << line;
        }
    }
    EXPECT_FALSE(m_area.find({.text = L"q.", .isExpression = true}));
    m_area.imitateTyping(std::wstring(L"\0", 1));
    turn();
}

TEST_F(EditArea, aLineMayBeHuge)
{
    constexpr int Length = 200'000;
    std::wstring huge(Length, L'x');
    for (std::size_t i = 0; i < huge.size(); i += 9)
        huge[i] = L' ';
    for (const TextWrap wrap : {TextWrap::Word, TextWrap::None}) {
        m_area.setWrap(wrap);
        m_area.setText(L"first\n" + huge + L"\nlast");
        turn();
        for (const int column : {Length, Length / 2, 1}) {
            m_area.setCursorPlace({1, column});
            EXPECT_TRUE(isCursorInSight()) << column;
            type("y");
        }
        EXPECT_EQ(m_area.placeOf(m_area.length()), (TextPlace{2, 4}));
    }
}

class Coloring : public EditArea
{
protected:
    /// The places in a line that are coloured.
    std::vector<TextRange> colored(int line) const
    {
        std::vector<TextRange> ranges;
        const QTextBlock block = edit().document()->findBlockByNumber(line);
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            ranges.push_back({range.start, range.length});
        return ranges;
    }
    bool isAsked() const
    {
        return waitFor([this] { return !m_asked.isEmpty(); });
    }
    static std::vector<TextSpan> digits(const std::wstring& text)
    {
        std::vector<TextSpan> spans;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] >= L'0' && text[i] <= L'9')
                spans.push_back({{static_cast<int>(i), 1}, {.color = Color(255, 0, 0)}});
        }
        return spans;
    }

    Log<VXEditAreaColoringEvent2> m_asked{m_area.coloringWanted()};
};

using Ranges = std::vector<TextRange>;

TEST_F(Coloring, anAnswerIsCarriedOverWhatWasTypedMeanwhile)
{
    m_area.setText(L"\U0001f600"
                   L"1\na2\nb3\nc4");
    ASSERT_TRUE(isAsked());
    const VXEditAreaColoringEvent2 first = m_asked.last();
    EXPECT_EQ(first.text(), L"\U0001f600"
                            L"1\na2\nb3\nc4");
    m_area.setCursorPlace({1, 1});
    type("y");
    m_area.setCursorPlace({2, 0});
    type("xx");
    press(Qt::Key_Return);
    m_asked.clear();
    first.answer(digits(first.text()));
    EXPECT_EQ(colored(0), (Ranges{{2, 1}}));
    EXPECT_EQ(colored(1), Ranges{});
    EXPECT_EQ(colored(2), Ranges{});
    EXPECT_EQ(colored(3), (Ranges{{1, 1}}));
    EXPECT_EQ(colored(4), (Ranges{{1, 1}}));

    // The rest is asked for again; an answer that was given counts no more.
    ASSERT_TRUE(isAsked());
    const VXEditAreaColoringEvent2 second = m_asked.last();
    EXPECT_EQ(second.firstLine(), 1);
    EXPECT_EQ(second.text(), L"ay2\nxx\nb3\nc4");
    first.answer({});
    EXPECT_EQ(colored(0), (Ranges{{2, 1}}));
    second.answer(digits(second.text()));
    EXPECT_EQ(colored(1), (Ranges{{2, 1}}));

    // They stay with their characters until there are others, and are no change of the text.
    m_area.setCursorPlace({4, 0});
    m_area.insert("z");
    EXPECT_EQ(colored(4), (Ranges{{2, 1}}));
    m_edited.clear();
    m_asked.clear();
    m_area.recolor();
    ASSERT_TRUE(isAsked());
    m_asked.last().answer({{{-5, 2'000'000'000}, {.isBold = true}},
                           {{8, -3}, {.isItalic = true}},
                           {{2'000'000'000, 2'000'000'000}, {.isBold = true}}});
    EXPECT_EQ(colored(4), (Ranges{{0, 3}}));
    EXPECT_TRUE(m_edited.isEmpty());
    EXPECT_TRUE(m_area.isUndoAvailable());
}

TEST_F(Coloring, aWorkerColorsWhatIsInSight)
{
    m_area.setText(lines(20'000));
    TROV::Worker worker;
    TROV::Listener listener;
    int asked = 0;
    worker.run([&] {
        m_area.coloringWanted().connect(&listener, [&](const VXEditAreaColoringEvent2& event) {
            ++asked;
            event.answer(digits(event.text()));
        });
    });
    m_asked.disconnect();
    m_area.recolor();
    ASSERT_TRUE(waitFor([this] { return colored(9) == Ranges{{5, 1}}; }));
    m_area.setTopLine(15'000);
    ASSERT_TRUE(waitFor([this] { return colored(15'000).size() == 5; }));
    EXPECT_TRUE(colored(7'000).empty());
    worker.run([&] { listener.disconnect(); });
    EXPECT_LE(asked, 6);
}

} // namespace
} // namespace VOXI
