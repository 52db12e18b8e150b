#pragma once

#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxcolordialog2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxfontdialog2.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxtab2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/containers/vxtooltipwindow2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxdial2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vxhgscene2.h"
#include "voxi2/controls/vxhyperlink2.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/controls/vxlistbox2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxmimicsource2.h"
#include "voxi2/controls/vxmimicview2.h"
#include "voxi2/controls/vxnotificationbar2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxradiobutton2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/controls/vxsvgimage2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/controls/vxtextbrowser2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2/controls/vxwebbrowser2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2/modelview/vxexplorerbarview2.h"
#include "voxi2/modelview/vxpaletteview2.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"
#include "voxi2/modelview/vxtreemodel2.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <QAccessible>
#include <QMetaObject>

#include <concepts>
#include <functional>
#include <ostream>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace VOXI {

/// A kind of object that the back end has a peer for, as the contract tests see it.
struct Kind
{
    /// Something that is set and asked for; what is set here is neither the value of a new object
    /// nor what an object without a peer answers.
    struct Setting
    {
        const char* m_name;
        std::function<void(VXObject2&)> m_set;
        std::function<bool(const VXObject2&)> m_isSet;
    };

    /// Another object that is set and asked for, and may end.
    struct Reference
    {
        const char* m_name;
        std::function<VXObject2*(VXObject2* parent)> m_make;
        std::function<void(VXObject2&, VXObject2* other)> m_set;
        std::function<const VXObject2*(const VXObject2&)> m_get;
    };

    struct Event
    {
        const char* m_name;
        std::function<void(VXObject2&, TROV::Listener&, std::function<void()>)> m_connect;
        std::function<void(VXObject2&)> m_causeAsUser; ///< where that is simple
    };

    const char* m_name;
    VXObject2* (*m_make)(VXObject2* parent);
    const QMetaObject* m_qtClass;
    QAccessible::Role m_role; ///< NoRole for what is no widget
    const TROV::EmitterBase& (*m_request)(VXFactory2& factory);
    bool (*m_endsWhole)(); ///< of one on the stack: whether it is whole when its end is told
    std::vector<Setting> m_settings{};
    std::vector<Reference> m_references{};
    std::vector<Event> m_events{};

    template <class Object, class Value>
    Kind& has(const char* name, auto set, Value (Object::*get)() const,
              std::type_identity_t<Value> value)
    {
        m_settings.push_back(
            {name, [=](VXObject2& o) { std::invoke(set, dynamic_cast<Object&>(o), value); },
             [=](const VXObject2& o) { return (dynamic_cast<const Object&>(o).*get)() == value; }});
        return *this;
    }

    template <class Object, class Other>
    Kind& refersTo(const char* name, void (Object::*set)(Other*), Other* (Object::*get)() const)
    {
        using Model = VXAbstractViewModel2;
        using Made = std::conditional_t<
            std::same_as<Other, VXWidget2>, VXPanel2,
            std::conditional_t<std::same_as<Other, Model>, VXTableModel2, Other>>;
        m_references.push_back({name,
                                [](VXObject2* parent) -> VXObject2* { return new Made(parent); },
                                [=](VXObject2& o, VXObject2* other) {
                                    (dynamic_cast<Object&>(o).*set)(static_cast<Other*>(other));
                                },
                                [=](const VXObject2& o) -> const VXObject2* {
                                    return (dynamic_cast<const Object&>(o).*get)();
                                }});
        return *this;
    }

    template <class Object, class E>
    Kind& reports(const char* name, TROV::Signal<void(const E&)> (Object::*signal)() const,
                  std::type_identity_t<void (*)(Object&)> causeAsUser = nullptr)
    {
        m_events.push_back(
            {name,
             [=](VXObject2& o, TROV::Listener& listener, std::function<void()> handler) {
                 (dynamic_cast<Object&>(o).*signal)().connect(&listener, std::move(handler));
             },
             {}});
        if (causeAsUser)
            m_events.back().m_causeAsUser = [=](VXObject2& o) {
                causeAsUser(dynamic_cast<Object&>(o));
            };
        return *this;
    }

    friend std::ostream& operator<<(std::ostream& out, const Kind& kind)
    {
        return out << kind.m_name;
    }
};

/// All of them; a new kind is one row in kinds.cpp.
std::vector<Kind> allKinds();

} // namespace VOXI
