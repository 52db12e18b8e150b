#pragma once

#include "voxi2/kernel/vxobject2.h"
#include "voxi2/modelview/propertytype.h"
#include "voxi2/modelview/vxpropertyevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/color.h"

#include <functional>
#include <string>
#include <vector>

namespace VOXI {

struct VXSimpleProperty2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXPropertyValueEvent2&)> valueEdited{*this};
    TROV::Event<void(const VXPropertyRefusalEvent2&)> editRefused{*this};
};

/// A name with a value of a certain type, which property browsers show and let the user edit.
///
///     auto* width = new VXSimpleProperty2("Width", PropertyType::integer(1, 500), owner);
///     width->setSource([view] { return any(view->size().width); });
///     width->valueEdited().connect(view, [view](const VXPropertyValueEvent2& event) { ... });
///     browser->addProperty(width);
///
/// It belongs to the object it is made with, not to the browsers that show it; of these there may
/// be several, and a property that ends leaves them. Whatever is set is shown without further ado.
/// Everything may be called from any thread.
///
/// A class of the application may override what is virtual. Its overrides are called under the
/// object lock, on the toolkit's thread if nothing else is said, and again at each refresh; they
/// may end anything. What they throw goes to the thread's exception handler, and what was shown
/// stays.
class VOXI2_EXPORT VXSimpleProperty2 : public VXObject2
{
public:
    using ToolkitClass = VXSimpleProperty2;

    /// Gives the value as it is now.
    using Source = std::function<any()>;
    /// Says why the user may not give that value; empty: he may.
    using Validator = std::function<std::wstring(const any& value)>;

    /// A group without a name.
    explicit VXSimpleProperty2(VXObject2* parent = nullptr);
    /// A group.
    explicit VXSimpleProperty2(const AnyText& name, VXObject2* parent = nullptr);
    VXSimpleProperty2(const AnyText& name, const PropertyType& type, VXObject2* parent = nullptr);
    /// Of the type that fits the value: see `PropertyType::of`.
    VXSimpleProperty2(const AnyText& name, const any& value, VXObject2* parent = nullptr);
    ~VXSimpleProperty2() override;

    const PropertyType& type() const noexcept { return m_type; }

    void setName(const AnyText& name);
    std::string name() const;
    std::wstring nameU() const;

    /// What else there is to say of it; empty at first.
    void setDescription(const AnyText& text);
    std::wstring description() const;

    /// Not reported. False, and no change, for what is no value of the type; the validator is not
    /// asked.
    bool setValue(const any& value);
    /// Of the C++ type that `PropertyKind` names; empty for groups.
    any value() const;
    /// The value as a `T`; a default one where it is none.
    template <class T>
    T valueAs() const
    {
        const any kept = value();
        const T* const found = std::any_cast<T>(&kept);
        return found ? *found : T();
    }
    std::string valueText() const;
    std::wstring valueTextU() const;

    /// Where the value comes from whenever a browser is refreshed: called as `refreshData`. None at
    /// first, or with an empty function.
    void setSource(Source source);

    /// Whether the user may only look; a group is read-only.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const;

    /// What `reset` goes back to; false for what is no value of the type, and an empty one takes
    /// the default away. None at first.
    bool setDefaultValue(const any& value);
    any defaultValue() const;
    /// Whether the value is the default; true where there is none. Browsers show other values bold.
    bool isDefault() const;
    /// Not reported.
    void reset();

    /// Judges what the user enters. Called under the object lock; what it throws goes to the
    /// thread's exception handler, and the value counts as good then.
    void setValidator(Validator validator);
    /// Why the last edit was refused; empty once one was not, or the program has set a value.
    std::wstring validationMessage() const;

    /// The colour of the name; one of opacity 0, as at first, leaves it as other texts are.
    void setNameTextColor(const Color& color);

    // As if the user had done it: reported. False if it was refused.

    /// Nothing is reported for the value that it has.
    bool imitateEdit(const any& value);
    bool imitateEditText(const AnyText& text);
    bool imitateReset();

    // What is shown

    virtual std::wstring getName() const;
    /// As a text of one line. Texts are shown up to their 1000th character.
    virtual std::wstring getValue() const;
    virtual Color getNameTextColor() const;
    /// Brings the value up to date, from the source unless it is overridden. Called on the thread
    /// named "KESTRA" where there is one: see `VXSimplePropertyBrowser2::refresh`.
    virtual void refreshData();

    /// Has all browsers read again what is shown.
    void touch();

    // Events

    /// The user has given it another value; `value()` is that already.
    TROV::Signal<void(const VXPropertyValueEvent2&)> valueEdited() const
    {
        return m_emitters.valueEdited.signal();
    }
    /// The user has tried to; `validationMessage()` says why it was refused.
    TROV::Signal<void(const VXPropertyRefusalEvent2&)> editRefused() const
    {
        return m_emitters.editRefused.signal();
    }

    // For back ends, under the object lock

    /// What is shown of one that `isPlain`, without a copy.
    const std::wstring& keptName() const noexcept { return m_name; }
    const Color& keptNameTextColor() const noexcept { return m_nameColor; }
    /// Whether each change is told to the browsers: nothing is overridden.
    bool isPlain() const noexcept;
    /// Whether `refreshData` does anything.
    bool isPulled() const noexcept { return m_source || !isPlain(); }
    /// A browser begins or ends to show it.
    void setShownIn(unsigned browser, bool isShown);
    /// A browser reads it now: it is told of changes again from here on.
    void noteRead(unsigned browser) noexcept;

private:
    struct Showing
    {
        unsigned browser;
        bool isTold; // that there are news, which it has not read
    };

    bool refuse(std::wstring message);

    const PropertyType m_type;

    // Guarded by the object lock.
    std::wstring m_name;
    std::wstring m_description;
    any m_value;
    any m_default;
    Source m_source;
    Validator m_validator;
    std::wstring m_message;
    Color m_nameColor{0, 0, 0, 0};
    std::vector<Showing> m_showings;
    bool m_isReadOnly = false;

    VXSimpleProperty2Emitters m_emitters;
};

} // namespace VOXI
