// Trees of layouts, containers and windows that grow, move and die at random.

#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/containers/vxtooltipwindow2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <set>
#include <typeinfo>

namespace VOXI {
namespace {

class RandomLayouts
{
public:
    explicit RandomLayouts(unsigned seed) : m_random(seed)
    {
        auto* root = new VXPanel2(&m_window);
        m_window.setCentralWidget(root);
        m_ids = {root->id(), (new VXBoxLayout2(root))->id()};
        m_window.show();
    }
    ~RandomLayouts()
    {
        for (const unsigned id : m_ids)
            delete static_cast<VXObject2*>(VXObject::objectById(id));
    }

    void step()
    {
        switch (below(10)) {
        case 0:
        case 1:
        case 2:
            place(any<VXObject2>(), add(makeWidget(below(5) == 0 ? nullptr : any<VXWidget2>())));
            break;
        case 3:
            makeLayout(fillable());
            break;
        case 4:
            place(any<VXObject2>(), any<VXWidget2>());
            break;
        case 5:
            remove(any<VXObject2>(), any<VXWidget2>());
            break;
        case 6:
            if (auto* layout = any<VXLayout2>())
                layout->setParent(fillable());
            break;
        case 7:
            if (below(2))
                delete any<VXObject2>();
            break;
        case 8:
            if (auto* object = any<VXObject2>(); object && below(4) == 0)
                cutOff(*object);
            break;
        default:
            for (int i = 0; i < 3; ++i)
                turn(); // sizes go up the tree and down again
            runDeletions();
            m_window.resize({200 + below(400), 200 + below(400)});
        }
    }

    /// Whatever has the room it needs shows all that boxes and grids lay out in it.
    void expectEverythingInPlace() const
    {
        for (const QWidget* widget : qt(m_window)->findChildren<QWidget*>()) {
            QLayout* const layout = widget->layout();
            const bool isFlow =
                !qobject_cast<QBoxLayout*>(layout) && !qobject_cast<QGridLayout*>(layout);
            if (!layout || isFlow || !widget->isVisible() || !layout->activate())
                continue;
            const QSize needed = layout->totalMinimumSize();
            if (needed.width() > widget->width() || needed.height() > widget->height())
                continue;
            for (int i = 0; i < layout->count(); ++i) {
                const QWidget* const child = layout->itemAt(i)->widget();
                if (child && child->isVisible() && !child->isWindow()) {
                    EXPECT_EQ(child->parentWidget(), widget);
                    EXPECT_TRUE(widget->rect().contains(child->geometry()));
                }
            }
        }
    }

    /// Whatever ended around them, objects keep their peers.
    void expectPeers() const
    {
        for (const unsigned id : m_ids) {
            auto* const object = static_cast<VXObject2*>(VXObject::objectById(id));
            bool isCutOff = false;
            for (const VXObject2* at = object; at; at = at->parent())
                isCutOff = isCutOff || m_cutOff.contains(at->id());
            if (object && !isCutOff) {
                EXPECT_NE(lookup(object), nullptr) << typeid(*object).name();
            }
        }
    }

private:
    /// Ends the peer alone, which takes along those of what its object owns.
    void cutOff(VXObject2& object)
    {
        m_cutOff.insert(object.id());
        for (const VXObject2* child : object.children(true))
            m_cutOff.insert(child->id()); // also if it gets another owner later
        VXFactory2::current()->destroyObject(object.id());
    }

    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }

    template <class Object>
    Object* any()
    {
        for (int tries = 0; tries < 20; ++tries) {
            const unsigned id = m_ids[static_cast<std::size_t>(below(int(m_ids.size())))];
            if (auto* object = dynamic_cast<Object*>(VXObject::objectById(id)))
                return object;
        }
        return nullptr;
    }

    /// What a layout may fill.
    VXWidget2* fillable()
    {
        VXWidget2* const result = anyFillable();
        if (result)
            setMargins(*result); // a frame that was squeezed has lost them
        return result;
    }

    /// A flow that has not laid out yet must not make a window less than nothing.
    static void setMargins(VXWidget2& widget)
    {
        widget.setContentsMargins(VXRect<int>::margins(2, 2, 2, 2));
    }

    VXWidget2* anyFillable()
    {
        switch (below(6)) {
        case 0:
            return any<VXPanel2>();
        case 4:
            return any<VXDialog2>();
        case 5:
            return any<VXToolTipWindow2>();
        case 1:
            return any<VXFrame2>();
        case 2:
            return any<VXTab2>();
        default:
            return any<VXGroupBox2>();
        }
    }

    template <class Object>
    Object* add(Object* object)
    {
        m_ids.push_back(object->id());
        return object;
    }

    VXWidget2* makeWidget(VXObject2* parent)
    {
        VXWidget2* const result = makeKind(parent);
        setMargins(*result);
        return result;
    }

    VXWidget2* makeKind(VXObject2* parent)
    {
        switch (below(15)) {
        case 0:
            return new VXPanel2(parent);
        case 1:
            return new VXFrame2(parent);
        case 2:
            return new VXGroupBox2(parent);
        case 3:
            return new VXSplitter2(parent, static_cast<Orientation>(1 + below(2)));
        case 4:
            return new VXWidgetStack2(parent);
        case 5:
            return new VXScrollView2(parent);
        case 6:
            return new VXTabContainer2(parent);
        case 7:
        case 8:
            return new VXTab2(parent);
        case 9: {
            auto* const window = new VXWindow2(parent);
            window->setWindowFlags(0);
            return window;
        }
        case 10:
        case 11:
            return new VXDockWidget2(parent);
        case 12:
            return below(2) ? static_cast<VXWidget2*>(new VXDialog2(parent))
                            : new VXToolTipWindow2(parent);
        default:
            return new VXButton2(parent);
        }
    }

    void makeLayout(VXWidget2* parent)
    {
        if (!parent)
            return;
        const auto direction = static_cast<Direction>(below(4));
        switch (below(3)) {
        case 0:
            add(new VXBoxLayout2(parent, direction));
            break;
        case 1:
            add(new VXFlowLayout2(parent, direction));
            break;
        default:
            add(new VXGridLayout2(parent));
        }
    }

    void place(VXObject2* where, VXWidget2* widget)
    {
        if (auto* box = dynamic_cast<VXBoxLayout2*>(where))
            box->insertWidget(widget, below(5) - 1, below(3));
        else if (auto* grid = dynamic_cast<VXGridLayout2*>(where))
            grid->addWidget(widget, VXRect<int>::cell(below(4), below(4), 1 + below(2), 1));
        else if (auto* layout = dynamic_cast<VXLayout2*>(where))
            layout->addWidget(widget, below(2) ? Alignment() : AlignmentFlag::Right);
        else if (auto* splitter = dynamic_cast<VXSplitter2*>(where))
            splitter->insertWidget(widget, below(5) - 1, below(3));
        else if (auto* stack = dynamic_cast<VXWidgetStack2*>(where))
            stack->addWidget(widget, below(5) - 1);
        else if (auto* tabs = dynamic_cast<VXTabContainer2*>(where))
            tabs->insertTab(below(2) ? any<VXTab2>() : dynamic_cast<VXTab2*>(widget), below(5) - 1);
        else if (auto* view = dynamic_cast<VXScrollView2*>(where))
            view->setWidget(widget);
        else if (auto* dock = dynamic_cast<VXDockWidget2*>(where))
            below(3) ? dock->setWidget(widget) : dock->setTitleBarWidget(widget);
        else if (auto* window = dynamic_cast<VXWindow2*>(where))
            placeInWindow(*window, widget);
        else if (auto* tip = dynamic_cast<VXToolTipWindow2*>(where))
            tip->popup(widget);
        else if (auto* dialog = dynamic_cast<VXDialog2*>(where))
            dialog->setVisible(below(2));
    }

    void placeInWindow(VXWindow2& window, VXWidget2* widget)
    {
        auto* const dock = below(3) ? any<VXDockWidget2>() : dynamic_cast<VXDockWidget2*>(widget);
        switch (below(5)) {
        case 0:
            window.setCentralWidget(widget);
            break;
        case 1:
            window.addStatusWidget(widget, below(2));
            break;
        case 2:
            window.tabifyDockWidget(any<VXDockWidget2>(), dock);
            break;
        case 3:
            window.splitDockWidget(any<VXDockWidget2>(), dock, Orientation::Vertical);
            break;
        default:
            window.addDockWidget(dock, static_cast<DockArea>(1 << below(4)));
        }
    }

    void remove(VXObject2* where, VXWidget2* widget)
    {
        if (auto* layout = dynamic_cast<VXLayout2*>(where)) {
            layout->removeWidget(widget);
            layout->refresh();
        } else if (auto* splitter = dynamic_cast<VXSplitter2*>(where)) {
            splitter->removeWidget(widget);
        } else if (auto* stack = dynamic_cast<VXWidgetStack2*>(where)) {
            stack->raiseWidget(widget);
            stack->removeWidget(widget);
        } else if (auto* tabs = dynamic_cast<VXTabContainer2*>(where)) {
            VXTab2* const tab = tabs->tabAt(below(3));
            tabs->setCurrentTab(tab);
            if (tab && below(2))
                tab->setTabEnabled(!tab->isTabEnabled());
            else if (tab)
                tab->setVisible(below(2));
            tabs->removeTab(below(2) ? tabs->tabAt(0) : dynamic_cast<VXTab2*>(widget));
        } else if (auto* view = dynamic_cast<VXScrollView2*>(where)) {
            view->ensureWidgetVisible(widget);
            view->scrollBy({below(50) - 25, below(50) - 25});
        } else if (auto* dock = dynamic_cast<VXDockWidget2*>(where)) {
            if (below(2))
                dock->setFloating(below(2));
            else
                below(2) ? dock->setWidget(nullptr) : dock->setTitleBarWidget(nullptr);
        } else if (auto* window = dynamic_cast<VXWindow2*>(where)) {
            window->removeStatusWidget(widget);
            window->removeDockWidget(any<VXDockWidget2>());
            if (below(2))
                EXPECT_EQ(window->restoreLayout(window->saveLayout()), lookup(window) != nullptr);
            else
                window->setCentralWidget(nullptr);
        }
    }

    std::mt19937 m_random;
    VXWindow2 m_window;
    std::vector<unsigned> m_ids;
    std::set<unsigned> m_cutOff;
};

/// Without the one that stands for the whole screen, which Qt makes once for itself.
auto numberOfWidgets()
{
    const QWidgetList all = QApplication::allWidgets();
    return std::count_if(all.begin(), all.end(),
                         [](const QWidget* widget) { return widget->windowType() != Qt::Desktop; });
}

TEST(RandomLayouts, growMoveAndDie)
{
    const char* const given = std::getenv("VOXI_TEST_SEED");
    const unsigned seed =
        given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
    std::cout << "VOXI_TEST_SEED=" << seed << std::endl;
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    runDeletions(); // of the tests before
    const auto before = numberOfWidgets();
    for (unsigned tree = 0; tree < 8; ++tree) {
        RandomLayouts layouts(seed + tree);
        for (int i = 0; i < 300; ++i)
            layouts.step();
        turn();
        runDeletions();
        layouts.expectPeers();
        layouts.expectEverythingInPlace();
    }
    runDeletions();
    EXPECT_EQ(numberOfWidgets(), before) << "nothing is left";
}

} // namespace
} // namespace VOXI
