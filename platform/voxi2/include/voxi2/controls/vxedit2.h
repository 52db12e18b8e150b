#pragma once

#include "voxi2/controls/texteditvalues.h"
#include "voxi2/controls/textvalidator.h"
#include "voxi2/controls/vxeditevents2.h"
#include "voxi2/kernel/alignment.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

class VXAction2;

struct VXEdit2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setText{*this};
    TROV::Request<void(std::wstring)> setTextU{*this};
    TROV::Request<std::string()> getText{*this};
    TROV::Request<std::wstring()> getTextU{*this};
    TROV::Request<void(std::string)> setPlaceholder{*this};
    TROV::Request<void(std::wstring)> setPlaceholderU{*this};
    TROV::Request<std::string()> getPlaceholder{*this};
    TROV::Request<std::wstring()> getPlaceholderU{*this};
    TROV::Request<void(bool)> setReadOnly{*this};
    TROV::Request<bool()> isReadOnly{*this};
    TROV::Request<void(TextEcho)> setEcho{*this};
    TROV::Request<TextEcho()> getEcho{*this};
    TROV::Request<void(Alignment)> setAlignment{*this};
    TROV::Request<Alignment()> getAlignment{*this};
    TROV::Request<void(bool)> setFlat{*this};
    TROV::Request<bool()> isFlat{*this};
    TROV::Request<void(bool)> setClearButtonVisible{*this};
    TROV::Request<bool()> isClearButtonVisible{*this};
    TROV::Request<void(VXAction2*, EditSide)> addSideAction{*this};
    TROV::Request<void(VXAction2*)> removeSideAction{*this};

    // What may be entered
    TROV::Request<void(int)> setMaximumLength{*this};
    TROV::Request<int()> getMaximumLength{*this};
    TROV::Request<void(std::wstring)> setInputMask{*this};
    TROV::Request<std::wstring()> getInputMask{*this};
    TROV::Request<void(TextValidator)> setValidator{*this};
    TROV::Request<TextValidator()> getValidator{*this};
    TROV::Request<bool()> isAcceptable{*this};
    TROV::Request<void(TextCompletion)> setCompletion{*this};
    TROV::Request<TextCompletion()> getCompletion{*this};

    // Cursor and selection
    TROV::Request<void(int)> setCursorPosition{*this};
    TROV::Request<int()> getCursorPosition{*this};
    TROV::Request<void(TextRange)> setSelection{*this};
    TROV::Request<TextRange()> getSelection{*this};
    TROV::Request<std::wstring()> getSelectedText{*this};
    TROV::Request<void()> selectAll{*this};

    // Editing
    TROV::Request<void(std::wstring)> insert{*this};
    TROV::Request<void()> undo{*this};
    TROV::Request<void()> redo{*this};
    TROV::Request<bool()> isUndoAvailable{*this};
    TROV::Request<bool()> isRedoAvailable{*this};
    TROV::Request<void()> cut{*this};
    TROV::Request<void()> copy{*this};
    TROV::Request<void()> paste{*this};
    TROV::Request<void(std::wstring)> type{*this};
    TROV::Request<void()> pressReturn{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXEditTextEvent2&)> textEdited{*this};
    TROV::Event<void(const VXEditReturnEvent2&)> returnPressed{*this};
    TROV::Event<void(const VXEditFinishEvent2&)> editingFinished{*this};
    TROV::Event<void(const VXEditCursorEvent2&)> cursorMoved{*this};
    TROV::Event<void(const VXEditSelectionEvent2&)> selectionChanged{*this};
};

/// A line of text that the user edits.
///
/// Positions and lengths count the characters of `textU()`; those that are out of the text stand
/// for its nearest end.
class VOXI2_EXPORT VXEdit2 : public VXWidget2
{
public:
    using ToolkitClass = VXEdit2;

    explicit VXEdit2(VXObject2* parent = nullptr);
    explicit VXEdit2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXEdit2() override;

    /// Cut off at the maximum length. Puts the cursor behind the text and forgets what could be
    /// undone; does nothing where the text is what it was.
    void setText(const AnyText& text);
    std::string text() const;
    std::wstring textU() const;

    /// Shown, less prominently, while the text is empty.
    void setPlaceholder(const AnyText& text);
    std::string placeholder() const;
    std::wstring placeholderU() const;

    /// Whether the user may only read and copy.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const;
    /// What is not shown is not copied either.
    void setEcho(TextEcho echo);
    TextEcho echo() const;
    void setAlignment(Alignment alignment);
    Alignment alignment() const;
    /// Without a frame.
    void setFlat(bool flat);
    bool isFlat() const;
    /// Shown while there is text; not at first.
    void setClearButtonVisible(bool visible);
    bool isClearButtonVisible() const;

    /// Shows the action as a small button in the field. One that is there is moved. It belongs to
    /// whom it belonged; one that ends is removed.
    void addSideAction(VXAction2* action, EditSide side = EditSide::Trailing);
    void removeSideAction(VXAction2* action);

    // What may be entered

    /// In UTF-16 units; 32767 at first, -1 for no limit. What is longer is cut off; with an input
    /// mask that decides.
    void setMaximumLength(int length);
    int maximumLength() const;
    /// The places and separators of a text of fixed form, as "99.99.9999;_"; empty for none.
    void setInputMask(const std::wstring& mask);
    std::wstring inputMask() const;
    /// Judges what the user types. The program may set any text.
    void setValidator(const TextValidator& validator);
    TextValidator validator() const;
    /// Whether the text is what mask and validator want.
    bool isAcceptable() const;
    /// Suggestions for what is typed; no texts for none.
    void setCompletion(const TextCompletion& completion);
    TextCompletion completion() const;

    // Cursor and selection

    /// Ends the selection.
    void setCursorPosition(int position);
    int cursorPosition() const;
    /// A negative length selects what stands before the start; 0 ends the selection.
    void setSelection(const TextRange& range);
    TextRange selection() const;
    std::wstring selectedText() const;
    void selectAll();

    // Editing: all of it can be undone, and does nothing in a read-only field where it would change
    // the text

    /// In place of the selection.
    void insert(const AnyText& text);
    void undo();
    void redo();
    bool isUndoAvailable() const;
    bool isRedoAvailable() const;
    void cut();
    void copy();
    void paste();

    // As if the user had done it: reported

    /// Types a text at the cursor.
    void imitateTyping(const AnyText& text);
    void imitateReturn();

    // Events

    /// The user has changed the text: sent at each key, and for what is chosen, pasted, undone. Not
    /// while a character is being composed.
    TROV::Signal<void(const VXEditTextEvent2&)> textEdited() const
    {
        return m_emitters.textEdited.signal();
    }
    /// The user has pressed Return; not where the text is not acceptable.
    TROV::Signal<void(const VXEditReturnEvent2&)> returnPressed() const
    {
        return m_emitters.returnPressed.signal();
    }
    /// The user has pressed Return, or has changed the text and left the field; not where the text
    /// is not acceptable.
    TROV::Signal<void(const VXEditFinishEvent2&)> editingFinished() const
    {
        return m_emitters.editingFinished.signal();
    }
    /// The user has moved the cursor, by typing as well.
    TROV::Signal<void(const VXEditCursorEvent2&)> cursorMoved() const
    {
        return m_emitters.cursorMoved.signal();
    }
    /// The user has selected another part of the text, or none.
    TROV::Signal<void(const VXEditSelectionEvent2&)> selectionChanged() const
    {
        return m_emitters.selectionChanged.signal();
    }

private:
    VXEdit2Emitters m_emitters;
};

} // namespace VOXI
