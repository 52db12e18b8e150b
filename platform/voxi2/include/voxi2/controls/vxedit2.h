#pragma once

#include "voxi2/controls/textvalidator.h"
#include "voxi2/controls/vxabstractedit2.h"
#include "voxi2/kernel/alignment.h"
#include "voxi2/voxi2_export.h"

#include <string>

namespace VOXI {

class VXAction2;

struct VXEdit2Emitters : TROV::EmittersTable<VXAbstractEdit2Emitters>
{
    using EmittersTable::EmittersTable;

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

    TROV::Request<void()> pressReturn{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXEditTextEvent2&)> textEdited{*this};
    TROV::Event<void(const VXEditReturnEvent2&)> returnPressed{*this};
    TROV::Event<void(const VXEditFinishEvent2&)> editingFinished{*this};
};

/// A line of text that the user edits.
///
/// A text that is set is cut off at the maximum length, and the cursor put behind it.
class VOXI2_EXPORT VXEdit2 : public VXAbstractEdit2
{
public:
    using ToolkitClass = VXEdit2;

    explicit VXEdit2(VXObject2* parent = nullptr);
    explicit VXEdit2(const AnyText& text, VXObject2* parent = nullptr);
    ~VXEdit2() override;

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

    /// What fits into a line at all, in UTF-16 units: each key lays out the whole of it. Longer
    /// texts are for `VXEditArea2`.
    static constexpr int GreatestLength = 65'535;

    /// In UTF-16 units; 32767 at first, -1 for as many as fit. What is longer is cut off; with an
    /// input mask that decides.
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

    // As if the user had done it: reported

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

private:
    VXEdit2Emitters m_emitters;
};

} // namespace VOXI
