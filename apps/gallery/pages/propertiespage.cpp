#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/modelview/vxpropertypages2.h"

#include <chrono>
#include <functional>
#include <utility>

namespace gallery {

using namespace VOXI;

namespace {

const std::vector<PropertyChoice> FocusChoices = {
    {L"none", 0}, {L"Tab", 1}, {L"click", 2}, {L"Tab and click", 3}, {L"wheel as well", 4}};
const std::vector<PropertyChoice> EventChoices = {
    {L"touch", 1}, {L"drops", 2}, {L"pointer without a button", 4}};

/// The properties of a widget, in a browser: read from it at each refresh, set in it by the user.
class Inspected
{
public:
    using Get = std::function<any()>;
    using Set = std::function<void(const any&)>;

    Inspected(VXSimplePropertyBrowser2* browser, EventLog& log) : m_browser(browser), m_log(log) {}

    VXSimpleProperty2* group(const char* name)
    {
        m_group = new VXSimpleProperty2(name, m_browser);
        m_browser->addProperty(m_group);
        m_browser->setExpanded(m_group, true);
        return m_group;
    }

    VXSimpleProperty2* add(const char* name, const PropertyType& type, const char* description,
                           Get get, Set set)
    {
        auto* const property = new VXSimpleProperty2(name, type, m_browser);
        property->setDescription(description);
        property->setValue(get());
        property->setDefaultValue(get());
        property->setSource(std::move(get));
        property->setReadOnly(!set);
        property->valueEdited().connect(
            m_browser, [set, browser = m_browser, &log = m_log](const auto& event) {
                log.add(event.property()->name() + " = " + event.property()->valueText());
                set(event.newValue());
                browser->refresh(); // what else it has changed
            });
        m_browser->addProperty(property, m_group);
        return property;
    }

private:
    VXSimplePropertyBrowser2* m_browser;
    VXSimpleProperty2* m_group = nullptr;
    EventLog& m_log;
};

template <class T>
T as(const any& value)
{
    return std::any_cast<T>(value);
}

void addGeometry(Inspected& all, VXWidget2* widget)
{
    all.group("Geometry")->setDescription("Where the widget is; its layout has a say in it.");
    const auto side = [&](const char* name, const char* description, int Size<int>::*which,
                          int least) {
        all.add(
            name, PropertyType::integer(least, 600, 10), description,
            [=] { return any(widget->minimumSize().*which); },
            [=](const any& value) {
                Size<int> size = widget->minimumSize();
                size.*which = static_cast<int>(as<long long>(value));
                widget->setMinimumSize(size);
            });
    };
    side("least width", "The widget is not made narrower, in pixels.", &Size<int>::width, 0);
    side("least height", "The widget is not made lower, in pixels.", &Size<int>::height, 0);
    all.add("position", PropertyType::text(), "Left, top, width and height as they are.",
            [=] {
                const VXRect<int> now = widget->position();
                return any(std::to_string(now.x) + ", " + std::to_string(now.y) + "; "
                           + std::to_string(now.width) + " x " + std::to_string(now.height));
            },
            {});
}

void addLooks(Inspected& all, VXWidget2* widget)
{
    all.group("Looks");
    all.add(
        "font", PropertyType::font(), "As \"Serif, 14, bold, italic\".",
        [=] { return any(widget->font()); },
        [=](const any& value) { widget->setFont(as<VXFont>(value)); });
    const auto color = [&](const char* name, ColorRole role) {
        all.add(
            name, PropertyType::color(), "Chosen from the palette, or typed as \"#rrggbb\".",
            [=] { return any(widget->color(role)); },
            [=](const any& value) { widget->setColor(role, as<Color>(value)); });
    };
    color("background", ColorRole::Background);
    color("text colour", ColorRole::Foreground);
    all.add(
        "tool tip", PropertyType::multilineText(), "Shown while the pointer rests on the widget.",
        [=] { return any(widget->toolTipU()); },
        [=](const any& value) { widget->setToolTip(as<std::wstring>(value)); });
}

void addBehaviour(Inspected& all, VXWidget2* widget)
{
    all.group("Behaviour");
    all.add(
        "enabled", PropertyType::boolean(), "Whether the user can use it.",
        [=] { return any(widget->isEnabled()); },
        [=](const any& value) { widget->setEnabled(as<bool>(value)); });
    all.add(
        "focus", PropertyType::enumeration(FocusChoices), "How it gets the keyboard.",
        [=] { return any(static_cast<int>(widget->focusPolicy())); },
        [=](const any& value) {
            widget->setFocusPolicy(static_cast<FocusPolicy>(as<long long>(value)));
        });
    all.add(
        "takes", PropertyType::flags(EventChoices), "What is reported of it.",
        [=] {
            return any((widget->isTouchEnabled() ? 1 : 0) | (widget->canAcceptDrops() ? 2 : 0)
                       | (widget->hasMouseTracking() ? 4 : 0));
        },
        [=](const any& value) {
            const auto flags = as<long long>(value);
            widget->setTouchEnabled(flags & 1);
            widget->setAcceptDrops(flags & 2);
            widget->setMouseTracking(flags & 4);
        });
}

/// What belongs to no widget, for the types that these have none of.
void addOthers(VXSimplePropertyBrowser2* browser)
{
    const auto add = [=](const char* name, const PropertyType& type, const char* description) {
        auto* const property = new VXSimpleProperty2(name, type, browser);
        property->setDescription(description);
        property->setDefaultValue(property->value());
        browser->addProperty(property);
        return property;
    };
    add("share", PropertyType::decimal(0, 1, 0.05, 2), "From 0 to 1 in steps of 0.05.");
    add("even", PropertyType::integer(0, 100, 2), "A validator refuses what is odd.")
        ->setValidator([](const any& value) -> std::wstring {
            return as<long long>(value) % 2 == 0 ? L"" : L"That is odd.";
        });
    add("day", PropertyType::date(), "As \"2026-11-22\".");
    add("file", PropertyType::file(), "Typed, or chosen by the small button.");
    add("far", PropertyType::integer(), "All of 64 bits.");
}

/// Two widgets, and beside them what there is to know of them.
VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = row(parent, 16);
    const Box left = column(page.panel, 8);
    auto* const button = new VXButton2("A button", left.panel);
    button->setObjectName("properties-button");
    auto* const edit = new VXEdit2("Type here", left.panel);
    edit->setObjectName("properties-edit");
    edit->setAccessibleName("Edit");
    left.layout->addWidget(button);
    left.layout->addWidget(edit);
    left.layout->addStretch();
    page.layout->addWidget(left.panel, 1);

    auto* const pages = new VXPropertyPages2(page.panel);
    pages->setObjectName("properties");
    page.layout->addWidget(pages, 2);
    const auto inspect = [&](const char* title, VXWidget2* widget, const Inspected::Get& text,
                             const Inspected::Set& setText) {
        VXSimplePropertyBrowser2* const browser = pages->addPage(title);
        Inspected all(browser, log);
        all.add("text", PropertyType::text(), "What stands on it.", text, setText);
        addBehaviour(all, widget);
        addLooks(all, widget);
        addGeometry(all, widget);
        const auto refresh = [browser] { browser->refresh(); };
        widget->moved().connect(browser, refresh);
        widget->resized().connect(browser, refresh);
    };
    inspect(
        "Button", button, [=] { return any(button->labelU()); },
        [=](const any& value) { button->setLabel(as<std::wstring>(value)); });
    inspect(
        "Edit", edit, [=] { return any(edit->textU()); },
        [=](const any& value) { edit->setText(as<std::wstring>(value)); });
    addOthers(pages->addPage("Others"));
    edit->textEdited().connect(pages, [pages] { pages->refresh(); });
    return page.panel;
}

} // namespace

Page propertiesPage()
{
    return {"properties", "Properties",
            "What the two widgets on the left are like, live: edit a value, or type into the field "
            "and resize the window. One search for all pages; the foot says why an entry was "
            "refused.",
            &create};
}

} // namespace gallery
