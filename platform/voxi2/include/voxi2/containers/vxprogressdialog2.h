#pragma once

#include "trov/task.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/voxi2_export.h"

#include <atomic>
#include <chrono>

namespace VOXI {

class VXButton2;
class VXProgressBar2;
class VXText2;

/// Shows how far something has come, and lets the user cancel it.
///
/// For a task one line does it:
///
///     const auto task = TROV::Task::run(this, work, &Page::show);
///     VXProgressDialog2::follow(task, window, "Searching");
///
/// Other work sets what is shown, from any thread, and asks `isCancelled` now and then.
class VOXI2_EXPORT VXProgressDialog2 : public VXDialog2
{
public:
    using ToolkitClass = VXProgressDialog2;

    explicit VXProgressDialog2(VXObject2* parent = nullptr);
    explicit VXProgressDialog2(const AnyText& title, VXObject2* parent = nullptr);
    ~VXProgressDialog2() override;

    /// Shows how far a task is once it has run for that long, blocking the parent's window (without
    /// one: all windows), until it ends. Cancelling the dialog cancels the task. Without a back
    /// end, and for a parent that has ended, the task just goes on.
    static void follow(const TROV::Task& task, VXObject2* parent, const AnyText& title,
                       std::chrono::milliseconds delay = std::chrono::milliseconds(500));

    /// What is being done, above the bar.
    void setText(const AnyText& text);
    /// From 0 to 1; below 0, or no number: something goes on, as at first.
    void setFraction(double fraction);
    /// Whether there is a button that cancels, and Escape and closing do; on by default.
    void setCancellable(bool cancellable);
    bool isCancellable() const noexcept { return m_isCancellable; }

    /// Whether the user has cancelled it. Costs nothing and does not wait.
    bool isCancelled() const noexcept { return m_isCancelled; }

private:
    const VXHandle<VXText2> m_text;
    const VXHandle<VXProgressBar2> m_bar;
    const VXHandle<VXButton2> m_cancel;
    std::atomic<bool> m_isCancellable{true};
    std::atomic<bool> m_isCancelled{false};
};

} // namespace VOXI
