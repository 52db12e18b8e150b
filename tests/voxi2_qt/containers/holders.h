#pragma once

#include "../kernel/kinds.h"

#include <QLayout>

#include <functional>
#include <stdexcept>

namespace VOXI {

/// A kind of place for a widget. A tab may lie in all of them.
struct Holder
{
    const char* m_name;
    VXWidget2* (*m_make)(); ///< shown; what else is in it belongs to it
    std::function<void(VXWidget2& holder, VXTab2*)> m_put;
    std::function<bool(VXWidget2& holder, VXTab2*)> m_holds;
    std::function<void(VXWidget2& holder, VXTab2*)> m_drop; ///< empty where it would stay there
};

template <class Object>
VXWidget2* shown()
{
    auto* const made = new Object;
    made->setContentsMargins(VXRect<int>::margins(2, 2, 2, 2)); // a flow has no size at first
    made->show();
    return made;
}

template <class Object, class Child>
VXWidget2* shownWith()
{
    VXWidget2* const made = shown<Object>();
    if (auto* const tip = dynamic_cast<VXToolTipWindow2*>(made))
        tip->setTimeout(0); // the test may take longer
    new Child(made);
    return made;
}

template <class Pane>
VXWidget2* shownInDock()
{
    auto* const window = static_cast<VXWindow2*>(shown<VXWindow2>());
    auto* const dock = new VXDockWidget2(window);
    window->addDockWidget(dock);
    dock->setWidget(new Pane(window));
    return window;
}

inline VXWidget2* shownStack()
{
    auto* const stack = static_cast<VXWidgetStack2*>(shown<VXWidgetStack2>());
    stack->addWidget(new VXPanel2(stack));
    return stack;
}

/// Of that class: the holder itself, or what is in it.
template <class Object>
Object& find(VXWidget2& holder)
{
    if (auto* const found = dynamic_cast<Object*>(&holder))
        return *found;
    for (VXObject2* each : holder.children()) {
        if (auto* const found = dynamic_cast<Object*>(each))
            return *found;
    }
    throw std::logic_error("not in the holder");
}

template <class Object>
Holder holder(const char* name, VXWidget2* (*make)(), auto put, auto holds, auto drop)
{
    return {name, make, [=](auto& holder, auto* w) { put(find<Object>(holder), w); },
            [=](auto& holder, auto* w) { return holds(find<Object>(holder), w); },
            [=](auto& holder, auto* w) { drop(find<Object>(holder), w); }};
}

/// One that is set its widget.
template <class Object, auto Set, auto Get>
Holder holderOfOne(const char* name, VXWidget2* (*make)())
{
    return holder<Object>(
        name, make, [](auto& object, auto* w) { (object.*Set)(w); },
        [](auto& object, auto* w) { return (object.*Get)() == w; },
        [](auto& object, auto*) { (object.*Set)(nullptr); });
}

template <class Object, class Layout>
Holder layoutIn(const char* name)
{
    return {name,
            &shownWith<Object, Layout>,
            [](auto& holder, auto* w) { find<Layout>(holder).addWidget(w); },
            [](auto& holder, auto* w) {
                return w->peerParent() == &holder && qt(holder)->layout()->indexOf(qt(*w)) >= 0;
            },
            {}};
}

inline Holder tabs(const char* name, VXWidget2* (*make)())
{
    return holder<VXTabContainer2>(
        name, make, [](auto& tabs, auto* w) { tabs.addTab(w); },
        [](auto& tabs, auto* w) { return tabs.currentTab() == w; },
        [](auto& tabs, auto* w) { tabs.removeTab(w); });
}

using Dock = VXDockWidget2;

inline const Holder s_holders[] = {
    layoutIn<VXPanel2, VXBoxLayout2>("box"),
    layoutIn<VXPanel2, VXFlowLayout2>("flow"),
    layoutIn<VXPanel2, VXGridLayout2>("grid"),
    layoutIn<VXToolTipWindow2, VXBoxLayout2>("tool-tip window"),
    layoutIn<VXDialog2, VXBoxLayout2>("dialog"),
    holder<VXSplitter2>(
        "splitter", &shownWith<VXSplitter2, VXPanel2>,
        [](auto& splitter, auto* w) { splitter.addWidget(w); },
        [](auto& splitter, auto* w) { return splitter.widgetIndex(w) >= 0; },
        [](auto& splitter, auto* w) { splitter.removeWidget(w); }),
    holder<VXWidgetStack2>(
        "stack", &shownStack,
        [](auto& stack, auto* w) {
            stack.addWidget(w, 0);
            stack.raiseWidget(w);
        },
        [](auto& stack, auto* w) { return stack.currentWidget() == w; },
        [](auto& stack, auto* w) { stack.removeWidget(w); }),
    holder<VXWidgetStack2>(
        "hidden page", &shownStack, [](auto& stack, auto* w) { stack.addWidget(w); },
        [](auto& stack, auto* w) { return stack.widgetID(w) >= 0 && stack.currentWidget() != w; },
        [](auto& stack, auto* w) { stack.removeWidget(w); }),
    holder<VXScrollView2>(
        "scroll view", &shown<VXScrollView2>, [](auto& view, auto* w) { view.setWidget(w); },
        [](auto& view, auto* w) { return view.widget() == w; },
        [](auto& view, auto*) { view.setWidget(new VXPanel2(&view)); }),
    tabs("tabs", &shown<VXTabContainer2>),
    tabs("tabs in a pane", &shownInDock<VXTabContainer2>),
    holderOfOne<Dock, &Dock::setWidget, &Dock::widget>("dock", &shown<Dock>),
    holderOfOne<Dock, &Dock::setWidget, &Dock::widget>("pane", &shownInDock<VXPanel2>),
    holderOfOne<Dock, &Dock::setTitleBarWidget, &Dock::titleBarWidget>("dock's title",
                                                                       &shown<Dock>),
    holderOfOne<Dock, &Dock::setTitleBarWidget, &Dock::titleBarWidget>("pane's title",
                                                                       &shownInDock<VXPanel2>),
    holderOfOne<VXWindow2, &VXWindow2::setCentralWidget, &VXWindow2::centralWidget>(
        "window", &shown<VXWindow2>),
    holder<VXWindow2>(
        "status bar", &shown<VXWindow2>, [](auto& window, auto* w) { window.addStatusWidget(w); },
        [](auto& window, auto* w) {
            const QWidget* const bar = qt(*w)->parentWidget();
            return bar && bar->inherits("QStatusBar") && bar->parentWidget() == qt(window);
        },
        [](auto& window, auto* w) { window.removeStatusWidget(w); }),
};

} // namespace VOXI
