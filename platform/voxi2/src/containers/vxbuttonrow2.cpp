#include "voxi2/containers/vxbuttonrow2.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/kernel/translation.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace VOXI {

namespace {

using A = MessageAnswer;

struct Answer
{
    MessageAnswer m_answer;
    LibraryText m_label;
    std::optional<int> m_result; ///< nothing: the dialog stays
};

constexpr int Accepted = VXDialog2::Accepted;
constexpr int Rejected = VXDialog2::Rejected;

/// In the order of the buttons where no platform says another.
constexpr Answer s_answers[] = {
    {A::Help, "&Help", {}},
    {A::Reset, "&Reset", {}},
    {A::RestoreDefaults, "Restore &Defaults", {}},
    {A::None, "", {}}, // room to spare
    {A::Yes, "&Yes", Accepted},
    {A::YesToAll, "Yes to &All", Accepted},
    {A::Ok, "&OK", Accepted},
    {A::Open, "&Open", Accepted},
    {A::Save, "&Save", Accepted},
    {A::SaveAll, "Save A&ll", Accepted},
    {A::Retry, "&Retry", Accepted},
    {A::Ignore, "&Ignore", Accepted},
    {A::Apply, "&Apply", {}},
    {A::Discard, "&Discard", Rejected},
    {A::No, "&No", Rejected},
    {A::NoToAll, "No &to All", Rejected},
    {A::Abort, "A&bort", Rejected},
    {A::Close, "&Close", Rejected},
    {A::Cancel, "Cancel", Rejected},
};

const Answer& rowOf(MessageAnswer answer)
{
    return *std::ranges::find(s_answers, answer, &Answer::m_answer);
}

/// All that is offered, with `None` for room to spare; in a dialog as its platform wants it.
std::vector<MessageAnswer> order(VXDialog2* dialog, VXFlags<MessageAnswer> answers)
{
    VXFlags<MessageAnswer> offered;
    std::vector<MessageAnswer> own;
    for (const Answer& each : s_answers) {
        if (each.m_answer == A::None || answers.testFlag(each.m_answer)) {
            own.push_back(each.m_answer);
            offered |= each.m_answer;
        }
    }
    const std::vector<MessageAnswer> there =
        dialog ? dialog->buttonOrder(offered) : std::vector<MessageAnswer>();
    return there.empty() ? own : there;
}

} // namespace

VXButtonRow2::VXButtonRow2(VXDialog2* dialog, VXFlags<MessageAnswer> answers) : VXPanel2(dialog)
{
    const VXObjectDataLocker lock;
    const BuildScope scope;
    const VXHandle<VXDialog2> there(isObjectValid(dialog) ? dialog : nullptr);
    auto* const row = new VXBoxLayout2(this);
    row->setMargins({0, 0, 0, 0});
    // A worker waits for each part, and the dialog may end meanwhile.
    for (const MessageAnswer each : order(there.get(), answers)) {
        if (each == A::None)
            row->addStretch();
        else
            row->addWidget(addButton(there.get(), each));
    }
}

VXButtonRow2::~VXButtonRow2() { retire(); }

VXButton2* VXButtonRow2::addButton(VXDialog2* dialog, MessageAnswer answer)
{
    const Answer& about = rowOf(answer);
    const VXHandle<VXDialog2> there(dialog);
    auto* const made = new VXButton2(translated(about.m_label), this);
    const bool isFirst = std::ranges::none_of(
        m_buttons, [](const auto& each) { return rowOf(each.first).m_result == Accepted; });
    m_buttons[answer] = made;
    made->clicked().connect(
        this,
        [this, answer](const VXButtonClickEvent2&) {
            const VXObjectDataLocker lock;
            m_answer = answer;
        },
        servingThread());
    if (!there.isValid() || !about.m_result)
        return made;
    there->setButtonResult(made, *about.m_result);
    if (*about.m_result == Accepted && isFirst)
        there->setDefaultButton(made);
    return made;
}

VXButton2* VXButtonRow2::button(MessageAnswer answer) const
{
    const VXObjectDataLocker lock;
    const auto found = m_buttons.find(answer);
    return found == m_buttons.end() ? nullptr : found->second.get();
}

VXFlags<MessageAnswer> VXButtonRow2::answers() const
{
    const VXObjectDataLocker lock;
    VXFlags<MessageAnswer> result;
    for (const auto& each : m_buttons)
        result |= each.first;
    return result;
}

MessageAnswer VXButtonRow2::answer() const
{
    const VXObjectDataLocker lock;
    return m_answer;
}

} // namespace VOXI
