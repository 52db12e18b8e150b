#include "voxi2/modelview/vxsimpleproperty2.h"

#include "trov/thread.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi_util/textencoding.h"

#include <algorithm>
#include <exception>
#include <typeinfo>
#include <utility>

namespace VOXI {

namespace {

/// More of a text cannot be seen in a line, and would be laid out each time all the same.
constexpr std::size_t MostShown = 1'000;

} // namespace

VXSimpleProperty2::VXSimpleProperty2(VXObject2* parent)
    : VXSimpleProperty2(AnyText(), PropertyType(), parent)
{}

VXSimpleProperty2::VXSimpleProperty2(const AnyText& name, VXObject2* parent)
    : VXSimpleProperty2(name, PropertyType(), parent)
{}

VXSimpleProperty2::VXSimpleProperty2(const AnyText& name, const any& value, VXObject2* parent)
    : VXSimpleProperty2(name, PropertyType::of(value), parent)
{
    setValue(value);
}

VXSimpleProperty2::VXSimpleProperty2(const AnyText& name, const PropertyType& type,
                                     VXObject2* parent)
    : VXObject2(parent),
      m_type(type),
      m_name(name.toWide()),
      m_value(type.initialValue()),
      m_emitters(VXObject2::m_emitters)
{
    finishBuilding(this);
}

VXSimpleProperty2::~VXSimpleProperty2()
{
    retire();
    const VXObjectDataLocker lock;
    for (const Showing& each : std::exchange(m_showings, {})) {
        if (auto* browser = static_cast<VXSimplePropertyBrowser2*>(objectById(each.browser)))
            browser->drop(this);
    }
}

// What it is --------------------------------------------------------------------------------------

void VXSimpleProperty2::setName(const AnyText& name)
{
    const VXObjectDataLocker lock;
    m_name = name.toWide();
    touch();
}

std::string VXSimpleProperty2::name() const { return narrowFromWide(nameU()); }

std::wstring VXSimpleProperty2::nameU() const
{
    const VXObjectDataLocker lock;
    return m_name;
}

void VXSimpleProperty2::setDescription(const AnyText& text)
{
    const VXObjectDataLocker lock;
    m_description = text.toWide();
}

std::wstring VXSimpleProperty2::description() const
{
    const VXObjectDataLocker lock;
    return m_description;
}

void VXSimpleProperty2::setSource(Source source)
{
    const VXObjectDataLocker lock;
    m_source.swap(source); // the former one may be running
    touch();
}

void VXSimpleProperty2::setReadOnly(bool readOnly)
{
    const VXObjectDataLocker lock;
    m_isReadOnly = readOnly;
}

bool VXSimpleProperty2::isReadOnly() const
{
    const VXObjectDataLocker lock;
    return m_isReadOnly || m_type.kind() == PropertyKind::Group;
}

void VXSimpleProperty2::setValidator(Validator validator)
{
    const VXObjectDataLocker lock;
    m_validator.swap(validator);
}

std::wstring VXSimpleProperty2::validationMessage() const
{
    const VXObjectDataLocker lock;
    return m_message;
}

void VXSimpleProperty2::setNameTextColor(const Color& color)
{
    const VXObjectDataLocker lock;
    m_nameColor = color;
    touch();
}

// Values ------------------------------------------------------------------------------------------

bool VXSimpleProperty2::setValue(const any& value)
{
    any kept = m_type.accepted(value);
    if (!kept.has_value())
        return false;
    const VXObjectDataLocker lock;
    m_message.clear();
    if (m_value.has_value() && m_type.areEqual(m_value, kept))
        return true;
    m_value = std::move(kept);
    touch();
    return true;
}

any VXSimpleProperty2::value() const
{
    const VXObjectDataLocker lock;
    return m_value;
}

std::string VXSimpleProperty2::valueText() const { return narrowFromWide(valueTextU()); }
std::wstring VXSimpleProperty2::valueTextU() const { return m_type.textOf(value()); }

bool VXSimpleProperty2::setDefaultValue(const any& value)
{
    any kept = m_type.accepted(value);
    if (!kept.has_value() && value.has_value())
        return false;
    const VXObjectDataLocker lock;
    m_default = std::move(kept);
    touch();
    return true;
}

any VXSimpleProperty2::defaultValue() const
{
    const VXObjectDataLocker lock;
    return m_default;
}

bool VXSimpleProperty2::isDefault() const
{
    const VXObjectDataLocker lock;
    return !m_default.has_value() || m_type.areEqual(m_value, m_default);
}

void VXSimpleProperty2::reset() { setValue(defaultValue()); }

// As the user -------------------------------------------------------------------------------------

bool VXSimpleProperty2::imitateEdit(const any& value)
{
    const VXObjectDataLocker lock;
    const VXHandle<VXSimpleProperty2> self(this);
    if (isReadOnly())
        return false;
    any kept = m_type.accepted(value);
    if (!kept.has_value())
        return refuse(m_type.wish());
    if (const Validator validator = m_validator) {
        std::wstring message;
        try {
            message = validator(kept);
        } catch (...) {
            TROV::Thread::reportException(std::current_exception());
        }
        if (!self.isValid())
            return false;
        if (!message.empty())
            return refuse(std::move(message));
    }
    const bool isNew = !m_value.has_value() || !m_type.areEqual(m_value, kept);
    setValue(kept);
    if (isNew && self.isValid())
        m_emitters.valueEdited(VXPropertyValueEvent2(this, std::move(kept)));
    return true;
}

bool VXSimpleProperty2::imitateEditText(const AnyText& text)
{
    return imitateEdit(m_type.valueOf(text.toWide()));
}

bool VXSimpleProperty2::imitateReset()
{
    const any value = defaultValue();
    return value.has_value() && imitateEdit(value);
}

/// Under the object lock.
bool VXSimpleProperty2::refuse(std::wstring message)
{
    m_message = std::move(message);
    m_emitters.editRefused(VXPropertyRefusalEvent2(this, m_message));
    return false;
}

// What is shown -----------------------------------------------------------------------------------

std::wstring VXSimpleProperty2::getName() const { return nameU(); }

std::wstring VXSimpleProperty2::getValue() const
{
    const VXObjectDataLocker lock;
    const auto* const text = std::any_cast<std::wstring>(&m_value);
    if (!text || text->size() <= MostShown)
        return m_type.textOfKept(m_value);
    return m_type.textOfKept(text->substr(0, MostShown)) + L'\x2026';
}

Color VXSimpleProperty2::getNameTextColor() const
{
    const VXObjectDataLocker lock;
    return m_nameColor;
}

void VXSimpleProperty2::refreshData()
{
    Source source;
    {
        const VXObjectDataLocker lock;
        source = m_source;
    }
    if (!source)
        return;
    const VXHandle<VXSimpleProperty2> self(this);
    const any value = source();
    self.with([&](VXSimpleProperty2& property) { property.setValue(value); });
}

void VXSimpleProperty2::touch()
{
    const VXObjectDataLocker lock;
    std::vector<unsigned> untold; // a copy: telling may wait for room, without the lock
    for (Showing& each : m_showings) {
        if (!std::exchange(each.isTold, true))
            untold.push_back(each.browser);
    }
    const VXHandle<VXSimpleProperty2> self(this);
    for (const unsigned each : untold) {
        if (auto* browser = static_cast<VXSimplePropertyBrowser2*>(objectById(each)))
            browser->tellNews(self);
    }
}

// For back ends -----------------------------------------------------------------------------------

bool VXSimpleProperty2::isPlain() const noexcept
{
    return typeid(*this) == typeid(VXSimpleProperty2);
}

void VXSimpleProperty2::setShownIn(unsigned browser, bool isShown)
{
    std::erase_if(m_showings, [=](const Showing& each) { return each.browser == browser; });
    if (isShown)
        m_showings.push_back({browser, false});
}

void VXSimpleProperty2::noteRead(unsigned browser) noexcept
{
    for (Showing& each : m_showings) {
        if (each.browser == browser)
            each.isTold = false;
    }
}

} // namespace VOXI
