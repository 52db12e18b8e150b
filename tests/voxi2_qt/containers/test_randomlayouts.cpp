// Trees of layouts and containers that grow, move and die at random.

#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

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
                VXFactory2::current()->destroyObject(object->id());
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
                if (child && child->isVisible()) {
                    EXPECT_EQ(child->parentWidget(), widget);
                    EXPECT_TRUE(widget->rect().contains(child->geometry()));
                }
            }
        }
    }

private:
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
        switch (below(3)) {
        case 0:
            return any<VXPanel2>();
        case 1:
            return any<VXFrame2>();
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
        // A flow that has not laid out yet must not make a window less than nothing.
        result->setContentsMargins(VXRect<int>::margins(2, 2, 2, 2));
        return result;
    }

    VXWidget2* makeKind(VXObject2* parent)
    {
        switch (below(8)) {
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
        else if (auto* view = dynamic_cast<VXScrollView2*>(where))
            view->setWidget(widget);
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
        } else if (auto* view = dynamic_cast<VXScrollView2*>(where)) {
            view->ensureWidgetVisible(widget);
            view->scrollBy({below(50) - 25, below(50) - 25});
        }
    }

    std::mt19937 m_random;
    VXWindow2 m_window;
    std::vector<unsigned> m_ids;
};

TEST(RandomLayouts, growMoveAndDie)
{
    const char* const given = std::getenv("VOXI_TEST_SEED");
    const unsigned seed =
        given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
    std::cout << "VOXI_TEST_SEED=" << seed << std::endl;
    SCOPED_TRACE("VOXI_TEST_SEED=" + std::to_string(seed));
    runDeletions(); // what other tests left
    const auto before = QApplication::allWidgets().size();
    for (unsigned tree = 0; tree < 8; ++tree) {
        RandomLayouts layouts(seed + tree);
        for (int i = 0; i < 300; ++i)
            layouts.step();
        turn();
        layouts.expectEverythingInPlace();
    }
    runDeletions();
    EXPECT_EQ(QApplication::allWidgets().size(), before) << "nothing is left";
}

} // namespace
} // namespace VOXI
