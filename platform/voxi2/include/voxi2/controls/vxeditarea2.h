#pragma once

#include "voxi2/controls/textareavalues.h"
#include "voxi2/controls/vxabstractedit2.h"
#include "voxi2/controls/vxeditareaevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace VOXI {

struct VXEditArea2Emitters : TROV::EmittersTable<VXAbstractEdit2Emitters>
{
    using EmittersTable::EmittersTable;

    // Text
    TROV::Request<void(std::string)> append{*this};
    TROV::Request<void(std::wstring)> appendU{*this};
    TROV::Request<void(TextRange, std::wstring)> replace{*this};
    TROV::Request<std::wstring(TextRange)> getTextOf{*this};
    TROV::Request<int()> getLength{*this};
    TROV::Request<int()> getLineCount{*this};
    TROV::Request<std::wstring(int)> getLine{*this};
    TROV::Request<void(int)> setMaximumLineCount{*this};
    TROV::Request<int()> getMaximumLineCount{*this};
    TROV::Request<void(bool)> setModified{*this};
    TROV::Request<bool()> isModified{*this};
    TROV::Request<void(bool)> setRichText{*this};
    TROV::Request<bool()> isRichText{*this};
    TROV::Request<void(std::wstring)> setMarkup{*this};
    TROV::Request<std::wstring()> getMarkup{*this};
    TROV::Request<void(TextRange, TextStyle)> setStyle{*this};
    TROV::Request<TextStyle(int)> getStyle{*this};

    // Looks
    TROV::Request<void(TextWrap)> setWrap{*this};
    TROV::Request<TextWrap()> getWrap{*this};
    TROV::Request<void(int)> setTabWidth{*this};
    TROV::Request<int()> getTabWidth{*this};
    TROV::Request<void(int)> setZoom{*this};
    TROV::Request<int()> getZoom{*this};
    TROV::Request<void(bool)> setLineNumbersVisible{*this};
    TROV::Request<bool()> areLineNumbersVisible{*this};
    TROV::Request<void(bool)> setCurrentLineHighlighted{*this};
    TROV::Request<bool()> isCurrentLineHighlighted{*this};

    // Places
    TROV::Request<void(TextPlace)> setCursorPlace{*this};
    TROV::Request<TextPlace()> getCursorPlace{*this};
    TROV::Request<TextPlace(int)> getPlaceOf{*this};
    TROV::Request<int(TextPlace)> getPositionOf{*this};
    TROV::Request<void(int)> setTopLine{*this};
    TROV::Request<int()> getTopLine{*this};
    TROV::Request<void(int)> scrollTo{*this};

    // Search
    TROV::Request<bool(TextSearch)> find{*this};
    TROV::Request<std::optional<TextRange>(TextSearch, int)> findFrom{*this};
    TROV::Request<bool(TextSearch, std::wstring)> replaceFound{*this};
    TROV::Request<int(TextSearch, std::wstring)> replaceAll{*this};

    // Undo
    TROV::Request<void(bool)> setUndoEnabled{*this};
    TROV::Request<bool()> isUndoEnabled{*this};
    TROV::Request<void()> beginUndoGroup{*this};
    TROV::Request<void()> endUndoGroup{*this};

    // Margin
    TROV::Request<void(bool)> setMarksVisible{*this};
    TROV::Request<bool()> areMarksVisible{*this};
    TROV::Request<void(TextMark)> setMark{*this};
    TROV::Request<void(unsigned)> removeMark{*this};
    TROV::Request<void()> clearMarks{*this};
    TROV::Request<std::vector<TextMark>()> getMarks{*this};

    // Colouring
    TROV::Request<void()> recolor{*this};
    TROV::Request<void(unsigned, std::vector<TextSpan>)> answerColoring{*this};

    TROV::Request<void(TextCommand)> command{*this};
    TROV::Request<void(int)> clickMargin{*this};
    TROV::Request<VXRect<int>(int)> getPositionRect{*this};

    // Suggestions
    TROV::Request<void(int)> setSuggestionLength{*this};
    TROV::Request<int()> getSuggestionLength{*this};
    TROV::Request<void(TextRange, std::vector<TextSuggestion>)> suggest{*this};
    TROV::Request<std::vector<TextSuggestion>()> getSuggestions{*this};
    TROV::Request<void(unsigned, TextRange, std::vector<TextSuggestion>)> answerSuggestions{*this};
    TROV::Request<void()> askForSuggestions{*this};
    TROV::Request<void(int)> takeSuggestion{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXEditAreaTextEvent2&)> textEdited{*this};
    TROV::Event<void(const VXEditAreaModifiedEvent2&)> modifiedChanged{*this};
    TROV::Event<void(const VXEditAreaMarginEvent2&)> marginClicked{*this};
    TROV::Event<void(const VXEditAreaScrollEvent2&)> scrolled{*this};
    TROV::Event<void(const VXEditAreaZoomEvent2&)> zoomed{*this};
    TROV::Event<void(const VXEditAreaColoringEvent2&)> coloringWanted{*this};
    TROV::Event<void(const VXEditAreaSuggestEvent2&)> suggestionsWanted{*this};
    TROV::Event<void(const VXEditAreaSuggestionEvent2&)> suggestionTaken{*this};
};

/// Lines of text that the user edits: a letter, a program's source, a log.
///
/// Lines are what line ends divide the text into, however they are wrapped; they count from 0. Line
/// ends of any kind are read, and answered as one "\n" each. A line that there is not stands for
/// the nearest one.
///
/// A plain area, as it is at first, is as fast with a million lines as with one. A rich one, whose
/// text may have formats, pictures, lists and tables, is meant for some hundred. Tab is a letter;
/// with Ctrl it goes on to the next widget, as in a table.
class VOXI2_EXPORT VXEditArea2 : public VXAbstractEdit2
{
public:
    using ToolkitClass = VXEditArea2;

    explicit VXEditArea2(VXObject2* parent = nullptr);
    explicit VXEditArea2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXEditArea2() override;

    // Text. A text that is set puts the cursor before it, scrolls there, and counts as not
    // modified.

    /// Puts lines behind the text, where the cursor stays as it is; a text that is empty gets no
    /// line before them. An area that is scrolled to its end follows. Cheap in great numbers from
    /// any thread: those that come in one turn of the loop are put in together.
    void append(const AnyText& lines);
    /// Puts a text in the place of another; the cursor stays where it is in the rest.
    void replace(const TextRange& range, const AnyText& text);
    /// In any order of start and end, as for selections.
    std::wstring textOf(const TextRange& range) const;
    /// In characters of the wide text.
    int length() const;
    /// 1 at least.
    int lineCount() const;
    /// Without its end.
    std::wstring line(int line) const;
    /// When there are more, those at the beginning go; then nothing can be undone. 0, as at first,
    /// for any number.
    void setMaximumLineCount(int count);
    int maximumLineCount() const;

    /// Whether the text is another than the one that was set, or saved: when that is done, the
    /// program says false.
    void setModified(bool modified);
    bool isModified() const;

    /// Whether the text may be formatted; off at first. Who turns it off keeps the plain text.
    void setRichText(bool rich);
    bool isRichText() const;
    /// Sets a text with HTML mark-up. In a plain area that means nothing, and is shown as it is.
    void setMarkup(const AnyText& markup);
    /// With all that the back end knows about it; the text itself in a plain area.
    std::wstring markup() const;
    /// Formats a part of a rich text, which can be undone; does nothing in a plain area.
    void setStyle(const TextRange& range, const TextStyle& style);
    /// Of the character at that position.
    TextStyle styleAt(int position) const;

    // Looks

    /// Between words at first.
    void setWrap(TextWrap wrap);
    TextWrap wrap() const;
    /// In widths of a blank, 1 to 100; 8 at first.
    void setTabWidth(int blanks);
    int tabWidth() const;
    /// The size of the text, in percent of its font's, 10 to 1000; 100 at first.
    void setZoom(int percent);
    int zoom() const;
    /// Off at first. The first line is shown as 1.
    void setLineNumbersVisible(bool visible);
    bool areLineNumbersVisible() const;
    /// Off at first.
    void setCurrentLineHighlighted(bool highlighted);
    bool isCurrentLineHighlighted() const;

    // Places

    /// Ends the selection, and scrolls there.
    void setCursorPlace(const TextPlace& place);
    TextPlace cursorPlace() const;
    TextPlace placeOf(int position) const;
    int positionOf(const TextPlace& place) const;
    /// Where a cursor at that position stands in the widget, which may be out of sight: for what is
    /// to be shown beside it.
    VXRect<int> cursorRect(int position) const;
    /// The line at the upper edge, as far as there are enough below it.
    void setTopLine(int line);
    int topLine() const;
    /// As far as is needed to see what stands at that position.
    void scrollTo(int position);

    // Search. Nothing is found for an empty text, or an expression that is malformed.

    /// Selects what is found behind the selection, or before it, and scrolls there; false, and
    /// nothing happens, when it is not found.
    bool find(const TextSearch& search);
    /// The same without selecting, from a position on.
    std::optional<TextRange> findFrom(const TextSearch& search, int position) const;
    /// When what is searched for is selected, puts a text in its place; then finds the next one. In
    /// the text for an expression \1 to \9 stand for its groups, \0 for all of it, \\ for a
    /// backslash.
    bool replaceFound(const TextSearch& search, const AnyText& text);
    /// All there is, from the beginning; undone as one. Says how many.
    int replaceAll(const TextSearch& search, const AnyText& text);

    // Undo

    /// On at first. Off, what could be undone is forgotten; logs need less memory then.
    void setUndoEnabled(bool enabled);
    bool isUndoEnabled() const;
    /// What the program changes between the two is undone as one. Groups nest.
    void beginUndoGroup();
    void endUndoGroup();

    // Margin

    /// Whether there is room for marks beside the text; not at first.
    void setMarksVisible(bool visible);
    bool areMarksVisible() const;
    /// Adds a mark, or puts another in the place of the one with its uid; 0 is ignored. It moves
    /// with its line; when that is removed, to the one that stands there then. Another text has no
    /// marks.
    void setMark(const TextMark& mark);
    void removeMark(unsigned uid);
    void clearMarks();
    /// Where they are now, by lines.
    std::vector<TextMark> marks() const;

    // Colouring

    /// Asks for the colours of all lines again, as when the rules are others.
    void recolor();

    // Suggestions: a list beside the cursor, which the user walks through by the arrow keys, takes
    // from by Enter, Tab or a click, and leaves by Escape or by going elsewhere.

    /// How many letters of a word the user must have typed for `suggestionsWanted` to be sent; 0,
    /// as at first: only when he presses Ctrl+Space.
    void setSuggestionLength(int letters);
    int suggestionLength() const;
    /// Offers texts for a part of the text that the cursor is in, or at either end of; with what is
    /// typed there afterwards. None takes the list away. One that is the only one, and stands there
    /// already, is not offered, and nothing is while the area has not the focus or is read-only.
    void suggest(const TextRange& range, const std::vector<TextSuggestion>& suggestions);
    /// What is offered now.
    std::vector<TextSuggestion> suggestions() const;

    // As if the user had done it: reported

    /// As if Ctrl+Space had been pressed.
    void imitateSuggestionKey();
    /// Takes the one of that index among those that are offered.
    void imitateSuggestion(int index);
    /// Does nothing where it is disabled for the user.
    void imitateCommand(TextCommand command);
    void imitateMarginClick(int line);

    // Events

    /// The user has changed the text: sent at each key, and for what is pasted, dropped, undone.
    /// Not while a character is being composed.
    TROV::Signal<void(const VXEditAreaTextEvent2&)> textEdited() const
    {
        return m_emitters.textEdited.signal();
    }
    TROV::Signal<void(const VXEditAreaModifiedEvent2&)> modifiedChanged() const
    {
        return m_emitters.modifiedChanged.signal();
    }
    /// The user has clicked beside a line.
    TROV::Signal<void(const VXEditAreaMarginEvent2&)> marginClicked() const
    {
        return m_emitters.marginClicked.signal();
    }
    /// The user has scrolled, by typing as well.
    TROV::Signal<void(const VXEditAreaScrollEvent2&)> scrolled() const
    {
        return m_emitters.scrolled.signal();
    }
    TROV::Signal<void(const VXEditAreaZoomEvent2&)> zoomed() const
    {
        return m_emitters.zoomed.signal();
    }
    /// Lines of a plain area have come into sight whose colours are not known, or may be others
    /// since something has changed in or above them. Connect it on a worker's thread: it is asked
    /// there, and typing never waits for it; lines keep the colours they have meanwhile. Asked at
    /// most once until the answer is there, and when something is painted: who connects it to an
    /// area that is shown already calls `recolor`.
    TROV::Signal<void(const VXEditAreaColoringEvent2&)> coloringWanted() const
    {
        return m_emitters.coloringWanted.signal();
    }
    /// The user wants to know what may stand at the cursor; while he types as well, if
    /// `setSuggestionLength` says so, and then at each letter. Nobody waits for the answer.
    TROV::Signal<void(const VXEditAreaSuggestEvent2&)> suggestionsWanted() const
    {
        return m_emitters.suggestionsWanted.signal();
    }
    /// Sent behind `textEdited`.
    TROV::Signal<void(const VXEditAreaSuggestionEvent2&)> suggestionTaken() const
    {
        return m_emitters.suggestionTaken.signal();
    }

private:
    friend class VXEditAreaColoringEvent2;
    friend class VXEditAreaSuggestEvent2;

    void answerColoring(unsigned query, const std::vector<TextSpan>& spans);
    void answerSuggestions(unsigned query, const TextRange& range,
                           const std::vector<TextSuggestion>& suggestions);

    VXEditArea2Emitters m_emitters;
};

} // namespace VOXI
