#include "voxi2/containers/vxinput2.h"

#include "opendialogs.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxbuttonrow2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/translation.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

namespace VOXI {

/// What has been made to ask with; one of the fields.
struct BuiltInput
{
    VXHandle<VXDialog2> m_dialog{};
    VXHandle<VXEdit2> m_edit{};
    VXHandle<VXComboBox2> m_list{};
    VXHandle<VXSpinBox2> m_number{};

    std::wstring answer() const
    {
        return m_edit.id() != 0 ? m_edit->textU() : m_list->currentTextU();
    }
};

namespace {

constexpr int LineWidth = 320;

/// Makes a dialog with a text above a field, which `addField` makes: it takes the dialog, which it
/// puts into what it returns with the field.
template <class AddField>
BuiltInput build(VXObject2* parent, const AnyText& title, const AnyText& text, AddField&& addField)
{
    // A worker waits for each part, and the parent may end meanwhile: then the dialog does, too.
    const VXObjectDataLocker lock;
    const VXObject2::BuildScope scope;
    if (parent && !VXObject::isObjectValid(parent))
        return {};
    auto* const dialog = new VXDialog2(parent);
    dialog->setTitle(title.isEmpty() ? KeptText(translated("Input")) : KeptText(title));
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    auto* const label = new VXText2(text, dialog);
    rows->addWidget(label);
    BuiltInput built;
    built.m_dialog = dialog;
    VXWidget2* const field = addField(*dialog, built);
    field->setMinimumSize({LineWidth, -1});
    label->setBuddy(field);
    rows->addWidget(field);
    rows->addStretch();
    auto* const buttons = new VXButtonRow2(dialog, MessageAnswer::Ok | MessageAnswer::Cancel);
    rows->addWidget(buttons);
    if (VXEdit2* const edit = built.m_edit.get()) {
        // The line may hold what must not be answered.
        const auto check = [built, ok = VXHandle<VXButton2>(buttons->button(MessageAnswer::Ok))] {
            ok->setEnabled(built.m_edit->isAcceptable());
        };
        edit->textEdited().connect(
            dialog, [check](const VXEditTextEvent2&) { check(); }, dialog->servingThread());
        check();
    }
    field->setFocus();
    return built;
}

} // namespace

BuiltInput VXInput2::make(VXObject2* parent) const
{
    return build(parent, title, text, [this](VXDialog2& dialog, BuiltInput& built) -> VXWidget2* {
        if (choices.empty()) {
            auto* const edit = new VXEdit2(&dialog);
            built.m_edit = edit;
            edit->setValidator(validator);
            edit->setEcho(echo);
            edit->setText(value);
            edit->setSelection({0, std::numeric_limits<int>::max()});
            return edit;
        }
        auto* const list = new VXComboBox2(&dialog);
        built.m_list = list;
        list->setEditable(mayBeOther);
        list->setInsertPolicy(ComboInsertPolicy::None);
        for (const std::wstring& each : choices)
            list->addItem(each);
        const std::wstring first = AnyText(value).toWide();
        const auto place = std::ranges::find(choices, first);
        if (place != choices.end() || !mayBeOther)
            list->setCurrentIndex(
                place == choices.end() ? 0 : static_cast<int>(place - choices.begin()));
        else
            list->setCurrentText(first);
        return list;
    });
}

VXInput2::Answer VXInput2::exec(VXObject2* parent) const
{
    const BuiltInput built = make(parent);
    Answer answer;
    if (built.m_dialog->exec() == VXDialog2::Accepted)
        answer = built.answer();
    built.m_dialog->destroy();
    return answer;
}

void VXInput2::open(VXObject2* parent, std::function<void(Answer)> answered) const
{
    const BuiltInput built = make(parent);
    const auto answer = std::make_shared<std::wstring>();
    openDialog(
        built.m_dialog, [built, answer] { *answer = built.answer(); },
        [answer, answered = std::move(answered)](int result) {
            answered(result == VXDialog2::Accepted ? Answer(*answer) : Answer());
        });
}

VXInput2::Answer VXInput2::askText(VXObject2* parent, const AnyText& text, const AnyText& value)
{
    return VXInput2{.text = text, .value = value}.exec(parent);
}

VXInput2::Answer VXInput2::askPassword(VXObject2* parent, const AnyText& text)
{
    return VXInput2{.text = text, .echo = TextEcho::Password}.exec(parent);
}

VXInput2::Answer VXInput2::askChoice(VXObject2* parent, const AnyText& text,
                                     const std::vector<std::wstring>& choices, const AnyText& value)
{
    if (choices.empty())
        return {};
    return VXInput2{.text = text, .value = value, .choices = choices}.exec(parent);
}

std::optional<int> VXInput2::askNumber(VXObject2* parent, const AnyText& text, int value, int least,
                                       int greatest)
{
    const BuiltInput built =
        build(parent, AnyText(), text, [&](VXDialog2& dialog, BuiltInput& made) -> VXWidget2* {
            auto* const number = new VXSpinBox2(&dialog);
            made.m_number = number;
            number->setEditable(true);
            number->setRange({least, greatest});
            number->setValue(value);
            return number;
        });
    std::optional<int> answer;
    if (built.m_dialog->exec() == VXDialog2::Accepted)
        answer = built.m_number->value();
    built.m_dialog->destroy();
    return answer;
}

} // namespace VOXI
