#include "editareasupport.h"
#include "support/waitfor.h"
#include "support/worker.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QScrollBar>

#include <random>

namespace VOXI {
namespace {

TEST_F(EditArea, reportsWhatItsUserDoesAndNothingElse)
{
    m_area.setText(lines(200));
    m_area.append("more");
    m_area.insert("in");
    m_area.replace({3, 2}, "x");
    m_area.undo();
    m_area.redo();
    m_area.setCursorPlace({100, 2});
    m_area.selectAll();
    m_area.cut();
    m_area.paste();
    m_area.setModified(false);
    m_area.setTopLine(50);
    m_area.setZoom(150);
    EXPECT_TRUE(m_area.find({L"line 120"}));
    EXPECT_EQ(m_area.replaceAll({L"line 12"}, "row"), 11);
    turn();
    EXPECT_TRUE(m_edited.isEmpty() && m_moved.isEmpty() && m_selected.isEmpty());
    EXPECT_TRUE(m_modified.isEmpty() && m_scrolled.isEmpty());

    m_area.setText("a\nb");
    m_area.setCursorPosition(3);
    type("c");
    EXPECT_EQ(m_edited.only().position(), 3);
    EXPECT_EQ(m_edited.only().removed(), 0);
    EXPECT_EQ(m_edited.only().added(), L"c");
    EXPECT_EQ(m_moved.last().newPosition(), 4);
    EXPECT_TRUE(m_modified.only().isModified());
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(m_selected.count(), 1);
    EXPECT_EQ(m_area.selectedText(), L"c");
    press(Qt::Key_Return);
    EXPECT_EQ(m_area.textU(), L"a\nb\n");
    m_area.imitateCommand(TextCommand::Undo);
    EXPECT_EQ(m_area.textU(), L"a\nbc");
    m_area.setReadOnly(true);
    m_area.imitateCommand(TextCommand::Undo);
    m_area.insert("x");
    m_area.undo();
    EXPECT_EQ(m_area.textU(), L"a\nbc");
}

/// What the events say is all that a copy needs; of characters that take two of Qt's units, too.
TEST_F(EditArea, aCopyFollowsByTheReports)
{
    std::wstring copy;
    for (int i = 0; i < 300; ++i)
        copy += L"some \U0001f600 words, a long line of them\n";
    m_area.setText(copy);
    m_area.textEdited().connect(&m_edited, [&](const VXEditAreaTextEvent2& event) {
        copy.replace(static_cast<std::size_t>(event.position()),
                     static_cast<std::size_t>(event.removed()), event.added());
    });
    std::mt19937 random(7);
    const auto below = [&](int end) { return static_cast<int>(random() % unsigned(end)); };
    for (int i = 0; i < 400; ++i) {
        const int start = below(m_area.length() + 1);
        m_area.setSelection({start, below(8) == 0 ? below(9000) : below(4) - 1});
        ASSERT_EQ(m_area.selectedText(),
                  copy.substr(static_cast<std::size_t>(m_area.selection().start),
                              static_cast<std::size_t>(m_area.selection().length)));
        switch (below(7)) {
        case 0:
            press(Qt::Key_Return);
            break;
        case 1:
            press(Qt::Key_Backspace);
            break;
        case 2:
            m_area.imitateTyping(L"\U0001f601\U0001f602");
            break;
        case 3:
            compose(QStringLiteral("\u3042"));
            compose({}, QStringLiteral("done"));
            break;
        case 4:
            m_area.imitateCommand(TextCommand::Undo);
            break;
        case 5:
            QGuiApplication::clipboard()->setText(QStringLiteral("pasted\r\n\U0001f603 text"));
            m_area.imitateCommand(TextCommand::Paste);
            break;
        default:
            type("xy");
        }
        ASSERT_EQ(m_area.textU(), copy) << i;
        ASSERT_EQ(m_area.length(), static_cast<int>(copy.size()));
    }
}

TEST_F(EditArea, compositionIsNotReported)
{
    m_area.setText("before after");
    m_area.setCursorPosition(7);
    compose(QStringLiteral("\u3042\u3044"));
    EXPECT_TRUE(m_edited.isEmpty());
    EXPECT_EQ(m_area.textU(), L"before after");
    compose({}, QStringLiteral("\u4e9c"));
    EXPECT_EQ(m_edited.only().position(), 7);
    EXPECT_EQ(m_edited.only().removed(), 0);
    EXPECT_EQ(m_edited.only().added(), L"\u4e9c");
}

TEST_F(EditArea, placesAreLinesAndColumns)
{
    m_area.setText(L"one\r\n\U0001f600two\rthree\x2029");
    EXPECT_EQ(m_area.textU(), L"one\n\U0001f600two\nthree\n");
    EXPECT_EQ(m_area.lineCount(), 4);
    EXPECT_EQ(m_area.line(1), L"\U0001f600two");
    EXPECT_EQ(m_area.placeOf(6), (TextPlace{1, 2}));
    EXPECT_EQ(m_area.positionOf({1, 2}), 6);
    EXPECT_EQ(m_area.positionOf({1, 99}), 8);
    EXPECT_EQ(m_area.positionOf({-5, -5}), 0);
    EXPECT_EQ(m_area.positionOf({2'000'000'000, 0}), 15);
    m_area.setCursorPlace({1, 1});
    EXPECT_EQ(m_area.cursorPosition(), 5);
    m_area.setSelection({6, -2});
    EXPECT_EQ(m_area.selectedText(), L"\U0001f600t");
    m_area.setSelection({4, 2'000'000'000});
    EXPECT_EQ(m_area.selection(), (TextRange{4, 11}));
    EXPECT_EQ(m_area.textOf({3, 2}), L"\n\U0001f600");
    EXPECT_EQ(m_area.textOf({-10, 12}), L"on");
    const VXRect<int> start = m_area.cursorRect(0);
    EXPECT_GT(start.height, 0);
    EXPECT_GT(m_area.cursorRect(2).x, start.x);
    EXPECT_EQ(m_area.cursorRect(4).x, start.x);
    EXPECT_GE(m_area.cursorRect(4).y, start.y + start.height);

    // Two halves of a character that come together where a piece of the text ends.
    m_area.setText(L"\U0001f600" + std::wstring(4092, L'a') + L"\xd83d" + L"x" + L"\xde00" + L"b");
    m_area.replace({4094, 1}, "");
    EXPECT_EQ(m_area.length(), 1 + 4092 + 1 + 1);
    EXPECT_EQ(m_area.placeOf(4095), (TextPlace{0, 4095}));
}

TEST_F(EditArea, findsAndReplaces)
{
    m_area.setText("Cat concat cat\ncat's\nCATS");
    const auto at = [&](TextSearch search, int from) -> TextRange {
        return m_area.findFrom(search, from).value_or(TextRange{-1, 0});
    };
    EXPECT_EQ(at({.text = L"cat"}, 1), (TextRange{7, 3}));
    EXPECT_EQ(at({.text = L"cat", .wholeWords = true}, 1), (TextRange{11, 3}));
    EXPECT_EQ(at({.text = L"Cat", .caseSensitive = true}, 1), (TextRange{0, 3}));
    EXPECT_EQ(at({.text = L"Cat", .caseSensitive = true, .wraps = false}, 1), (TextRange{-1, 0}));
    EXPECT_EQ(at({.text = L"cat", .isBackward = true}, 11), (TextRange{7, 3}));
    EXPECT_EQ(at({.text = L"cat", .isBackward = true}, 2), (TextRange{21, 3}));
    EXPECT_EQ(at({.text = L"cat\ncat"}, 0), (TextRange{11, 7}));
    EXPECT_EQ(at({.text = L"c.t$", .isExpression = true}, 0), (TextRange{11, 3}));
    EXPECT_EQ(at({.text = L"c.t", .isExpression = true, .isBackward = true}, 11),
              (TextRange{7, 3}));
    EXPECT_EQ(at({.text = L"([", .isExpression = true}, 0), (TextRange{-1, 0}));
    EXPECT_EQ(at({.text = L"x*", .isExpression = true}, 0), (TextRange{-1, 0}));
    EXPECT_EQ(at({.text = L""}, 0), (TextRange{-1, 0}));

    const TextSearch word{.text = L"(c)(at)", .wholeWords = true, .isExpression = true};
    ASSERT_TRUE(m_area.find(word));
    EXPECT_EQ(m_area.selection(), (TextRange{0, 3}));
    ASSERT_TRUE(m_area.replaceFound(word, L"\\2-\\1\\\\\\9"));
    EXPECT_EQ(m_area.selection(), (TextRange{13, 3}));
    EXPECT_EQ(m_area.replaceAll({L"cat"}, "dog"), 4);
    EXPECT_EQ(m_area.text(), "at-C\\ condog dog\ndog's\ndogS");
    m_area.undo();
    EXPECT_EQ(m_area.text(), "at-C\\ concat cat\ncat's\nCATS");
}

TEST_F(EditArea, whatIsDoneInAGroupIsUndoneAsOne)
{
    m_area.setText("abc");
    m_area.beginUndoGroup();
    m_area.insert("1");
    m_area.beginUndoGroup();
    m_area.replace({3, 1}, "X");
    m_area.endUndoGroup();
    m_area.append("end");
    m_area.endUndoGroup();
    m_area.insert("2");
    EXPECT_EQ(m_area.text(), "12abX\nend");
    m_area.undo();
    EXPECT_EQ(m_area.text(), "1abX\nend");
    m_area.undo();
    EXPECT_EQ(m_area.text(), "abc");
    EXPECT_FALSE(m_area.isUndoAvailable());
    m_area.redo();
    EXPECT_EQ(m_area.text(), "1abX\nend");
    m_area.setUndoEnabled(false);
    EXPECT_FALSE(m_area.isUndoEnabled() || m_area.isUndoAvailable());
}

TEST_F(EditArea, linesOfOneTurnArePutInTogether)
{
    int changes = 0;
    QObject::connect(edit().document(), &QTextDocument::contentsChanged, &edit(),
                     [&] { ++changes; });
    TROV::Worker worker;
    worker.run([this] {
        for (int i = 0; i < 1000; ++i)
            m_area.append(L"line " + std::to_wstring(i));
    });
    ASSERT_TRUE(waitFor([this] { return edit().document()->blockCount() == 1000; }));
    EXPECT_LE(changes, 20);
    EXPECT_EQ(m_area.textU(), lines(1000));
    QScrollBar& bar = *edit().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_EQ(m_area.cursorPosition(), 0);

    // One who reads further up goes on reading.
    m_area.setTopLine(300);
    m_area.append("a\nb");
    m_area.append("");
    EXPECT_EQ(m_area.lineCount(), 1003);
    turn();
    EXPECT_EQ(m_area.topLine(), 300);
    m_area.setMaximumLineCount(1003);
    m_area.append("two\nlines");
    EXPECT_EQ(m_area.lineCount(), 1003);
    EXPECT_EQ(m_area.topLine(), 298);
    m_area.setMaximumLineCount(0);
    m_area.append("goes with the rest");
    m_area.setText("");
    m_area.append("");
    m_area.append("first");
    m_area.append("");
    EXPECT_EQ(m_area.textU(), L"first\n");
    m_area.setMaximumLineCount(2);
    m_area.append("third");
    EXPECT_EQ(m_area.textU(), L"\nthird");
}

TEST_F(EditArea, marksMoveWithTheirLines)
{
    m_area.setText(lines(10));
    m_area.setMarksVisible(true);
    m_area.setLineNumbersVisible(true);
    m_area.setMark({.uid = 7, .line = 3});
    m_area.setMark({.uid = 8, .line = 99});
    m_area.setMark({.uid = 0, .line = 1});
    const auto where = [this] {
        std::vector<std::pair<unsigned, int>> places;
        for (const TextMark& mark : m_area.marks())
            places.emplace_back(mark.uid, mark.line);
        return places;
    };
    using Places = std::vector<std::pair<unsigned, int>>;
    EXPECT_EQ(where(), (Places{{7, 3}, {8, 9}}));
    m_area.setCursorPlace({3, 0});
    press(Qt::Key_Return);
    EXPECT_EQ(where(), (Places{{7, 4}, {8, 10}}));
    m_area.setSelection({0, m_area.positionOf({2, 0})});
    press(Qt::Key_Delete);
    EXPECT_EQ(where(), (Places{{7, 2}, {8, 8}}));
    m_area.setMark({.uid = 7, .line = 5});
    EXPECT_EQ(where(), (Places{{7, 5}, {8, 8}}));

    Log clicked(m_area.marginClicked());
    m_area.setTopLine(0);
    turn();
    QWidget* const viewport = edit().viewport();
    QTextCursor there(edit().document()->findBlockByNumber(5));
    const QPoint place(viewport->x() - 5, edit().cursorRect(there).center().y() + viewport->y());
    QWidget* const margin = edit().childAt(place);
    ASSERT_NE(margin, nullptr);
    QTest::mouseClick(margin, Qt::LeftButton, {}, margin->mapFrom(&edit(), place));
    EXPECT_EQ(clicked.only().line(), 5);
    EXPECT_EQ(clicked.only().markUid(), 7U);
    m_area.imitateMarginClick(1);
    EXPECT_EQ(clicked.last().markUid(), 0U);
    m_area.setText("other");
    EXPECT_TRUE(m_area.marks().empty());
}

TEST_F(EditArea, richTextHasFormats)
{
    m_area.setMarkup("<b>x</b>");
    EXPECT_EQ(m_area.textU(), L"<b>x</b>");
    m_area.setRichText(true);
    EXPECT_EQ(m_area.textU(), L"<b>x</b>");
    m_area.setMarkup("<p>one <b>two</b></p><ul><li>three</li></ul>");
    EXPECT_EQ(m_area.textU(), L"one two\nthree");
    EXPECT_TRUE(m_area.styleAt(4).isBold);
    EXPECT_FALSE(m_area.styleAt(0).isBold);
    m_area.setStyle({0, 3}, {.color = Color(1, 2, 3), .isItalic = true});
    EXPECT_EQ(m_area.styleAt(1), (TextStyle{.color = Color(1, 2, 3), .isItalic = true}));
    m_area.undo();
    EXPECT_EQ(m_area.styleAt(1), TextStyle());
    EXPECT_NE(m_area.markup().find(L"<li"), std::wstring::npos);
    m_area.setCursorPosition(0);
    type("z");
    EXPECT_EQ(m_edited.only().added(), L"z");
    m_area.setRichText(false);
    EXPECT_EQ(m_area.markup(), L"zone two\nthree");
    type("y");
    EXPECT_EQ(m_edited.count(), 2);
}

TEST_F(EditArea, aHugeTextIsPastedBitByBit)
{
    QString huge;
    for (int i = 0; i < 40'000; ++i)
        huge += QStringLiteral("a line of a text that somebody has pasted ") + QString::number(i)
                + QLatin1Char('\n');
    QGuiApplication::clipboard()->setText(huge);
    m_area.setText("[]");
    m_area.setCursorPosition(1);
    m_area.imitateCommand(TextCommand::Paste);
    ASSERT_TRUE(waitFor([&] { return m_area.length() == huge.size() + 2; }));
    EXPECT_EQ(m_area.textOf({0, 3}), L"[a ");
    EXPECT_EQ(m_area.line(40'000), L"]");
    std::wstring copy = L"[]";
    for (int i = 0; i < m_edited.count(); ++i) {
        const VXEditAreaTextEvent2& event = m_edited[static_cast<std::size_t>(i)];
        copy.insert(static_cast<std::size_t>(event.position()), event.added());
    }
    EXPECT_EQ(m_area.textU(), copy);
    m_area.undo();
    EXPECT_EQ(m_area.textU(), L"[]");
}

TEST_F(EditArea, itsEndInItsOwnHandlersIsSafe)
{
    const auto ends = [](const auto& signal, auto cause) {
        auto* const area = new VXEditArea2;
        area->setLineNumbersVisible(true);
        area->setText(lines(500));
        area->resize({300, 200});
        area->show();
        const QPointer<QWidget> widget = qt(*area);
        (area->*signal)().connect(nullptr, [area] {
            area->destroy();
            runDeletions();
            turn();
        });
        cause(*dynamic_cast<QTextEdit*>(widget.data()));
        const bool isGone = waitFor([&] {
            runDeletions();
            return widget.isNull();
        });
        EXPECT_TRUE(isGone);
    };
    const auto types = [](QTextEdit& area) { QTest::keyClicks(&area, QStringLiteral("x")); };
    const auto turns = [](QTextEdit&) { turn(); };
    ends(&VXEditArea2::textEdited, types);
    ends(&VXEditArea2::cursorMoved, types);
    ends(&VXEditArea2::modifiedChanged, types);
    ends(&VXEditArea2::coloringWanted, turns);
    ends(&VXEditArea2::scrolled, [](QTextEdit& area) { QTest::keyClick(&area, Qt::Key_PageDown); });
}

/// A handler may set another text while Qt is still busy with the key.
TEST_F(EditArea, aHandlerMaySetAnotherText)
{
    m_area.setText(lines(300));
    m_area.textEdited().connect(&m_edited, [this](const VXEditAreaTextEvent2&) {
        m_area.setText("short");
        m_area.setRichText(!m_area.isRichText());
    });
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Delete}) {
        press(key);
        EXPECT_EQ(m_area.textU(), L"short");
    }
    m_area.imitateTyping("x");
    EXPECT_EQ(m_area.textU(), L"short");
}

} // namespace
} // namespace VOXI
