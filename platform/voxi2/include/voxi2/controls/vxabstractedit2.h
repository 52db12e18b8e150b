#pragma once

#include "voxi2/controls/texteditvalues.h"
#include "voxi2/controls/vxeditevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

struct VXAbstractEdit2Emitters : TROV::EmittersTable<VXWidget2Emitters>
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
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXEditCursorEvent2&)> cursorMoved{*this};
    TROV::Event<void(const VXEditSelectionEvent2&)> selectionChanged{*this};
};

/// What a line and an area of text that the user edits have in common.
///
/// Positions and lengths count the characters of `textU()`; those that are out of the text stand
/// for its nearest end.
class VOXI2_EXPORT VXAbstractEdit2 : public VXWidget2
{
public:
    ~VXAbstractEdit2() override;

    /// Forgets what could be undone; does nothing where the text is what it was.
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

    // Events

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

protected:
    explicit VXAbstractEdit2(VXObject2* parent);

    VXAbstractEdit2Emitters m_emitters;
};

} // namespace VOXI
