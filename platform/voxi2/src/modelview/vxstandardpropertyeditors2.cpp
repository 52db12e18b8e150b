#include "voxi2/modelview/vxstandardpropertyeditors2.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace VOXI {

namespace {

using Property = VXHandle<VXSimpleProperty2>;
using Commit = std::function<void(VXSimpleProperty2&)>;

/// What was made, and what it does when the user is done.
struct Made
{
    VXWidget2* editor = nullptr;
    Commit commit;
};

/// As long as a line may be; more would be cut off.
constexpr std::size_t MostEdited = 32'767;

Icon dotted(std::initializer_list<std::uint8_t> rows, std::uint32_t rgba)
{
    constexpr int Side = 8;
    std::vector<std::uint32_t> pixels;
    for (const std::uint8_t row : rows) {
        for (int x = 0; x < Side; ++x)
            pixels.push_back(row >> (Side - 1 - x) & 1 ? rgba : 0);
    }
    return Icon::fromPixmap(Pixmap(Side, static_cast<int>(rows.size()), std::move(pixels)));
}

constexpr std::uint32_t Grey = 0x606468ff;

const Icon& upIcon()
{
    static const Icon icon = dotted({0, 0, 0b00011000, 0b00111100, 0b01111110, 0, 0, 0}, Grey);
    return icon;
}

const Icon& downIcon()
{
    static const Icon icon = dotted({0, 0, 0, 0b01111110, 0b00111100, 0b00011000, 0, 0}, Grey);
    return icon;
}

const Icon& chooseIcon()
{
    static const Icon icon = dotted({0, 0, 0, 0, 0b11011011, 0b11011011, 0, 0}, Grey);
    return icon;
}

Made checkBox(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    auto* const box = new VXCheckBox2(&browser);
    box->setChecked(property.valueAs<bool>());
    box->toggled().connect(box, [edited = Property(&property), made = VXHandle<VXCheckBox2>(box)](
                                    const VXButtonToggleEvent2& event) {
        if (!edited->imitateEdit(event.isChecked()))
            made->setChecked(!event.isChecked());
    });
    return {box, {}};
}

Made spinBox(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    const PropertyType& type = property.type();
    auto* const box = new VXSpinBox2(&browser);
    box->setRange(
        {static_cast<int>(type.leastInteger()), static_cast<int>(type.greatestInteger())});
    constexpr long long Most = std::numeric_limits<int>::max();
    box->setSingleStep(static_cast<int>(std::min(type.integerStep(), Most)));
    const int value = static_cast<int>(property.valueAs<long long>());
    box->setValue(value);
    return {box, [made = VXHandle<VXSpinBox2>(box), value](VXSimpleProperty2& edited) {
                if (const int now = made->value(); made.isValid() && now != value)
                    edited.imitateEdit(now);
            }};
}

/// What is typed counts if it is a value of the type, and another text than there was: otherwise
/// what the program has set meanwhile would be undone.
Made line(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    const std::wstring text = property.valueTextU();
    auto* const edit = new VXEdit2(&browser);
    if (text.size() > MostEdited) {
        edit->setText(property.getValue());
        edit->setReadOnly(true);
        return {edit, {}};
    }
    edit->setText(text);
    return {edit, [made = VXHandle<VXEdit2>(edit), text](VXSimpleProperty2& edited) {
                if (const std::wstring now = made->textU(); made.isValid() && now != text)
                    edited.imitateEditText(now);
            }};
}

void addButton(VXEdit2& edit, const Icon& icon, LibraryText tip, std::function<void()> act)
{
    auto* const action = new VXAction2(&edit);
    action->setIcon(icon);
    action->setToolTip(translated(tip));
    action->triggered().connect(action, std::move(act));
    edit.addSideAction(action);
}

/// From what is typed, or from the value where that is no number.
void step(VXHandle<VXEdit2> edit, Property property, double steps)
{
    property.with([&](VXSimpleProperty2& edited) {
        const PropertyType& type = edited.type();
        any value = type.valueOf(edit->textU());
        if (!value.has_value())
            value = edited.value();
        const auto stepped = [&]() -> any {
            if (const auto* whole = std::any_cast<long long>(&value)) {
                // In floating point, so that it cannot run over.
                const double to = double(*whole) + steps * double(type.integerStep());
                return to <= double(type.leastInteger())      ? type.leastInteger()
                       : to >= double(type.greatestInteger()) ? type.greatestInteger()
                       : steps > 0                            ? *whole + type.integerStep()
                                                              : *whole - type.integerStep();
            }
            if (const auto* number = std::any_cast<double>(&value))
                return std::clamp(*number + steps * type.doubleStep(), type.leastDouble(),
                                  type.greatestDouble());
            return value;
        }();
        edit->setText(type.textOf(stepped));
    });
}

Made numberLine(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    Made made = line(browser, property);
    auto& edit = static_cast<VXEdit2&>(*made.editor);
    const VXHandle<VXEdit2> field(&edit);
    const Property edited(&property);
    addButton(edit, downIcon(), "Less", [=] { step(field, edited, -1); });
    addButton(edit, upIcon(), "More", [=] { step(field, edited, 1); });
    return made;
}

Made combo(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    auto* const box = new VXComboBox2(&browser);
    const auto& choices = property.type().choices();
    std::vector<ComboItem> items;
    items.reserve(choices.size());
    for (const PropertyChoice& choice : choices)
        items.push_back({.text = choice.name});
    box->addItems(items);
    const auto show = [made = VXHandle<VXComboBox2>(box)](const VXSimpleProperty2& it) {
        const auto& all = it.type().choices();
        const auto now = std::ranges::find(all, it.valueAs<long long>(), &PropertyChoice::value);
        made->setCurrentIndex(static_cast<int>(now - all.begin()));
    };
    show(property);
    box->currentChanged().connect(
        box, [show, edited = Property(&property)](const VXComboBoxSelectEvent2& event) {
            edited.with([&](VXSimpleProperty2& it) {
                const auto index = static_cast<std::size_t>(event.newIndex());
                if (index < it.type().choices().size()
                    && !it.imitateEdit(it.type().choices()[index].value) && edited.isValid())
                    show(it);
            });
        });
    return {box, {}};
}

/// One action for each flag; it is checked while all bits of the flag are set.
Made flagsButton(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    auto* const button = new VXToolButton2(property.valueTextU(), &browser);
    auto* const menu = new VXMenu2(button);
    std::vector<VXHandle<VXAction2>> actions;
    for (const PropertyChoice& choice : property.type().choices()) {
        VXAction2* const action = menu->addAction(choice.name);
        action->setCheckable(true);
        action->setChecked((property.valueAs<long long>() & choice.value) == choice.value);
        actions.emplace_back(action);
    }
    const auto show = [actions, made = VXHandle<VXToolButton2>(button)](VXSimpleProperty2& it) {
        made->setLabel(it.valueTextU());
        for (std::size_t i = 0; i < actions.size(); ++i) {
            const long long flag = it.type().choices()[i].value;
            actions[i]->setChecked((it.valueAs<long long>() & flag) == flag);
        }
    };
    for (std::size_t i = 0; i < actions.size(); ++i) {
        actions[i]->toggled().connect(
            button, [i, show, edited = Property(&property)](const VXActionToggleEvent2& event) {
                edited.with([&](VXSimpleProperty2& it) {
                    const long long flag = it.type().choices()[i].value;
                    const long long now = it.valueAs<long long>();
                    it.imitateEdit(event.isChecked() ? now | flag : now & ~flag);
                    if (edited.isValid())
                        show(it);
                });
            });
    }
    button->setToolButtonStyle(ToolButtonStyle::TextOnly);
    button->setPopupMode(ToolButtonPopupMode::Instant);
    button->setMenu(menu);
    button->setFocusPolicy(FocusPolicy::Strong);
    return {button, {}};
}

/// A palette to choose from, or to type something else.
Made colorBox(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    constexpr std::uint32_t Palette[] = {0x000000ff, 0x808080ff, 0xc0c0c0ff, 0xffffffff,
                                         0x800000ff, 0xff0000ff, 0x808000ff, 0xffff00ff,
                                         0x008000ff, 0x00ff00ff, 0x008080ff, 0x00ffffff,
                                         0x000080ff, 0x0000ffff, 0x800080ff, 0xff00ffff};
    const auto item = [](const Color& color) {
        return ComboItem{.text = PropertyType::color().textOf(color),
                         .icon = dotted({255, 255, 255, 255, 255, 255, 255, 255}, color.rgba())};
    };
    const std::wstring text = property.valueTextU();
    std::vector<ComboItem> items{item(property.valueAs<Color>())};
    for (const std::uint32_t rgba : Palette)
        items.push_back(item(Color::fromRgba(rgba)));
    auto* const box = new VXComboBox2(&browser);
    box->setEditable(true);
    box->setInsertPolicy(ComboInsertPolicy::None);
    box->addItems(items);
    box->setCurrentIndex(0);
    box->currentChanged().connect(
        box, [items, edited = Property(&property)](const VXComboBoxSelectEvent2& event) {
            const auto index = static_cast<std::size_t>(event.newIndex());
            if (index < items.size())
                edited->imitateEditText(items[index].text);
        });
    return {box, [made = VXHandle<VXComboBox2>(box), text](VXSimpleProperty2& edited) {
                const std::wstring now = made->currentTextU();
                if (made.isValid() && now != text && now != edited.valueTextU())
                    edited.imitateEditText(now);
            }};
}

/// Asks for a file, which leaves the editor: the property is told directly.
void chooseFile(VXHandle<VXSimplePropertyBrowser2> browser, Property property)
{
    using Dialog = VXFileDialog2;
    const PropertyType type = property.with([](VXSimpleProperty2& it) { return it.type(); });
    const auto now =
        property.with([](VXSimpleProperty2& it) { return it.valueAs<std::filesystem::path>(); });
    const std::wstring title = property->nameU();
    VXSimplePropertyBrowser2* const parent = browser.get();
    if (!parent)
        return;
    std::filesystem::path chosen;
    switch (type.fileMode()) {
    case FileDialogMode::Directory:
        chosen = Dialog::chooseDirectory(parent, title, now);
        break;
    case FileDialogMode::SaveFile:
        chosen = Dialog::saveFile(parent, title, now, type.fileFilters());
        break;
    default:
        chosen = Dialog::openFile(parent, title, now.parent_path(), type.fileFilters());
        break;
    }
    if (!chosen.empty())
        property->imitateEdit(chosen);
}

Made fileLine(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    Made made = line(browser, property);
    addButton(static_cast<VXEdit2&>(*made.editor), chooseIcon(), "Choose",
              [window = VXHandle<VXSimplePropertyBrowser2>(&browser),
               edited = Property(&property)] { chooseFile(window, edited); });
    return made;
}

/// Shows the text in a dialog, which leaves the editor: the property is told directly.
void editLines(VXHandle<VXSimplePropertyBrowser2> browser, Property property)
{
    const VXObjectDataLocker lock;
    VXSimplePropertyBrowser2* const parent = browser.get();
    if (!parent || !property.isValid())
        return;
    auto* const dialog = new VXDialog2(property->nameU(), parent);
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    auto* const area = new VXEditArea2(property->valueAs<std::wstring>(), dialog);
    rows->addWidget(area, 1);
    auto* const buttons = new VXBoxLayout2(rows, Direction::LeftToRight);
    rows->addLayout(buttons);
    buttons->addStretch();
    for (const auto& [text, result] : {std::pair(LibraryText("&OK"), VXDialog2::Accepted),
                                       std::pair(LibraryText("&Cancel"), VXDialog2::Rejected)}) {
        auto* const button = new VXButton2(translated(text), dialog);
        dialog->setButtonResult(button, result);
        buttons->addWidget(button);
    }
    // Only what the user has changed counts: line breaks are all alike in an area. Who hears of it
    // may end the browser, and all this with it.
    const std::wstring shown = area->textU();
    dialog->finished().connect(
        dialog, [=, edited = VXHandle<VXEditArea2>(area),
                 done = VXHandle<VXDialog2>(dialog)](const VXDialogEvent2& event) {
            const std::wstring now = edited->textU();
            if (event.result() == VXDialog2::Accepted && edited.isValid() && now != shown)
                property->imitateEdit(now);
            done->destroy();
        });
    dialog->resize({480, 320});
    dialog->open();
    area->setFocus();
}

Made linesLine(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    Made made = line(browser, property);
    addButton(static_cast<VXEdit2&>(*made.editor), chooseIcon(), "Edit",
              [window = VXHandle<VXSimplePropertyBrowser2>(&browser),
               edited = Property(&property)] { editLines(window, edited); });
    return made;
}

bool fitsSpinBox(const PropertyType& type)
{
    return std::in_range<int>(type.leastInteger()) && std::in_range<int>(type.greatestInteger());
}

Made make(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property)
{
    switch (property.type().kind()) {
    case PropertyKind::Bool:
        return checkBox(browser, property);
    case PropertyKind::Integer:
        return fitsSpinBox(property.type()) ? spinBox(browser, property)
                                            : numberLine(browser, property);
    case PropertyKind::Double:
        return numberLine(browser, property);
    case PropertyKind::Enumeration:
        return combo(browser, property);
    case PropertyKind::Flags:
        return flagsButton(browser, property);
    case PropertyKind::Color:
        return colorBox(browser, property);
    case PropertyKind::File:
        return fileLine(browser, property);
    case PropertyKind::MultilineText:
        return linesLine(browser, property);
    case PropertyKind::Group:
        return {};
    default:
        return line(browser, property);
    }
}

} // namespace

VXStandardPropertyEditors2::VXStandardPropertyEditors2() = default;
VXStandardPropertyEditors2::~VXStandardPropertyEditors2() = default;

std::shared_ptr<VXStandardPropertyEditors2> VXStandardPropertyEditors2::shared()
{
    static const auto editors = std::make_shared<VXStandardPropertyEditors2>();
    return editors;
}

unsigned VXStandardPropertyEditors2::createEditor(VXSimplePropertyBrowser2& browser,
                                                  VXSimpleProperty2& property)
{
    const Made made = make(browser, property);
    if (!made.editor)
        return 0;
    m_commits[made.editor->id()] = made.commit;
    return made.editor->id();
}

void VXStandardPropertyEditors2::commitEditor(VXSimpleProperty2& property, unsigned editor)
{
    const auto found = m_commits.find(editor);
    if (found == m_commits.end() || !found->second)
        return;
    const Commit commit = found->second; // what it calls may release it
    commit(property);
}

void VXStandardPropertyEditors2::releaseEditor(unsigned editor)
{
    m_commits.erase(editor);
    VXSimplePropertyEditorFactory2::releaseEditor(editor);
}

} // namespace VOXI
