#pragma once

#include "voxi2/containers/messageanswer.h"
#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2/containers/vxdialogevents2.h"
#include "voxi2/voxi2_export.h"

#include <vector>

namespace VOXI {

class VXAbstractButton2;

struct VXAbstractDialog2Emitters : TROV::EmittersTable<VXAbstractWindow2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(bool)> setModal{*this};
    TROV::Request<void()> open{*this};
    TROV::Request<void()> accept{*this};
    TROV::Request<void()> reject{*this};
    TROV::Request<void(int)> done{*this};
    TROV::Request<void(VXAbstractButton2*, int)> setButtonResult{*this};
    TROV::Request<void(VXAbstractButton2*)> unsetButtonResult{*this};
    TROV::Request<int()> exec{*this};
    TROV::Request<bool()> isModal{*this};
    TROV::Request<int()> getResult{*this};
    TROV::Request<std::vector<MessageAnswer>(VXFlags<MessageAnswer>)> getButtonOrder{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXDialogEvent2&)> finished{*this};
};

/// What all dialogs have in common: they are shown, and end with a result.
///
/// The user ends a dialog with a button that has a result, with Escape, or by closing it. Before
/// Escape, closing and a button whose result is `Rejected` dismiss the dialog, `closing()` asks,
/// and a handler may refuse. Such an end is reported by `finished()`; what the program ends is not.
/// A dialog that has ended is hidden, not destroyed, and may be shown again.
class VOXI2_EXPORT VXAbstractDialog2 : public VXAbstractWindow2
{
public:
    static constexpr int Rejected = 0;
    static constexpr int Accepted = 1;

    ~VXAbstractDialog2() override;

    /// Whether the dialog blocks the input of all other windows when it is shown by `show()`; off
    /// by default. A dialog that is visible keeps what it was shown with.
    void setModal(bool modal);
    bool isModal() const;

    /// Shows the dialog, blocking the window that it belongs to (all windows, if it belongs to
    /// none) and returns at once.
    void open();

    /// Shows the dialog, blocking all other windows, and returns its result when it has ended.
    ///
    /// On the toolkit's thread, also inside a handler, events and the calls of other threads are
    /// served meanwhile; a worker just waits. `Rejected` when the dialog is hidden or destroyed
    /// meanwhile, when the program quits, and at once for a dialog that executes already. Of
    /// several that execute, one returns only when those that began later have returned, whoever
    /// ended first.
    int exec();

    /// Ends the dialog with `Accepted`, unless it finds itself incomplete, as a file dialog
    /// without a file does.
    void accept();
    /// Ends the dialog with `Rejected`; nobody is asked.
    void reject();
    /// Ends the dialog with that result; nobody is asked.
    void done(int result);

    /// How the dialog ended last; `Rejected` before, and while it is shown by `open` or `exec`.
    int result() const;

    /// Has a click on the button, after its own `clicked()`, end the dialog with that result as
    /// the user's act. The button may lie anywhere. Null and dead ones are ignored.
    void setButtonResult(VXAbstractButton2* button, int result);
    /// Ends what `setButtonResult` began.
    void unsetButtonResult(VXAbstractButton2* button);

    /// In which order the platform's users expect such buttons; `None` stands for room to spare
    /// between them. `VXButtonRow2` does the rest.
    std::vector<MessageAnswer> buttonOrder(VXFlags<MessageAnswer> answers) const;

    // Events

    /// The user has ended the dialog, which is hidden already. Not sent for `accept()`, `reject()`,
    /// `done()` and `hide()`; `close()` counts as the user's act.
    TROV::Signal<void(const VXDialogEvent2&)> finished() const
    {
        return m_emitters.finished.signal();
    }

protected:
    explicit VXAbstractDialog2(VXObject2* parent);

    VXAbstractDialog2Emitters m_emitters;
};

} // namespace VOXI
