#include "voxi2/containers/vxprogressdialog2.h"

#include "trov/timer.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxbuttonrow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxtext2.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace VOXI {

namespace {

constexpr int Width = 360;
constexpr int Steps = 1000;

/// Ends the dialog when it goes.
struct DialogEnd
{
    const VXHandle<VXProgressDialog2> m_dialog;
    ~DialogEnd() { m_dialog->destroy(); }
};

} // namespace

VXProgressDialog2::VXProgressDialog2(VXObject2* parent) : VXProgressDialog2(AnyText(), parent) {}

VXProgressDialog2::VXProgressDialog2(const AnyText& title, VXObject2* parent)
    : VXDialog2(title, parent),
      m_text(new VXText2(this)),
      m_bar(new VXProgressBar2(this)),
      m_cancel((new VXButtonRow2(this, MessageAnswer::Cancel))->button(MessageAnswer::Cancel))
{
    auto* const rows = new VXBoxLayout2(this, Direction::TopToBottom);
    m_bar->setMinimumSize({Width, -1});
    m_bar->setMaximum(0);
    rows->addWidget(m_text.get());
    rows->addWidget(m_bar.get());
    rows->addStretch();
    rows->addWidget(m_cancel->parent());
    m_cancel->setFocus();
    closing().connect(
        this,
        [this](const VXCloseEvent2& event) {
            if (!m_isCancellable)
                event.refuse();
        },
        servingThread());
    finished().connect(
        this, [this](const VXDialogEvent2&) { m_isCancelled = true; }, servingThread());
}

VXProgressDialog2::~VXProgressDialog2() { retire(); }

void VXProgressDialog2::follow(const TROV::Task& task, VXObject2* parent, const AnyText& title,
                               std::chrono::milliseconds delay)
{
    const VXObjectDataLocker lock;
    const BuildScope scope;
    if (parent && !isObjectValid(parent))
        return;
    const VXHandle<VXProgressDialog2> shown(new VXProgressDialog2(title, parent));
    TROV::Thread* const thread = shown->servingThread();
    shown.with([&](VXProgressDialog2& dialog) {
        task.progressed().connect(
            &dialog,
            [shown](const TROV::TaskProgress& progress) {
                shown->setFraction(progress.fraction);
                shown->setText(progress.text);
            },
            thread);
        // It may have said something before anybody listened.
        const TROV::TaskProgress now = task.progress();
        dialog.setFraction(now.fraction);
        dialog.setText(now.text);
        // Where the thread that wanted the result has ended, nobody tells: all that listens goes.
        task.ended().connect(
            &dialog, [shown, end = std::make_unique<DialogEnd>(shown)] { shown->destroy(); },
            thread);
        dialog.finished().connect(
            &dialog, [task](const VXDialogEvent2&) { TROV::Task(task).cancel(); }, thread);
    });
    if (!thread || !task.isRunning()) {
        shown->destroy();
        return;
    }
    shown.with([&](VXProgressDialog2& dialog) {
        TROV::Timer::once(
            delay, &dialog, [shown] { shown->open(); }, thread);
    });
}

void VXProgressDialog2::setText(const AnyText& text) { m_text->setText(text); }

void VXProgressDialog2::setFraction(double fraction)
{
    const bool isKnown = fraction >= 0; // also not for what is no number
    m_bar->setMaximum(isKnown ? Steps : 0);
    if (isKnown)
        m_bar->setValue(static_cast<int>(std::lround(std::min(fraction, 1.0) * Steps)));
}

void VXProgressDialog2::setCancellable(bool cancellable)
{
    m_isCancellable = cancellable;
    m_cancel->setVisible(cancellable);
}

} // namespace VOXI
