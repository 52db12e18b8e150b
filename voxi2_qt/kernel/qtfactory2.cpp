#include "voxi2_qt/kernel/qtfactory2.h"

#include "../modelview/qtviewmodelpeer2.h"
#include "sidelibrary.h"
#include "trov/connection.h"
#include "voxi/vxbridge.h"
#include "voxi2/controls/vxhgscene2.h"
#include "voxi2/controls/vxsvgimage2.h"
#include "voxi2_qt/containers/qtboxlayout2.h"
#include "voxi2_qt/containers/qtcolordialog2.h"
#include "voxi2_qt/containers/qtdialog2.h"
#include "voxi2_qt/containers/qtdockwidget2.h"
#include "voxi2_qt/containers/qtfiledialog2.h"
#include "voxi2_qt/containers/qtflowlayout2.h"
#include "voxi2_qt/containers/qtfontdialog2.h"
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
#include "voxi2_qt/controls/qtcombobox2.h"
#include "voxi2_qt/controls/qtdial2.h"
#include "voxi2_qt/controls/qtedit2.h"
#include "voxi2_qt/controls/qteditarea2.h"
#include "voxi2_qt/controls/qthyperlink2.h"
#include "voxi2_qt/controls/qtimage2.h"
#include "voxi2_qt/controls/qtlistbox2.h"
#include "voxi2_qt/controls/qtmenu2.h"
#include "voxi2_qt/controls/qtmenubar2.h"
#include "voxi2_qt/controls/qtmimicsource2.h"
#include "voxi2_qt/controls/qtmimicview2.h"
#include "voxi2_qt/controls/qtnotificationbar2.h"
#include "voxi2_qt/controls/qtprogressbar2.h"
#include "voxi2_qt/controls/qtradiobutton2.h"
#include "voxi2_qt/controls/qtslider2.h"
#include "voxi2_qt/controls/qtspinbox2.h"
#include "voxi2_qt/controls/qttext2.h"
#include "voxi2_qt/controls/qttextbrowser2.h"
#include "voxi2_qt/controls/qttoolbar2.h"
#include "voxi2_qt/controls/qttoolbutton2.h"
#include "voxi2_qt/controls/qtwebbrowser2.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtclipboard2.h"
#include "voxi2_qt/kernel/qtdragdelegate2.h"
#include "voxi2_qt/kernel/qtdragmanager2.h"
#include "voxi2_qt/modelview/qtexplorerbarview2.h"
#include "voxi2_qt/modelview/qtpaletteview2.h"
#include "voxi2_qt/modelview/qtsimplepropertybrowser2.h"
#include "voxi2_qt/modelview/qttableview2.h"
#include "voxi2_qt/modelview/qttreeview2.h"

namespace VOXI {

class QtHGScene2;
class QtSvgImage2;

namespace {

/// Where a peer is put, as what its constructor takes: the widget of the abstract parent, or the Qt
/// object. Null for none, or for one of another kind.
class Parent
{
public:
    explicit Parent(VXObject* object) : m_object(object) {}

    operator QWidget*() const { return m_object ? qWidgetOf(lookup(m_object)) : nullptr; }
    operator QObject*() const { return m_object ? qObjectOf(lookup(m_object)) : nullptr; }

private:
    VXObject* m_object;
};

// What a request carries, as the peer's constructor takes it.
template <class Argument>
Argument forPeer(Argument argument)
{
    return argument;
}

Parent forPeer(VXObject* parent) { return Parent(parent); }

/// All dialogs have the same frame, whatever flags the requests carry.
Qt::WindowFlags forPeer(unsigned) { return Qt::WindowTitleHint | Qt::WindowSystemMenuHint; }

template <class Peer>
struct Making
{
    template <class... Arguments>
    static QtObject2* make(Arguments... arguments)
    {
        return new Peer(arguments...);
    }
};

/// Of a peer that lies in a library of its own, which is loaded with the first.
template <const char* Library, const char* Missing>
struct MakingAside
{
    static QtObject2* make(VXObject2* object, void* emitters, QWidget* parent)
    {
        static const auto makePeer = reinterpret_cast<decltype(&voxi2_qt_makePeer)>(
            sideLibraryFunction(Library, "voxi2_qt_makePeer", Missing));
        return makePeer ? makePeer(object, emitters, parent) : nullptr;
    }
};

constexpr char SceneLibrary[] = "voxi2_qt_scene";
constexpr char NoScenes[] = "no scenes";
constexpr char SvgLibrary[] = "voxi2_qt_svg";
constexpr char NoDrawings[] = "no drawings";

template <>
struct Making<QtHGScene2> : MakingAside<SceneLibrary, NoScenes>
{};

template <>
struct Making<QtSvgImage2> : MakingAside<SvgLibrary, NoDrawings>
{};

/// It has no other parents than widgets, though it is none.
template <>
struct Making<QtMimicSource2>
{
    static QtObject2* make(VXMimicSource2* object, VXMimicSource2Emitters* emitters,
                           QWidget* parent)
    {
        return new QtMimicSource2(object, emitters, parent);
    }
};

} // namespace

QtFactory2* QtFactory2::m_factory = nullptr;

void QtFactory2::createFactory(VXFactory2* factory)
{
    if (!m_factory)
        m_factory = new QtFactory2(*factory);
}

QtFactory2::QtFactory2(VXFactory2& factory) : m_thread(factory.getBridge()->thread())
{
    // In the order of the requests in `VXFactory2`; kinds without a peer are left unconnected.
    serve<QtAction2>(factory.createAction2);
    serve<QtBoxLayout2>(factory.createBoxLayout2);
    serve<QtButton2>(factory.createButton2);
    serve<QtCheckBox2>(factory.createCheckBox2);
    serve<QtComboBox2>(factory.createComboBox2);
    serve<QtSpinBox2>(factory.createSpinBox2);
    serve<QtDialog2>(factory.createDialog2);
    serve<QtFileDialog2>(factory.createFileDialog2);
    serve<QtDockWidget2>(factory.createDockWidget2);
    serve<QtDragManager2>(factory.createDragManager2);
    serve<QtDragDelegate2>(factory.createDragDelegate2);
    serve<QtClipboard2>(factory.createClipboard2);
    serve<QtEdit2>(factory.createEdit2);
    serve<QtEditArea2>(factory.createEditArea2);
    serve<QtFlowLayout2>(factory.createFlowLayout2);
    serve<QtFrame2>(factory.createFrame2);
    serve<QtGridLayout2>(factory.createGridLayout2);
    serve<QtGroupBox2>(factory.createGroupBox2);
    serve<QtHGScene2>(factory.createHGScene2);
    serve<QtHyperLink2>(factory.createHyperLink2);
    serve<QtImage2>(factory.createImage2);
    serve<QtListBox2>(factory.createListBox2);
    serve<QtMenu2>(factory.createMenu2);
    serve<QtMenuBar2>(factory.createMenuBar2);
    serve<QtPanel2>(factory.createPanel2);
    serve<QtProgressBar2>(factory.createProgressBar2);
    serve<QtRadioButton2>(factory.createRadioButton2);
    serve<QtScrollView2>(factory.createScrollView2);
    serve<QtSimplePropertyBrowser2>(factory.createSimplePropertyBrowser2);
    serve<QtSplitter2>(factory.createSplitter2);
    serve<QtSvgImage2>(factory.createSvgImage2);
    serve<QtTab2>(factory.createTab2);
    serve<QtTabContainer2>(factory.createTabContainer2);
    serve<QtTableView2>(factory.createTableView2);
    serve<QtViewModelPeer2>(factory.createViewModel2);
    serve<QtText2>(factory.createText2);
    serve<QtTextBrowser2>(factory.createTextBrowser2);
    serve<QtToolBar2>(factory.createToolbar2);
    serve<QtToolButton2>(factory.createToolButton2);
    serve<QtTreeView2>(factory.createTreeView2);
    serve<QtWebBrowser2>(factory.createWebBrowser2);
    serve<QtWidgetStack2>(factory.createWidgetStack2);
    serve<QtWindow2>(factory.createWindow2);
    serve<QtPaletteView2>(factory.createPaletteView2);
    serve<QtExplorerBarView2>(factory.createExplorerBarView2);
    serve<QtToolTipWindow2>(factory.createToolTipWindow2);
    serve<QtMimicSource2>(factory.createMimicSource2);
    serve<QtMimicView2>(factory.createMimicView2);
    serve<QtNotificationBar2>(factory.createNotificationBar2);
    serve<QtSlider2>(factory.createSlider2);
    serve<QtDial2>(factory.createDial2);
    serve<QtColorDialog2>(factory.createColorDialog2);
    serve<QtFontDialog2>(factory.createFontDialog2);
    factory.destroyObject.connect(this, &QtFactory2::destroyObject, m_thread);
}

QtFactory2::~QtFactory2() { disconnect(); }

/// Has a request make peers of class `Peer`. One that throws is not left behind, and nothing is
/// made for an object that has ended meanwhile.
template <class Peer, class Object, class Emitters, class... Rest>
void QtFactory2::serve(const TROV::Emitter<void(Object*, Emitters*, Rest...)>& request)
{
    const auto create = [](Object* object, Emitters* emitters, Rest... rest) {
        if (!VXObject::isObjectValid(object))
            return;
        if (QtObject2* const peer = Making<Peer>::make(object, emitters, forPeer(rest)...))
            peer->init();
    };
    request.connect(this, create, m_thread);
}

void QtFactory2::destroyObject(unsigned uid)
{
    if (QtObject2* peer = qtPeer(lookup(uid)))
        peer->endService();
}

} // namespace VOXI
