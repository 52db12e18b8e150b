#include "voxi2/controls/vxfieldnote2.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/translation.h"

#include <iterator>

namespace VOXI {

namespace {

struct Looks
{
    const wchar_t* m_sign;
    LibraryText m_spoken; ///< the sign for those who do not see it
    Color m_color;        ///< to be told from light and from dark grounds
};

/// What is none looks like the first.
const Looks& looksOf(ValidationState state)
{
    static const Looks all[] = {{L"", "", Color()},
                                {L"\u2713", "Success", Color(36, 150, 72)},
                                {L"!", "Warning", Color(214, 130, 20)},
                                {L"\u00d7", "Error", Color(210, 60, 60)}};
    const auto index = static_cast<std::size_t>(state);
    return all[index < std::size(all) ? index : 0];
}

std::wstring descriptionOf(VXHandle<VXWidget2> field)
{
    return field.with([](const VXWidget2& widget) { return widget.accessibleDescription(); });
}

} // namespace

VXFieldNote2::VXFieldNote2(VXHandle<VXWidget2> field, VXObject2* parent)
    : VXPanel2(parent),
      m_field(field),
      m_description(descriptionOf(field)),
      m_sign(new VXText2(this)),
      m_text(new VXText2(this))
{
    hide();
    auto* const row = new VXBoxLayout2(this);
    row->setMargins({0, 0, 0, 0});
    m_sign->setFont(VXFont(std::string(), 0, VXFont::Bold));
    m_text->setWordWrap(true);
    row->addWidget(m_sign, 0, AlignmentFlag::Top);
    row->addWidget(m_text, 1);
}

VXFieldNote2::~VXFieldNote2() { retire(); }

void VXFieldNote2::setValidationState(ValidationState state, const AnyText& message)
{
    const VXObjectDataLocker lock;
    const Looks& looks = looksOf(state);
    const bool isShown = *looks.m_sign;
    m_state = isShown ? state : ValidationState::None;
    m_message = message.toWide();
    m_sign->setText(looks.m_sign);
    m_sign->setAccessibleName(isShown ? translated(looks.m_spoken) : std::wstring());
    m_sign->setColor(ColorRole::Foreground, looks.m_color);
    m_text->setText(m_message);
    const std::wstring& description = isShown && !m_message.empty() ? m_message : m_description;
    m_field.with([&](VXWidget2& field) {
        field.setHighlight(isShown, looks.m_color);
        field.setAccessibleDescription(description);
    });
    setVisible(isShown); // last: it is laid out, and whoever hears of that may do anything
}

ValidationState VXFieldNote2::validationState() const
{
    const VXObjectDataLocker lock;
    return m_state;
}

std::wstring VXFieldNote2::message() const
{
    const VXObjectDataLocker lock;
    return m_message;
}

} // namespace VOXI
