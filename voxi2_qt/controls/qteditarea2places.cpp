#include "../kernel/qtignored.h"
#include "plaintextlayout.h"
#include "qteditarea2scopes.h"
#include "textcoloring.h"
#include "textfinder.h"
#include "textmargin.h"
#include "textposition.h"
#include "voxi2_qt/controls/qteditarea2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "widepositions.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

void QtEditArea2::doSetCursorPlace(TextPlace place) { doSetCursorPosition(doGetPositionOf(place)); }
TextPlace QtEditArea2::doGetCursorPlace() { return doGetPlaceOf(doGetCursorPosition()); }

TextPlace QtEditArea2::doGetPlaceOf(int position)
{
    settle();
    const int unit = fromWide(position);
    const QTextBlock block = text().findBlock(unit);
    return {block.blockNumber(), toWidePosition(block.text(), unit - block.position())};
}

int QtEditArea2::doGetPositionOf(TextPlace place)
{
    const int last = settled().blockCount() - 1;
    const QTextBlock block = text().findBlockByNumber(std::clamp(place.line, 0, last));
    return toWide(block.position() + fromWidePosition(block.text(), place.column));
}

void QtEditArea2::doSetTopLine(int line)
{
    const int last = settled().blockCount() - 1;
    const QtProgramScope scope;
    const QScopedValueRollback<bool> anchoring(m_isAnchoring, true);
    const QTextBlock block = text().findBlockByNumber(std::clamp(line, 0, last));
    const qreal top = text().documentLayout()->blockBoundingRect(block).top();
    verticalScrollBar()->setValue(block.blockNumber() == 0 ? 0 : static_cast<int>(top));
}

int QtEditArea2::doGetTopLine()
{
    settle();
    return cursorForPosition({0, 0}).blockNumber();
}

void QtEditArea2::doScrollTo(int position)
{
    settle();
    const QtProgramScope scope;
    const auto bring = [](QScrollBar& bar, int from, int end, int room) {
        if (from < 0)
            bar.setValue(bar.value() + from);
        else if (end > room)
            bar.setValue(bar.value() + end - room);
    };
    const QTextCursor cursor = cursorOver({position, 0});
    // Once more: see `show`.
    for (int i = 0; i < 2; ++i) {
        const QRect place = cursorRect(cursor);
        bring(*verticalScrollBar(), place.top(), place.bottom() + 1, viewport()->height());
        if (!isRightToLeft())
            bring(*horizontalScrollBar(), place.left(), place.right() + 1, viewport()->width());
    }
}

bool QtEditArea2::doFind(const TextSearch& search)
{
    settle();
    const QTextCursor found = TextFinder(text(), search).select(textCursor());
    if (found.isNull())
        return false;
    const QtProgramScope scope;
    show(found);
    return true;
}

std::optional<TextRange> QtEditArea2::doFindFrom(const TextSearch& search, int position)
{
    settle();
    const auto found = TextFinder(text(), search).find(fromWide(position));
    if (!found)
        return std::nullopt;
    return rangeOf(found->m_from, found->m_from + found->m_length);
}

bool QtEditArea2::doReplaceFound(const TextSearch& search, const std::wstring& text)
{
    settle();
    const QTextCursor cursor = textCursor();
    const TextFinder finder(this->text(), search);
    const int start = cursor.selectionStart();
    if (const auto found = finder.matchAt(start, cursor.selectionEnd() - start)) {
        ProgramEdit edit(*this, cursor);
        edit.cursor().insertText(finder.replacement(*found, toQString(text)));
    }
    return doFind(search);
}

int QtEditArea2::doReplaceAll(const TextSearch& search, const std::wstring& text)
{
    settle();
    const TextFinder finder(this->text(), search);
    const std::vector<TextFinder::Match> matches = finder.all();
    if (matches.empty())
        return 0;
    const QString replacement = toQString(text);
    ProgramEdit edit(*this, QTextCursor(&this->text()));
    // From the end: the places before stay so.
    for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
        edit.cursor().setPosition(match->m_from);
        edit.cursor().setPosition(match->m_from + match->m_length, QTextCursor::KeepAnchor);
        edit.cursor().insertText(finder.replacement(*match, replacement));
    }
    return static_cast<int>(matches.size());
}

void QtEditArea2::doSetUndoEnabled(bool enabled)
{
    const QtProgramScope scope;
    m_isUndoEnabled = enabled;
    m_isGroupBegun = false;
    settled().setUndoRedoEnabled(enabled && text().maximumBlockCount() == 0);
}

bool QtEditArea2::doIsUndoEnabled() { return m_isUndoEnabled; }

void QtEditArea2::doBeginUndoGroup()
{
    settle();
    if (m_groupDepth++ == 0)
        m_isGroupBegun = false;
}

void QtEditArea2::doEndUndoGroup()
{
    settle();
    m_groupDepth = std::max(m_groupDepth - 1, 0);
}

void QtEditArea2::doSetMarksVisible(bool visible)
{
    const QtProgramScope scope;
    m_margin->setMarksVisible(visible);
    applyMargin();
}

bool QtEditArea2::doAreMarksVisible() { return m_margin->areMarksVisible(); }

void QtEditArea2::doSetMark(const TextMark& mark)
{
    settle();
    if (mark.uid != 0)
        m_margin->setMark(mark);
    else
        ignored(*this, "0 is no mark's uid");
}

void QtEditArea2::doRemoveMark(unsigned uid)
{
    if (!m_margin->removeMark(uid))
        ignored(*this, "there is no such mark");
}

void QtEditArea2::doClearMarks() { m_margin->clearMarks(); }

std::vector<TextMark> QtEditArea2::doGetMarks()
{
    settle();
    return m_margin->marks();
}

void QtEditArea2::doRecolor() { m_coloring->restart(); }

void QtEditArea2::doAnswerColoring(unsigned query, const std::vector<TextSpan>& spans)
{
    if (m_isRich)
        return;
    const QtProgramScope scope;
    m_coloring->answer(query, spans);
}

void QtEditArea2::doimCommand(TextCommand command)
{
    settle();
    const bool isReading = command == TextCommand::Copy || command == TextCommand::SelectAll;
    if (!isEnabled() || (isReadOnly() && !isReading))
        return;
    switch (command) {
    case TextCommand::Undo:
        return undo();
    case TextCommand::Redo:
        return redo();
    case TextCommand::Cut:
        return cut();
    case TextCommand::Copy:
        return copy();
    case TextCommand::Paste:
        return paste();
    case TextCommand::Delete:
        return textCursor().removeSelectedText();
    case TextCommand::SelectAll:
        return selectAll();
    }
}

void QtEditArea2::doimClickMargin(int line)
{
    const int last = settled().blockCount() - 1;
    if (isEnabled() && m_margin->wantedWidth() > 0)
        slotMarginClicked(std::clamp(line, 0, last));
}

VXRect<int> QtEditArea2::doGetPositionRect(int position)
{
    settle();
    const QRect place = QTextEdit::cursorRect(cursorOver({position, 0}));
    return Qt2VX(place.translated(viewport()->pos()));
}

} // namespace VOXI
