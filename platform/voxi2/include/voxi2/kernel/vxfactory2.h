#pragma once

#include "trov/emitter.h"
#include "trov/listener.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/stringid.h"

namespace VOXI {

class VXAbstractViewModel2;
class VXAction2;
class VXBoxLayout2;
class VXBridge;
class VXButton2;
class VXCheckBox2;
class VXColorDialog2;
class VXComboBox2;
class VXDial2;
class VXDialog2;
class VXDockWidget2;
class VXDragDelegate2;
class VXEdit2;
class VXEditArea2;
class VXExplorerBarView2;
class VXFileDialog2;
class VXFlowLayout2;
class VXFontDialog2;
class VXFrame2;
class VXGridLayout2;
class VXGroupBox2;
class VXHGScene2;
class VXHyperLink2;
class VXImage2;
class VXListBox2;
class VXMenu2;
class VXMenuBar2;
class VXMimicSource2;
class VXMimicView2;
class VXNotificationBar2;
class VXObject;
class VXObject2;
class VXPaletteView2;
class VXPanel2;
class VXProgressBar2;
class VXPropertyBrowser2;
class VXRadioButton2;
class VXScrollView2;
class VXSimplePropertyBrowser2;
class VXSlider2;
class VXSpinBox2;
class VXSplitter2;
class VXSvgImage2;
class VXTab2;
class VXTabContainer2;
class VXTableView2;
class VXText2;
class VXTextBrowser2;
class VXToolBar2;
class VXToolButton2;
class VXToolTipWindow2;
class VXTreeView2;
class VXWebBrowser2;
class VXWidgetStack2;
class VXWindow2;

struct VXAbstractViewModel2Emitters;
struct VXAction2Emitters;
struct VXBoxLayout2Emitters;
struct VXButton2Emitters;
struct VXCheckBox2Emitters;
struct VXClipboard2Emitters;
struct VXColorDialog2Emitters;
struct VXComboBox2Emitters;
struct VXDial2Emitters;
struct VXDialog2Emitters;
struct VXDockWidget2Emitters;
struct VXDragDelegate2Emitters;
struct VXDragManager2Emitters;
struct VXEdit2Emitters;
struct VXEditArea2Emitters;
struct VXExplorerBarView2Emitters;
struct VXFileDialog2Emitters;
struct VXFlowLayout2Emitters;
struct VXFontDialog2Emitters;
struct VXFrame2Emitters;
struct VXGridLayout2Emitters;
struct VXGroupBox2Emitters;
struct VXHGScene2Emitters;
struct VXHyperLink2Emitters;
struct VXImage2Emitters;
struct VXListBox2Emitters;
struct VXMenu2Emitters;
struct VXMenuBar2Emitters;
struct VXMimicSource2Emitters;
struct VXMimicView2Emitters;
struct VXNotificationBar2Emitters;
struct VXPaletteView2Emitters;
struct VXPanel2Emitters;
struct VXProgressBar2Emitters;
struct VXPropertyBrowser2Emitters;
struct VXRadioButton2Emitters;
struct VXScrollView2Emitters;
struct VXSimplePropertyBrowser2Emitters;
struct VXSlider2Emitters;
struct VXSpinBox2Emitters;
struct VXSplitter2Emitters;
struct VXSvgImage2Emitters;
struct VXTab2Emitters;
struct VXTabContainer2Emitters;
struct VXTableView2Emitters;
struct VXText2Emitters;
struct VXTextBrowser2Emitters;
struct VXToolBar2Emitters;
struct VXToolButton2Emitters;
struct VXToolTipWindow2Emitters;
struct VXTreeView2Emitters;
struct VXWebBrowser2Emitters;
struct VXWidgetStack2Emitters;
struct VXWindow2Emitters;

/// What the abstract side asks of a back end as a whole: to make and to destroy peers.
///
/// A creation request carries the abstract object, its emitters and the object that holds it, some
/// an extra argument. It returns when the peer exists, on whatever thread it was sent; what the
/// peer's constructor throws reaches the sender. Kinds that nobody serves get no peer.
class VOXI2_EXPORT VXFactory2
{
public:
    /// The calling thread becomes the one that the bridge's listeners run on.
    explicit VXFactory2(VXBridge* bridge);
    ~VXFactory2();
    VXFactory2(const VXFactory2&) = delete;
    VXFactory2& operator=(const VXFactory2&) = delete;

    VXBridge* getBridge() const noexcept { return m_bridge; }

    /// Makes `factory` the one of that key, and the current one if there is none; null takes the
    /// key's factory out. Factories are not owned. While one is registered, windows are raised as
    /// its bridge says.
    static void registerFactory(const StringID& key, VXFactory2* factory);

    /// The factory of that key, or null.
    static VXFactory2* getFactory(const StringID& key);

    /// The factory that new objects of the calling thread get their peers from; null while no back
    /// end is up.
    static VXFactory2* current() noexcept;

    /// Makes the factory of that key the current one; false, and no change, when there is none.
    static bool setCurrent(const StringID& key);

    /// While one lives, new objects of its thread get their peers from the factory of that key,
    /// whichever is current elsewhere; none as long as there is no such factory.
    class VOXI2_EXPORT Scope
    {
    public:
        explicit Scope(StringID key);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        friend class VXFactory2;
        StringID m_key;
        const Scope* m_outer;
    };

    /// Takes all factories out: from now on objects get no peers.
    static void unregisterAll();

    // The requests, in the order in which back ends connect to them.
    TROV::Emitter3<void, VXAction2*, VXAction2Emitters*, VXObject*> createAction2;
    TROV::Emitter4<void, VXBoxLayout2*, VXBoxLayout2Emitters*, VXObject*, Direction>
        createBoxLayout2;
    TROV::Emitter3<void, VXButton2*, VXButton2Emitters*, VXObject*> createButton2;
    TROV::Emitter3<void, VXCheckBox2*, VXCheckBox2Emitters*, VXObject*> createCheckBox2;
    TROV::Emitter3<void, VXComboBox2*, VXComboBox2Emitters*, VXObject*> createComboBox2;
    TROV::Emitter3<void, VXSpinBox2*, VXSpinBox2Emitters*, VXObject*> createSpinBox2;
    TROV::Emitter4<void, VXDialog2*, VXDialog2Emitters*, VXObject*, unsigned> createDialog2;
    TROV::Emitter4<void, VXFileDialog2*, VXFileDialog2Emitters*, VXObject*, unsigned>
        createFileDialog2;
    TROV::Emitter3<void, VXDockWidget2*, VXDockWidget2Emitters*, VXObject*> createDockWidget2;
    TROV::Emitter2<void, VXObject2*, VXDragManager2Emitters*> createDragManager2;
    TROV::Emitter2<void, VXDragDelegate2*, VXDragDelegate2Emitters*> createDragDelegate2;
    TROV::Emitter2<void, VXObject2*, VXClipboard2Emitters*> createClipboard2;
    TROV::Emitter3<void, VXEdit2*, VXEdit2Emitters*, VXObject*> createEdit2;
    TROV::Emitter3<void, VXEditArea2*, VXEditArea2Emitters*, VXObject*> createEditArea2;
    TROV::Emitter4<void, VXFlowLayout2*, VXFlowLayout2Emitters*, VXObject*, Direction>
        createFlowLayout2;
    TROV::Emitter3<void, VXFrame2*, VXFrame2Emitters*, VXObject*> createFrame2;
    TROV::Emitter3<void, VXGridLayout2*, VXGridLayout2Emitters*, VXObject*> createGridLayout2;
    TROV::Emitter3<void, VXGroupBox2*, VXGroupBox2Emitters*, VXObject*> createGroupBox2;
    TROV::Emitter3<void, VXHGScene2*, VXHGScene2Emitters*, VXObject*> createHGScene2;
    TROV::Emitter3<void, VXHyperLink2*, VXHyperLink2Emitters*, VXObject*> createHyperLink2;
    TROV::Emitter3<void, VXImage2*, VXImage2Emitters*, VXObject*> createImage2;
    TROV::Emitter3<void, VXListBox2*, VXListBox2Emitters*, VXObject*> createListBox2;
    TROV::Emitter3<void, VXMenu2*, VXMenu2Emitters*, VXObject*> createMenu2;
    TROV::Emitter3<void, VXMenuBar2*, VXMenuBar2Emitters*, VXObject*> createMenuBar2;
    TROV::Emitter3<void, VXPanel2*, VXPanel2Emitters*, VXObject*> createPanel2;
    TROV::Emitter3<void, VXProgressBar2*, VXProgressBar2Emitters*, VXObject*> createProgressBar2;
    TROV::Emitter3<void, VXPropertyBrowser2*, VXPropertyBrowser2Emitters*, VXObject*>
        createPropertyBrowser2;
    TROV::Emitter3<void, VXRadioButton2*, VXRadioButton2Emitters*, VXObject*> createRadioButton2;
    TROV::Emitter3<void, VXScrollView2*, VXScrollView2Emitters*, VXObject*> createScrollView2;
    TROV::Emitter3<void, VXSimplePropertyBrowser2*, VXSimplePropertyBrowser2Emitters*, VXObject*>
        createSimplePropertyBrowser2;
    TROV::Emitter4<void, VXSplitter2*, VXSplitter2Emitters*, VXObject*, Orientation>
        createSplitter2;
    TROV::Emitter3<void, VXSvgImage2*, VXSvgImage2Emitters*, VXObject*> createSvgImage2;
    TROV::Emitter3<void, VXTab2*, VXTab2Emitters*, VXObject*> createTab2;
    TROV::Emitter3<void, VXTabContainer2*, VXTabContainer2Emitters*, VXObject*> createTabContainer2;
    TROV::Emitter3<void, VXTableView2*, VXTableView2Emitters*, VXObject*> createTableView2;
    TROV::Emitter3<void, VXAbstractViewModel2*, VXAbstractViewModel2Emitters*, VXObject*>
        createViewModel2;
    TROV::Emitter3<void, VXText2*, VXText2Emitters*, VXObject*> createText2;
    TROV::Emitter3<void, VXTextBrowser2*, VXTextBrowser2Emitters*, VXObject*> createTextBrowser2;
    TROV::Emitter3<void, VXToolBar2*, VXToolBar2Emitters*, VXObject*> createToolbar2;
    TROV::Emitter3<void, VXToolButton2*, VXToolButton2Emitters*, VXObject*> createToolButton2;
    TROV::Emitter3<void, VXTreeView2*, VXTreeView2Emitters*, VXObject*> createTreeView2;
    TROV::Emitter3<void, VXWebBrowser2*, VXWebBrowser2Emitters*, VXObject*> createWebBrowser2;
    TROV::Emitter3<void, VXWidgetStack2*, VXWidgetStack2Emitters*, VXObject*> createWidgetStack2;
    TROV::Emitter3<void, VXWindow2*, VXWindow2Emitters*, VXObject*> createWindow2;
    TROV::Emitter3<void, VXPaletteView2*, VXPaletteView2Emitters*, VXObject*> createPaletteView2;
    TROV::Emitter3<void, VXExplorerBarView2*, VXExplorerBarView2Emitters*, VXObject*>
        createExplorerBarView2;
    TROV::Emitter3<void, VXToolTipWindow2*, VXToolTipWindow2Emitters*, VXObject*>
        createToolTipWindow2;
    TROV::Emitter3<void, VXMimicSource2*, VXMimicSource2Emitters*, VXObject*> createMimicSource2;
    TROV::Emitter3<void, VXMimicView2*, VXMimicView2Emitters*, VXObject*> createMimicView2;
    TROV::Emitter3<void, VXNotificationBar2*, VXNotificationBar2Emitters*, VXObject*>
        createNotificationBar2;
    TROV::Emitter3<void, VXSlider2*, VXSlider2Emitters*, VXObject*> createSlider2;
    TROV::Emitter3<void, VXDial2*, VXDial2Emitters*, VXObject*> createDial2;
    TROV::Emitter4<void, VXColorDialog2*, VXColorDialog2Emitters*, VXObject*, unsigned>
        createColorDialog2;
    TROV::Emitter4<void, VXFontDialog2*, VXFontDialog2Emitters*, VXObject*, unsigned>
        createFontDialog2;

    /// Has the peer of the object with that id destroyed; unknown ids are ignored.
    TROV::Emitter1<void, unsigned> destroyObject;

private:
    void followBridge();

    VXBridge* m_bridge;
    TROV::Listener m_raising; ///< connected while the factory is registered
};

} // namespace VOXI
