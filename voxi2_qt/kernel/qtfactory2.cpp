#include "voxi2_qt/kernel/qtfactory2.h"

#include "trov/connection.h"
#include "voxi/vxbridge.h"
#include "voxi2_qt/containers/qtboxlayout2.h"
#include "voxi2_qt/containers/qtdialog2.h"
#include "voxi2_qt/containers/qtdockwidget2.h"
#include "voxi2_qt/containers/qtfiledialog2.h"
#include "voxi2_qt/containers/qtflowlayout2.h"
#include "voxi2_qt/containers/qtframe2.h"
#include "voxi2_qt/containers/qtgridlayout2.h"
#include "voxi2_qt/containers/qtgroupbox2.h"
#include "voxi2_qt/containers/qtpanel2.h"
#include "voxi2_qt/containers/qtscrollview2.h"
#include "voxi2_qt/containers/qtsplitter2.h"
#include "voxi2_qt/containers/qttab2.h"
#include "voxi2_qt/containers/qttabcontainer2.h"
#include "voxi2_qt/containers/qttooltipwindow2.h"
#include "voxi2_qt/containers/qtwidgetstack2.h"
#include "voxi2_qt/containers/qtwindow2.h"
#include "voxi2_qt/controls/qtbutton2.h"
#include "voxi2_qt/controls/qtcheckbox2.h"
#include "voxi2_qt/controls/qtmenu2.h"
#include "voxi2_qt/controls/qtmenubar2.h"
#include "voxi2_qt/controls/qtradiobutton2.h"
#include "voxi2_qt/controls/qttext2.h"
#include "voxi2_qt/controls/qttoolbar2.h"
#include "voxi2_qt/controls/qttoolbutton2.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtdragdelegate2.h"
#include "voxi2_qt/kernel/qtdragmanager2.h"

namespace VOXI {

namespace {

/// Makes a peer of class `Peer` and finishes it. A peer that throws is not left behind. Nothing is
/// made for an object that has ended meanwhile.
template <class Peer, class Object, class... Arguments>
void create(Object* object, Arguments... arguments)
{
    if (!VXObject::isObjectValid(object))
        return;
    auto* peer = new Peer(object, arguments...);
    peer->init();
}

/// All dialogs have the same frame, whatever flags the requests carry.
constexpr Qt::WindowFlags DialogFlags = Qt::WindowTitleHint | Qt::WindowSystemMenuHint;

} // namespace

QtFactory2* QtFactory2::m_factory = nullptr;

void QtFactory2::createFactory(VXFactory2* factory)
{
    if (!m_factory)
        m_factory = new QtFactory2(factory);
}

QtFactory2::QtFactory2(VXFactory2* factory)
{
    TROV::Thread* const thread = factory->getBridge()->thread();
    const auto connect = [&](auto& request, auto operation) {
        request.connect(this, operation, thread);
    };
    // In the order of the requests in `VXFactory2`; kinds without a peer are left unconnected.
    connect(factory->createAction2, &QtFactory2::createAction2);
    connect(factory->createBoxLayout2, &QtFactory2::createBoxLayout2);
    connect(factory->createButton2, &QtFactory2::createButton2);
    connect(factory->createCheckBox2, &QtFactory2::createCheckBox2);
    connect(factory->createDialog2, &QtFactory2::createDialog2);
    connect(factory->createFileDialog2, &QtFactory2::createFileDialog2);
    connect(factory->createDockWidget2, &QtFactory2::createDockWidget2);
    connect(factory->createDragManager2, &QtFactory2::createDragManager2);
    connect(factory->createDragDelegate2, &QtFactory2::createDragDelegate2);
    connect(factory->createFlowLayout2, &QtFactory2::createFlowLayout2);
    connect(factory->createFrame2, &QtFactory2::createFrame2);
    connect(factory->createGridLayout2, &QtFactory2::createGridLayout2);
    connect(factory->createGroupBox2, &QtFactory2::createGroupBox2);
    connect(factory->createMenu2, &QtFactory2::createMenu2);
    connect(factory->createMenuBar2, &QtFactory2::createMenuBar2);
    connect(factory->createPanel2, &QtFactory2::createPanel2);
    connect(factory->createRadioButton2, &QtFactory2::createRadioButton2);
    connect(factory->createScrollView2, &QtFactory2::createScrollView2);
    connect(factory->createSplitter2, &QtFactory2::createSplitter2);
    connect(factory->createTab2, &QtFactory2::createTab2);
    connect(factory->createTabContainer2, &QtFactory2::createTabContainer2);
    connect(factory->createText2, &QtFactory2::createText2);
    connect(factory->createToolbar2, &QtFactory2::createToolbar2);
    connect(factory->createToolButton2, &QtFactory2::createToolButton2);
    connect(factory->createWidgetStack2, &QtFactory2::createWidgetStack2);
    connect(factory->createWindow2, &QtFactory2::createWindow2);
    connect(factory->createToolTipWindow2, &QtFactory2::createToolTipWindow2);
    connect(factory->destroyObject, &QtFactory2::destroyObject);
}

QtFactory2::~QtFactory2() { disconnect(); }

QWidget* QtFactory2::getQWidget(VXObject* object)
{
    return object ? qWidgetOf(lookup(object)) : nullptr;
}

QObject* QtFactory2::getQObject(VXObject* object)
{
    return object ? qObjectOf(lookup(object)) : nullptr;
}

void QtFactory2::createAction2(VXAction2* object, VXAction2Emitters* emitters, VXObject* parent)
{
    create<QtAction2>(object, emitters, getQObject(parent));
}

void QtFactory2::createBoxLayout2(VXBoxLayout2* object, VXBoxLayout2Emitters* emitters,
                                  VXObject* parent, Direction direction)
{
    create<QtBoxLayout2>(object, emitters, getQWidget(parent), direction);
}

void QtFactory2::createButton2(VXButton2* object, VXButton2Emitters* emitters, VXObject* parent)
{
    create<QtButton2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createCheckBox2(VXCheckBox2* object, VXCheckBox2Emitters* emitters,
                                 VXObject* parent)
{
    create<QtCheckBox2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createDialog2(VXDialog2* object, VXDialog2Emitters* emitters, VXObject* parent,
                               unsigned)
{
    create<QtDialog2>(object, emitters, getQWidget(parent), DialogFlags);
}

void QtFactory2::createFileDialog2(VXFileDialog2* object, VXFileDialog2Emitters* emitters,
                                   VXObject* parent, unsigned)
{
    create<QtFileDialog2>(object, emitters, getQWidget(parent), DialogFlags);
}

void QtFactory2::createDockWidget2(VXDockWidget2* object, VXDockWidget2Emitters* emitters,
                                   VXObject* parent)
{
    create<QtDockWidget2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createDragManager2(VXObject2* object, VXDragManager2Emitters* emitters)
{
    create<QtDragManager2>(object, emitters);
}

void QtFactory2::createDragDelegate2(VXDragDelegate2* object, VXDragDelegate2Emitters* emitters)
{
    create<QtDragDelegate2>(object, emitters);
}

void QtFactory2::createFlowLayout2(VXFlowLayout2* object, VXFlowLayout2Emitters* emitters,
                                   VXObject* parent, Direction direction)
{
    create<QtFlowLayout2>(object, emitters, getQWidget(parent), direction);
}

void QtFactory2::createFrame2(VXFrame2* object, VXFrame2Emitters* emitters, VXObject* parent)
{
    create<QtFrame2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createGridLayout2(VXGridLayout2* object, VXGridLayout2Emitters* emitters,
                                   VXObject* parent)
{
    create<QtGridLayout2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createGroupBox2(VXGroupBox2* object, VXGroupBox2Emitters* emitters,
                                 VXObject* parent)
{
    create<QtGroupBox2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createMenu2(VXMenu2* object, VXMenu2Emitters* emitters, VXObject* parent)
{
    create<QtMenu2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createMenuBar2(VXMenuBar2* object, VXMenuBar2Emitters* emitters, VXObject* parent)
{
    create<QtMenuBar2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createPanel2(VXPanel2* object, VXPanel2Emitters* emitters, VXObject* parent)
{
    create<QtPanel2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createRadioButton2(VXRadioButton2* object, VXRadioButton2Emitters* emitters,
                                    VXObject* parent)
{
    create<QtRadioButton2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createScrollView2(VXScrollView2* object, VXScrollView2Emitters* emitters,
                                   VXObject* parent)
{
    create<QtScrollView2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createSplitter2(VXSplitter2* object, VXSplitter2Emitters* emitters,
                                 VXObject* parent, Orientation orientation)
{
    create<QtSplitter2>(object, emitters, getQWidget(parent), orientation);
}

void QtFactory2::createTab2(VXTab2* object, VXTab2Emitters* emitters, VXObject* parent)
{
    create<QtTab2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createTabContainer2(VXTabContainer2* object, VXTabContainer2Emitters* emitters,
                                     VXObject* parent)
{
    create<QtTabContainer2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createText2(VXText2* object, VXText2Emitters* emitters, VXObject* parent)
{
    create<QtText2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createToolbar2(VXToolBar2* object, VXToolBar2Emitters* emitters, VXObject* parent)
{
    create<QtToolBar2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createToolButton2(VXToolButton2* object, VXToolButton2Emitters* emitters,
                                   VXObject* parent)
{
    create<QtToolButton2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createToolTipWindow2(VXToolTipWindow2* object, VXToolTipWindow2Emitters* emitters,
                                      VXObject* parent)
{
    create<QtToolTipWindow2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createWidgetStack2(VXWidgetStack2* object, VXWidgetStack2Emitters* emitters,
                                    VXObject* parent)
{
    create<QtWidgetStack2>(object, emitters, getQWidget(parent));
}

void QtFactory2::createWindow2(VXWindow2* object, VXWindow2Emitters* emitters, VXObject* parent)
{
    create<QtWindow2>(object, emitters, getQWidget(parent));
}

void QtFactory2::destroyObject(unsigned uid)
{
    const QtReportHold hold;
    if (QtObject2* peer = qtPeer(lookup(uid)))
        peer->doDestroy();
}

} // namespace VOXI
