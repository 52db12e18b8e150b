#pragma once

#include "voxi2/controls/vxeditarea2.h"
#include "voxi2_qt/controls/qtabstractedit2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QTextCursor>
#include <QTextEdit>

#include <memory>
#include <vector>

namespace VOXI {

class PlainTextLayout;
class TextColoring;
class TextMargin;
class TextSuggestions;
class WidePositions;

/// The peer of the edit area. Of a plain one the text is laid out by `PlainTextLayout`.
class VOXI2_QT_EXPORT QtEditArea2
    : public QtAbstractEdit2Shim<VXEditArea2, VXEditArea2Emitters, QTextEdit>
{
    Q_OBJECT

public:
    QtEditArea2(VXEditArea2* object, VXEditArea2Emitters* emitters, QWidget* parent);
    ~QtEditArea2() override;

    // Requests, in the order of the emitters tables
    void doSetCursorPosition(int position) override;
    int doGetCursorPosition() override;
    void doSetSelection(TextRange range) override;
    TextRange doGetSelection() override;
    std::wstring doGetSelectedText() override;
    void doInsert(const std::wstring& text) override;
    void doUndo() override;
    void doRedo() override;
    bool doIsUndoAvailable() override;
    bool doIsRedoAvailable() override;
    void doCut() override;
    void doPaste() override;

    virtual void doAppend(const std::string& lines);
    virtual void doAppendU(const std::wstring& lines);
    virtual void doReplace(TextRange range, const std::wstring& text);
    virtual std::wstring doGetTextOf(TextRange range);
    virtual int doGetLength();
    virtual int doGetLineCount();
    virtual std::wstring doGetLine(int line);
    virtual void doSetMaximumLineCount(int count);
    virtual int doGetMaximumLineCount();
    virtual void doSetModified(bool modified);
    virtual bool doIsModified();
    virtual void doSetRichText(bool rich);
    virtual bool doIsRichText();
    virtual void doSetMarkup(const std::wstring& markup);
    virtual std::wstring doGetMarkup();
    virtual void doSetStyle(TextRange range, const TextStyle& style);
    virtual TextStyle doGetStyle(int position);
    virtual void doSetWrap(TextWrap wrap);
    virtual TextWrap doGetWrap();
    virtual void doSetTabWidth(int blanks);
    virtual int doGetTabWidth();
    virtual void doSetZoom(int percent);
    virtual int doGetZoom();
    virtual void doSetLineNumbersVisible(bool visible);
    virtual bool doAreLineNumbersVisible();
    virtual void doSetCurrentLineHighlighted(bool highlighted);
    virtual bool doIsCurrentLineHighlighted();
    virtual void doSetCursorPlace(TextPlace place);
    virtual TextPlace doGetCursorPlace();
    virtual TextPlace doGetPlaceOf(int position);
    virtual int doGetPositionOf(TextPlace place);
    virtual void doSetTopLine(int line);
    virtual int doGetTopLine();
    virtual void doScrollTo(int position);
    virtual bool doFind(const TextSearch& search);
    virtual std::optional<TextRange> doFindFrom(const TextSearch& search, int position);
    virtual bool doReplaceFound(const TextSearch& search, const std::wstring& text);
    virtual int doReplaceAll(const TextSearch& search, const std::wstring& text);
    virtual void doSetUndoEnabled(bool enabled);
    virtual bool doIsUndoEnabled();
    virtual void doBeginUndoGroup();
    virtual void doEndUndoGroup();
    virtual void doSetMarksVisible(bool visible);
    virtual bool doAreMarksVisible();
    virtual void doSetMark(const TextMark& mark);
    virtual void doRemoveMark(unsigned uid);
    virtual void doClearMarks();
    virtual std::vector<TextMark> doGetMarks();
    virtual void doRecolor();
    virtual void doAnswerColoring(unsigned query, const std::vector<TextSpan>& spans);
    virtual void doimCommand(TextCommand command);
    virtual void doimClickMargin(int line);
    virtual VXRect<int> doGetPositionRect(int position);
    virtual void doSetSuggestionLength(int letters);
    virtual int doGetSuggestionLength();
    virtual void doSuggest(TextRange range, const std::vector<TextSuggestion>& suggestions);
    virtual std::vector<TextSuggestion> doGetSuggestions();
    virtual void doAnswerSuggestions(unsigned query, TextRange range,
                                     const std::vector<TextSuggestion>& suggestions);
    virtual void doimAskForSuggestions();
    virtual void doimTakeSuggestion(int index);

protected:
    void connectSignals() override;

    void settle() override;
    void change(const QString& text) override;
    QString wholeText() const override;

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private Q_SLOTS:
    void slotContentsChange(int from, int removed, int added);
    void slotContentsChanged();
    void slotModificationChanged(bool modified);
    void slotBlockCountChanged();
    void slotCursorPositionChanged();
    void slotSelectionChanged();
    void slotScrollAction();
    void slotScrolled();
    void slotMarginClicked(int line);
    void slotSuggestionTaken(int index);

private:
    /// Of the user's, in characters.
    struct Change
    {
        int m_position;
        int m_removed;
        QString m_added;
    };
    /// The lines that something is composed in, as they were.
    struct Composed
    {
        int m_from = -1;
        QString m_text{};
    };
    /// A text that is so long that it is pasted bit by bit.
    struct Pasting
    {
        QString m_text;
        qsizetype m_done = 0;
        QTextCursor m_at;
    };
    /// Suggestions that have been asked for.
    struct Wanted
    {
        unsigned m_query = 0;
        int m_edits = 0;
        int m_position = 0;
    };
    class ProgramEdit;
    class UserAct;

    QTextDocument& text() const { return *document(); }
    QTextDocument& settled();
    PlainTextLayout* plainLayout() const;
    int toWide(qint64 unit) const;
    int fromWide(qint64 character) const;
    QTextCursor cursorOver(TextRange range) const;
    TextRange rangeOf(int from, int end) const;
    void show(const QTextCursor& cursor);

    void beginUserAct() noexcept;
    void connectDocument();
    void adopt(QTextDocument* document);
    void putBehind(const QString& lines);
    void awaitTurn(const QString& lines);
    void setContent(const QString& text, bool isMarkup);
    void compose(const QInputMethodEvent& event);
    void trim(int& from, int& removed, int& added) const;
    void applyFont();
    void applyTabWidth();
    void applyMargin();
    void placeMargin();
    void highlightCurrentLine();
    void zoomBy(int steps);
    void askForColors(unsigned query, int firstLine, const QString& text);
    void pasteMore();
    bool passToSuggestions(QKeyEvent& event);
    void suggestBehind(int edits, bool isTyped, bool isWritten);
    void withdrawSuggestions();
    void askForSuggestions(bool isTyping);
    TextRange wordBeforeCursor() const;

    std::unique_ptr<WidePositions> m_positions;
    TextMargin* m_margin;
    TextColoring* m_coloring;
    TextSuggestions* m_suggestions = nullptr; // made when there are some
    QString m_appended;                       // in this turn
    bool m_isAppendWaiting = false;
    std::vector<Change> m_changes; // yet to be reported
    Composed m_composed;
    std::unique_ptr<Pasting> m_pasting;
    int m_groupDepth = 0;
    bool m_isGroupBegun = false; // something was changed in it
    int m_userDepth = 0;         // while the user's input is handled
    int m_reportedCursor = -1;   // in what the user does now
    bool m_isScrolledByUser = false;
    bool m_isUndoEnabled = true;
    bool m_isRich = false;
    bool m_isHighlighting = false;
    bool m_isAnchoring = false;
    int m_tabWidth = 8;
    int m_zoom = 100;
    int m_topLine = 0; // that was reported last
    int m_edits = 0;   // changes so far
    int m_suggestionLength = 0;
    bool m_isDeclined = false; // the user has sent suggestions away, for this word
    unsigned m_lastWanted = 0;
    Wanted m_wanted;
};

} // namespace VOXI
