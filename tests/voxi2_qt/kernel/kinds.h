#pragma once

#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxflowlayout2.h"
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
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxradiobutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxdragdelegate2.h"

#include <QAccessible>
#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include <ostream>
#include <typeinfo>

namespace VOXI {

/// A kind of object that the back end has a peer for, as the contract tests see it.
struct Kind
{
    const char* m_name;
    VXObject2* (*m_make)(VXObject2* parent);
    const QMetaObject* m_qtClass;
    QAccessible::Role m_role; ///< NoRole for what is no widget
    const TROV::EmitterBase& (*m_request)(VXFactory2& factory);
    bool (*m_endsWhole)(); ///< of one on the stack: whether it is whole when its end is told

    friend std::ostream& operator<<(std::ostream& out, const Kind& kind)
    {
        return out << kind.m_name;
    }
};

template <class Object, class Q, auto Request>
Kind kind(const char* name, QAccessible::Role role = QAccessible::NoRole)
{
    return {name,
            [](VXObject2* parent) -> VXObject2* { return new Object(parent); },
            &Q::staticMetaObject,
            role,
            [](VXFactory2& factory) -> const TROV::EmitterBase& { return factory.*Request; },
            [] {
                bool whole = false;
                {
                    Object object(nullptr);
                    object.destroyed().connect(nullptr,
                                               [&] { whole = typeid(object) == typeid(Object); });
                }
                return whole;
            }};
}

/// All of them; a new kind is one line here.
inline std::vector<Kind> allKinds()
{
    using F = VXFactory2;
    return {
        kind<VXAction2, QAction, &F::createAction2>("Action"),
        kind<VXBoxLayout2, QBoxLayout, &F::createBoxLayout2>("BoxLayout"),
        kind<VXButton2, QPushButton, &F::createButton2>("Button", QAccessible::Button),
        kind<VXCheckBox2, QCheckBox, &F::createCheckBox2>("CheckBox", QAccessible::CheckBox),
        kind<VXDialog2, QDialog, &F::createDialog2>("Dialog", QAccessible::Dialog),
        kind<VXFileDialog2, QFileDialog, &F::createFileDialog2>("FileDialog", QAccessible::Dialog),
        kind<VXDockWidget2, QDockWidget, &F::createDockWidget2>("DockWidget", QAccessible::Window),
        kind<VXDragDelegate2, QObject, &F::createDragDelegate2>("DragDelegate"),
        kind<VXFlowLayout2, QLayout, &F::createFlowLayout2>("FlowLayout"),
        kind<VXFrame2, QFrame, &F::createFrame2>("Frame", QAccessible::Border),
        kind<VXGridLayout2, QGridLayout, &F::createGridLayout2>("GridLayout"),
        kind<VXGroupBox2, QGroupBox, &F::createGroupBox2>("GroupBox", QAccessible::Grouping),
        kind<VXMenu2, QMenu, &F::createMenu2>("Menu", QAccessible::PopupMenu),
        kind<VXMenuBar2, QMenuBar, &F::createMenuBar2>("MenuBar", QAccessible::MenuBar),
        kind<VXPanel2, QWidget, &F::createPanel2>("Panel", QAccessible::Client),
        kind<VXRadioButton2, QRadioButton, &F::createRadioButton2>("RadioButton",
                                                                   QAccessible::RadioButton),
        kind<VXScrollView2, QScrollArea, &F::createScrollView2>("ScrollView", QAccessible::Client),
        kind<VXSplitter2, QSplitter, &F::createSplitter2>("Splitter", QAccessible::Splitter),
        kind<VXTab2, QWidget, &F::createTab2>("Tab", QAccessible::Client),
        kind<VXTabContainer2, QTabWidget, &F::createTabContainer2>("TabContainer",
                                                                   QAccessible::Client),
        kind<VXText2, QLabel, &F::createText2>("Text", QAccessible::StaticText),
        kind<VXToolBar2, QToolBar, &F::createToolbar2>("ToolBar", QAccessible::ToolBar),
        kind<VXToolButton2, QToolButton, &F::createToolButton2>("ToolButton", QAccessible::Button),
        kind<VXToolTipWindow2, QWidget, &F::createToolTipWindow2>("ToolTipWindow",
                                                                  QAccessible::ToolTip),
        kind<VXWidgetStack2, QStackedWidget, &F::createWidgetStack2>("WidgetStack",
                                                                     QAccessible::LayeredPane),
        kind<VXWindow2, QMainWindow, &F::createWindow2>("Window", QAccessible::Window),
    };
}

} // namespace VOXI
