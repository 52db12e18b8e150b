// The part of QtEditArea2 that is about suggestions.

#include "qteditarea2scopes.h"
#include "textsuggestions.h"
#include "voxi2_qt/controls/qteditarea2.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QTextDocument>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXEditArea2Emitters;

constexpr int LongestWord = 1000; ///< units

bool isPartOfWord(QChar unit)
{
    return unit.isLetterOrNumber() || unit.isSurrogate() || unit.isMark()
           || unit == QLatin1Char('_');
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtEditArea2::doSetSuggestionLength(int letters) { m_suggestionLength = std::max(letters, 0); }

int QtEditArea2::doGetSuggestionLength() { return m_suggestionLength; }

void QtEditArea2::doSuggest(TextRange range, const std::vector<TextSuggestion>& suggestions)
{
    settle();
    m_wanted = {};
    if (!m_suggestions) {
        m_suggestions = new TextSuggestions(*this);
        connect(m_suggestions, &TextSuggestions::taken, this, &QtEditArea2::slotSuggestionTaken);
    }
    m_suggestions->offer(cursorOver(range), suggestions);
}

std::vector<TextSuggestion> QtEditArea2::doGetSuggestions()
{
    return m_suggestions ? m_suggestions->offered() : std::vector<TextSuggestion>();
}

void QtEditArea2::doAnswerSuggestions(unsigned query, TextRange range,
                                      const std::vector<TextSuggestion>& suggestions)
{
    const bool isAsBefore =
        m_wanted.m_edits == m_edits && m_wanted.m_position == textCursor().position();
    if (query != 0 && query == m_wanted.m_query && isAsBefore)
        doSuggest(range, suggestions);
}

void QtEditArea2::doimAskForSuggestions()
{
    settle();
    if (isEnabled())
        askForSuggestions(false);
}

void QtEditArea2::doimTakeSuggestion(int index)
{
    if (isEnabled())
        slotSuggestionTaken(index);
}

// Reports -----------------------------------------------------------------------------------------

/// While they are shown, a dialog's keys and the program's are theirs.
bool QtEditArea2::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && m_suggestions
        && m_suggestions->wantsKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QtAbstractEdit2Shim::event(event);
}

void QtEditArea2::slotSuggestionTaken(int index)
{
    const auto offered = doGetSuggestions();
    if (index < 0 || index >= static_cast<int>(offered.size()))
        return;
    const UserAct act(*this);
    const std::wstring& text = offered[static_cast<std::size_t>(index)].text;
    QTextCursor cursor = m_suggestions->range();
    m_suggestions->withdraw();
    cursor.insertText(toQString(text));
    show(cursor);
    report(&E::suggestionTaken, index, text);
}

// Helpers -----------------------------------------------------------------------------------------

bool QtEditArea2::passToSuggestions(QKeyEvent& event)
{
    const bool isTheirs = m_suggestions && m_suggestions->wantsKey(event);
    if (isTheirs) {
        m_isDeclined = event.key() == Qt::Key_Escape;
        m_suggestions->takeKey(event);
    } else if (event.key() == Qt::Key_Space && event.modifiers() == Qt::ControlModifier
               && isHeard(&E::suggestionsWanted)) {
        m_isDeclined = false;
        askForSuggestions(false);
        return true;
    }
    return isTheirs;
}

/// What is pasted or undone is no word that somebody is about to write. Who has sent the
/// suggestions away does not want any before the next word.
void QtEditArea2::suggestBehind(int edits, bool isTyped, bool isWritten)
{
    const bool isOffering = m_suggestions && m_suggestions->isOffering();
    if (edits == m_edits || (!isOffering && m_suggestionLength == 0))
        return;
    const int letters = wordBeforeCursor().length;
    m_isDeclined = m_isDeclined && letters > 1;
    const bool isBegun =
        isWritten && !m_isDeclined && m_suggestionLength > 0 && letters >= m_suggestionLength;
    if (isBegun || (isTyped && isOffering && letters > 0)) {
        if (isHeard(&E::suggestionsWanted))
            askForSuggestions(true);
    } else if (isOffering) {
        m_suggestions->withdraw();
    }
}

void QtEditArea2::withdrawSuggestions()
{
    m_wanted = {};
    if (m_suggestions)
        m_suggestions->withdraw();
}

void QtEditArea2::askForSuggestions(bool isTyping)
{
    if (isReadOnly())
        return;
    const int position = textCursor().position();
    m_wanted = {++m_lastWanted, m_edits, position};
    reportMade(&E::suggestionsWanted, [&] {
        return VXEditAreaSuggestEvent2(
            {getUID(), m_wanted.m_query, toWide(position), wordBeforeCursor(), isTyping});
    });
}

TextRange QtEditArea2::wordBeforeCursor() const
{
    const int end = textCursor().position();
    int start = end;
    while (start > std::max(end - LongestWord, 0) && isPartOfWord(text().characterAt(start - 1)))
        --start;
    return rangeOf(start, end);
}

} // namespace VOXI
