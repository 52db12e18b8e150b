// The rows of all kinds, by folder; before them what those of one base class have in common.

#include "kinds.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDial>
#include <QDockWidget>
#include <QFileDialog>
#include <QFontDialog>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

namespace VOXI {
namespace {

using F = VXFactory2;

const Icon s_icon = Icon::fromPixmap(Pixmap(4, 4, std::vector<std::uint32_t>(16, 0xff0000ff)));

template <WidgetEvent Type>
void imitateKey(VXWidget2& widget)
{
    widget.imitateKey(Type, VXKeyEvent2(&widget, Type, Key::F7));
}

template <WidgetEvent Type>
void imitateMouse(VXWidget2& widget)
{
    widget.imitateMouse(Type, VXMouseEvent2(&widget, Type, {1, 1}, {1, 1}, MouseButton::Right,
                                            MouseButton::Right, {}));
}

void addWidget(Kind& kind)
{
    using W = VXWidget2;
    kind.has("toolTip", &W::setToolTip, &W::toolTipU, L"tip")
        .has("accessibleName", &W::setAccessibleName, &W::accessibleName, L"name")
        .has("accessibleDescription", &W::setAccessibleDescription, &W::accessibleDescription,
             L"description")
        .has("focusPolicy", &W::setFocusPolicy, &W::focusPolicy, FocusPolicy::Click)
        .has("mouseTracking", &W::setMouseTracking, &W::hasMouseTracking, true)
        .has("touchEnabled", &W::setTouchEnabled, &W::isTouchEnabled, true)
        .has("acceptDrops", &W::setAcceptDrops, &W::canAcceptDrops, true)
        .refersTo("focusProxy", &W::setFocusProxy, &W::focusProxy)
        .refersTo("dragDelegate", &W::setDragDelegate, &W::dragDelegate)
        .reports("closing", &W::closing, [](W& w) { w.imitate(WidgetEvent::Close); })
        .reports("contextMenuRequested", &W::contextMenuRequested,
                 [](W& w) {
                     w.imitateContextMenu({1, 1}, {1, 1});
                 })
        .reports("dragEntered", &W::dragEntered)
        .reports("dropped", &W::dropped)
        .reports("focusGained", &W::focusGained)
        .reports("shown", &W::shown,
                 [](W& w) {
                     w.hide();
                     w.imitate(WidgetEvent::Show);
                 })
        .reports("hidden", &W::hidden, [](W& w) { w.imitate(WidgetEvent::Hide); })
        .reports("keyPressed", &W::keyPressed, &imitateKey<WidgetEvent::KeyPress>)
        .reports("keyReleased", &W::keyReleased, &imitateKey<WidgetEvent::KeyRelease>)
        .reports("mousePressed", &W::mousePressed, &imitateMouse<WidgetEvent::MousePress>)
        .reports("mouseReleased", &W::mouseReleased, &imitateMouse<WidgetEvent::MouseRelease>)
        .reports("mouseMoved", &W::mouseMoved, &imitateMouse<WidgetEvent::MouseMove>)
        .reports("moved", &W::moved,
                 [](W& w) {
                     w.imitateMove({5, 6});
                 })
        .reports("resized", &W::resized,
                 [](W& w) {
                     w.imitateResize({777, 666}); // more than the least that dialogs of Qt have
                 })
        .reports("dragDetected", &W::dragDetected);
}

void addButton(Kind& kind)
{
    using B = VXAbstractButton2;
    kind.has("label", &B::setLabel, &B::labelU, L"a long label that asks for room")
        .has("icon", &B::setIcon, &B::icon, s_icon)
        .has("iconSize", &B::setIconSize, &B::iconSize, {9, 8})
        .has("checkable", &B::setCheckable, &B::isCheckable, true)
        .has("checked", &B::setChecked, &B::isChecked, true)
        .has("exclusive", &B::setExclusive, &B::isExclusive, true)
        .reports("clicked", &B::clicked, [](B& b) { b.imitateClick(); })
        .reports("toggled", &B::toggled, [](B& b) {
            b.setCheckable(true);
            b.setExclusive(false);
            b.imitateToggle();
        });
}

void addWindow(Kind& kind)
{
    using W = VXAbstractWindow2;
    kind.has("title", &W::setTitle, &W::titleU, L"title[*]")
        .has("icon", &W::setIcon, &W::icon, s_icon)
        .has("modified", &W::setModified, &W::isModified, true)
        .has("windowState", &W::setWindowState, &W::windowState, WindowState::Maximized)
        .has("opacity", &W::setOpacity, &W::opacity, 0.2) // 51 / 255
        .reports("stateChanged", &W::stateChanged)
        .reports("activationChanged", &W::activationChanged);
    // Others are added for the window's kind.
    kind.m_settings.push_back(
        {"windowFlags",
         [](VXObject2& o) {
             dynamic_cast<W&>(o).setWindowFlags(WindowFlagTitle | WindowFlagStaysOnTop);
         },
         [](const VXObject2& o) {
             return (dynamic_cast<const W&>(o).windowFlags() & WindowFlagStaysOnTop) != 0;
         }});
}

void addDialog(Kind& kind)
{
    using D = VXAbstractDialog2;
    kind.has("modal", &D::setModal, &D::isModal, true).reports("finished", &D::finished);
}

/// One cell, of which a view is asked and told.
VXTableModel2& oneCell()
{
    static auto* const model = new VXTableModel2({L"header"});
    if (model->rowCount() == 0)
        model->appendRow({CellUIData(L"cell").setReadOnly(false)});
    return *model;
}

/// Has the view show it, and know it.
void showCell(VXAbstractView2& view)
{
    view.setViewModel(&oneCell());
    for (int i = 0; i < 3; ++i) {
        qt(view)->grab();
        turn();
    }
}

/// Has the browser show a group with one property in it; gives the group.
VXSimpleProperty2* showProperty(VXSimplePropertyBrowser2& browser)
{
    static auto* const group = new VXSimpleProperty2("group");
    static auto* const property = new VXSimpleProperty2("name", any(1));
    browser.addProperty(group);
    browser.addProperty(property, group);
    return group;
}

VXSimpleProperty2* insideOf(VXSimplePropertyBrowser2& browser)
{
    return browser.properties(showProperty(browser)).front();
}

void addView(Kind& kind)
{
    using V = VXAbstractView2;
    kind.has("selectionMode", &V::setSelectionMode, &V::selectionMode, SelectionMode::Contiguous)
        .has("selectionBehavior", &V::setSelectionBehavior, &V::selectionBehavior,
             SelectionBehavior::Columns)
        .has("editTriggers", &V::setEditTriggers, &V::editTriggers, EditTrigger::CurrentChanged)
        .has("columnMovable", &V::setColumnMovable, &V::isColumnMovable, true)
        .has("headerClickable", &V::setHeaderClickable, &V::isHeaderClickable, true)
        .has("alternatingRowColors", &V::setAlternatingRowColors, &V::hasAlternatingRowColors, true)
        .has("cacheLimit", &V::setCacheLimit, &V::cacheLimit, 777)
        .refersTo("viewModel", &V::setViewModel, &V::viewModel)
        .reports("activeCellChanged", &V::activeCellChanged,
                 [](V& v) {
                     showCell(v);
                     v.imitateSetActiveCell({1, 1, nullptr});
                 })
        .reports("selectionChanged", &V::selectionChanged,
                 [](V& v) {
                     showCell(v);
                     v.imitateSetSelection({{1, 1, nullptr}, {1, 1, nullptr}});
                 })
        .reports("editRequested", &V::editRequested,
                 [](V& v) {
                     showCell(v);
                     v.setEditTriggers(EditTrigger::All);
                     v.imitateEdit(1, 1, EditTrigger::EditKeyPressed);
                 })
        .reports("editCompleted", &V::editCompleted)
        .reports("cellActivated", &V::cellActivated)
        .reports("cellContextMenu", &V::cellContextMenu,
                 [](V& v) {
                     v.imitateContextMenu({1, 1}, {1, 1});
                 })
        .reports("headerClicked", &V::headerClicked)
        .reports("columnResized", &V::columnResized)
        .reports("columnMoved", &V::columnMoved)
        .reports("scrolled", &V::scrolled);
}

/// Has the view show a group with two rows in it, and know them; gives the group, whose number
/// theirs follow.
unsigned showGroup(VXAbstractGroupView2& view)
{
    static auto* const model = new VXTreeModel2({"header"});
    if (model->rowCount() == 0) {
        const unsigned group = model->appendRow(0, {"group"});
        model->appendRow(group, {"row"});
        model->appendRow(group, {"another"});
    }
    view.setViewModel(model);
    if (auto* const palette = dynamic_cast<VXPaletteView2*>(&view))
        palette->setSearchText(""); // or nothing folds
    qt(view)->resize(200, 200);     // there is room for all
    for (int i = 0; i < 3; ++i) {
        qt(view)->grab();
        turn();
    }
    return model->childRows(0).front();
}

/// The first of the two rows to the end.
void moveEntry(VXPaletteView2& palette)
{
    const unsigned group = showGroup(palette);
    palette.setReorderable(true);
    palette.imitateMoveEntry(group + 1, group);
}

void addGroupView(Kind& kind)
{
    using V = VXAbstractGroupView2;
    kind.has("iconSize", &V::setIconSize, &V::iconSize, {19, 18})
        .refersTo("viewModel", &V::setViewModel, &V::viewModel)
        .reports("currentChanged", &V::currentChanged,
                 [](V& v) { v.imitateSetCurrentRow(showGroup(v)); })
        .reports("activated", &V::activated, [](V& v) { v.imitateActivate(showGroup(v) + 1); })
        .reports("folded", &V::folded, [](V& v) { v.imitateFold(showGroup(v)); })
        .reports("unfolded", &V::unfolded, [](V& v) {
            const unsigned group = showGroup(v);
            v.setGroupFolded(group);
            v.imitateUnfold(group);
        });
}

template <class R>
void addRange(Kind& kind)
{
    kind.has("value", &R::setValue, &R::value, 7)
        .has("range", &R::setRange, &R::range, {-5, 50})
        .has("singleStep", &R::setSingleStep, &R::singleStep, 3)
        .reports("valueChanged", &R::valueChanged);
}

void addLayout(Kind& kind)
{
    using L = VXLayout2;
    kind.has("margins", &L::setMargins, &L::margins, VXRect<int>::margins(1, 2, 3, 4))
        .has("spacing", &L::setSpacing, &L::spacing, 7);
}

/// Takes anything, whatever it was set to.
template <class E>
E& loosened(E& edit)
{
    edit.setReadOnly(false);
    if (auto* const line = dynamic_cast<VXEdit2*>(&edit)) {
        line->setInputMask(L"");
        line->setValidator({});
        line->setMaximumLength(-1);
    }
    return edit;
}

/// Has the user follow a link to another page, with another title.
void followLink(VXTextBrowser2& browser)
{
    browser.setBuffers({"<title>one</title>first", "second"});
    browser.setCurrentBuffer(2);
    browser.imitateLink("buffer://1");
}

void addEdit(Kind& kind)
{
    using E = VXAbstractEdit2;
    kind.has("text", &E::setText, &E::textU, L"text")
        .has("placeholder", &E::setPlaceholder, &E::placeholderU, L"your name")
        .has("readOnly", &E::setReadOnly, &E::isReadOnly, true)
        .reports("cursorMoved", &E::cursorMoved, [](E& e) { loosened(e).imitateTyping("x"); })
        .reports("selectionChanged", &E::selectionChanged);
}

template <class Object, class Q, auto Request>
Kind kind(const char* name, QAccessible::Role role = QAccessible::NoRole)
{
    Kind made{name,
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
    if constexpr (std::derived_from<Object, VXWidget2>)
        addWidget(made);
    if constexpr (std::derived_from<Object, VXAbstractButton2>)
        addButton(made);
    if constexpr (std::derived_from<Object, VXAbstractEdit2>)
        addEdit(made);
    if constexpr (std::derived_from<Object, VXAbstractWindow2>)
        addWindow(made);
    if constexpr (std::derived_from<Object, VXAbstractDialog2>)
        addDialog(made);
    if constexpr (std::derived_from<Object, VXLayout2>)
        addLayout(made);
    if constexpr (std::derived_from<Object, VXAbstractView2>)
        addView(made);
    if constexpr (std::derived_from<Object, VXAbstractGroupView2>)
        addGroupView(made);
    if constexpr (std::derived_from<Object, VXRange2>)
        addRange<Object>(made);
    return made;
}

std::vector<Kind> kernelKinds()
{
    using A = VXAction2;
    using D = VXDragDelegate2;
    return {
        kind<A, QAction, &F::createAction2>("Action")
            .has("label", &A::setLabel, &A::labelU, L"label")
            .has("icon", &A::setIcon, &A::icon, s_icon)
            .has("accelerator", &A::setAccelerator, &A::accelerator, "Ctrl+K")
            .has("shortcutContext", &A::setShortcutContext, &A::shortcutContext,
                 ShortcutContext::Application)
            .has("toolTip", &A::setToolTip, &A::toolTipU, L"tip")
            .has("statusTip", &A::setStatusTip, &A::statusTipU, L"status")
            .has("checkable", &A::setCheckable, &A::isCheckable, true)
            .has("checked", &A::setChecked, &A::isChecked, true)
            .has("separator", &A::setSeparator, &A::isSeparator, true)
            .reports("triggered", &A::triggered, [](A& a) { a.imitateTrigger(); })
            .reports("toggled", &A::toggled,
                     [](A& a) {
                         a.setCheckable(true);
                         a.imitateToggle(!a.isChecked());
                     })
            .reports("ambiguous", &A::ambiguous),
        kind<D, QObject, &F::createDragDelegate2>("DragDelegate")
            .reports("entered", &D::entered)
            .reports("moved", &D::moved)
            .reports("left", &D::left)
            .reports("dropped", &D::dropped),
    };
}

std::vector<Kind> containerKinds()
{
    using Box = VXBoxLayout2;
    using ColorChooser = VXColorDialog2;
    using FontChooser = VXFontDialog2;
    using Dialog = VXDialog2;
    using Dock = VXDockWidget2;
    using File = VXFileDialog2;
    using Frame = VXFrame2;
    using Flow = VXFlowLayout2;
    using Grid = VXGridLayout2;
    using Group = VXGroupBox2;
    using Scroll = VXScrollView2;
    using Splitter = VXSplitter2;
    using Tab = VXTab2;
    using Tabs = VXTabContainer2;
    using Tip = VXToolTipWindow2;
    using Window = VXWindow2;
    return {
        kind<Box, QBoxLayout, &F::createBoxLayout2>("BoxLayout")
            .has("direction", &Box::setDirection, &Box::direction, Direction::BottomToTop),
        kind<ColorChooser, QColorDialog, &F::createColorDialog2>("ColorDialog", QAccessible::Dialog)
            .has("currentColor", &ColorChooser::setCurrentColor, &ColorChooser::currentColor,
                 Color(1, 2, 3))
            .has("alphaEnabled", &ColorChooser::setAlphaEnabled, &ColorChooser::isAlphaEnabled,
                 true)
            .reports("currentColorChanged", &ColorChooser::currentColorChanged),
        kind<Dialog, QDialog, &F::createDialog2>("Dialog", QAccessible::Dialog)
            .has("sizeGrip", &Dialog::setSizeGripEnabled, &Dialog::isSizeGripEnabled, true)
            .refersTo("defaultButton", &Dialog::setDefaultButton, &Dialog::defaultButton),
        kind<Dock, QDockWidget, &F::createDockWidget2>("DockWidget", QAccessible::Window)
            .has("title", &Dock::setTitle, &Dock::titleU, L"title")
            .has("icon", &Dock::setIcon, &Dock::icon, s_icon)
            .has("allowedAreas", &Dock::setAllowedAreas, &Dock::allowedAreas, DockArea::Left)
            .has("features", &Dock::setFeatures, &Dock::features, DockFeature::Closable)
            .refersTo("widget", &Dock::setWidget, &Dock::widget)
            .refersTo("titleBarWidget", &Dock::setTitleBarWidget, &Dock::titleBarWidget)
            .reports("floatingChanged", &Dock::floatingChanged)
            .reports("areaChanged", &Dock::areaChanged)
            .reports("visibilityChanged", &Dock::visibilityChanged),
        kind<File, QFileDialog, &F::createFileDialog2>("FileDialog", QAccessible::Dialog)
            .has("mode", &File::setMode, &File::mode, FileDialogMode::SaveFile)
            .has("defaultSuffix", &File::setDefaultSuffix, &File::defaultSuffix, L"txt")
            .has("native", &File::setNative, &File::isNative, true)
            .reports("filesChosen", &File::filesChosen)
            .reports("currentChanged", &File::currentChanged)
            .reports("directoryEntered", &File::directoryEntered),
        kind<Flow, QLayout, &F::createFlowLayout2>("FlowLayout")
            .has("direction", &Flow::setDirection, &Flow::direction, Direction::BottomToTop),
        kind<FontChooser, QFontDialog, &F::createFontDialog2>("FontDialog", QAccessible::Dialog)
            .reports("currentFontChanged", &FontChooser::currentFontChanged),
        kind<Frame, QFrame, &F::createFrame2>("Frame", QAccessible::Border)
            .has("shadow", &Frame::setShadow, &Frame::shadow, FrameShadow::Raised)
            .has("shape", &Frame::setShape, &Frame::shape, FrameShape::Box)
            .has("lineWidth", &Frame::setLineWidth, &Frame::lineWidth, 3)
            .has(
                "painter",
                [](Frame& frame, bool) {
                    frame.setPainter([](VXCanvas2 canvas, const VXRect<int>&) {
                        canvas.drawLine({0, 0}, {9, 9});
                    });
                },
                &Frame::hasPainter, true),
        kind<Grid, QGridLayout, &F::createGridLayout2>("GridLayout")
            .has("horizontalSpacing", &Grid::setHorizontalSpacing, &Grid::horizontalSpacing, 17),
        kind<Group, QGroupBox, &F::createGroupBox2>("GroupBox", QAccessible::Grouping)
            .has("title", &Group::setTitle, &Group::titleU, L"title")
            .has("flat", &Group::setFlat, &Group::isFlat, true)
            .has("checkable", &Group::setCheckable, &Group::isCheckable, true)
            .has(
                "checked",
                [](Group& group, bool checked) {
                    group.setCheckable(true);
                    group.setChecked(!checked);
                    group.setChecked(checked);
                },
                &Group::isChecked, true)
            .reports("toggled", &Group::toggled,
                     [](Group& group) {
                         group.setCheckable(true);
                         group.imitateToggle();
                     }),
        kind<VXPanel2, QWidget, &F::createPanel2>("Panel", QAccessible::Client),
        kind<Scroll, QScrollArea, &F::createScrollView2>("ScrollView", QAccessible::Client)
            .has("widgetResizable", &Scroll::setWidgetResizable, &Scroll::isWidgetResizable, true)
            .refersTo("widget", &Scroll::setWidget, &Scroll::widget)
            .reports("scrolled", &Scroll::scrolled),
        kind<Splitter, QSplitter, &F::createSplitter2>("Splitter", QAccessible::Splitter)
            .has("handleWidth", &Splitter::setHandleWidth, &Splitter::handleWidth, 9)
            .has("orientation", &Splitter::setOrientation, &Splitter::orientation,
                 Orientation::Vertical)
            .reports("handleMoved", &Splitter::handleMoved),
        kind<Tab, QWidget, &F::createTab2>("Tab", QAccessible::Client)
            .has("text", &Tab::setText, &Tab::textU, L"text")
            .has("icon", &Tab::setIcon, &Tab::icon, s_icon)
            .has("tabToolTip", &Tab::setTabToolTip, &Tab::tabToolTipU, L"tip")
            .has("textColor", &Tab::setTextColor, &Tab::textColor, Color(1, 2, 3)),
        kind<Tabs, QTabWidget, &F::createTabContainer2>("TabContainer", QAccessible::Client)
            .has("tabPosition", &Tabs::setTabPosition, &Tabs::tabPosition, TabPosition::South)
            .has("tabsClosable", &Tabs::setTabsClosable, &Tabs::areTabsClosable, true)
            .has("movable", &Tabs::setMovable, &Tabs::isMovable, true)
            .has("documentMode", &Tabs::setDocumentMode, &Tabs::isDocumentMode, true)
            .has("elideMode", &Tabs::setElideMode, &Tabs::elideMode, TextElideMode::Middle)
            .reports("currentTabChanged", &Tabs::currentTabChanged)
            .reports("tabCloseRequested", &Tabs::tabCloseRequested)
            .reports("tabMoved", &Tabs::tabMoved)
            .reports("tabDoubleClicked", &Tabs::tabDoubleClicked)
            .reports("tabMenuRequested", &Tabs::tabMenuRequested),
        kind<Tip, QWidget, &F::createToolTipWindow2>("ToolTipWindow", QAccessible::ToolTip)
            .has("text", &Tip::setText, &Tip::textU, L"text")
            .has("richText", &Tip::setRichText, &Tip::isRichText, true)
            .has("icon", &Tip::setIcon, &Tip::icon, s_icon)
            .has("timeout", &Tip::setTimeout, &Tip::timeout, 600000)
            .reports("clicked", &Tip::clicked),
        kind<VXWidgetStack2, QStackedWidget, &F::createWidgetStack2>("WidgetStack",
                                                                     QAccessible::LayeredPane)
            .reports("currentGone", &VXWidgetStack2::currentGone),
        kind<Window, QMainWindow, &F::createWindow2>("Window", QAccessible::Window)
            .has(
                "statusText", [](Window& w, const std::wstring& text) { w.setStatusText(text); },
                &Window::statusTextU, L"status")
            .has("statusBarVisible", &Window::setStatusBarVisible, &Window::isStatusBarVisible,
                 true)
            .has("dockNesting", &Window::setDockNesting, &Window::isDockNesting, true)
            .refersTo("centralWidget", &Window::setCentralWidget, &Window::centralWidget)
            .refersTo("menuBar", &Window::setMenuBar, &Window::menuBar),
    };
}

std::vector<Kind> controlKinds()
{
    using Area = VXEditArea2;
    using Bar = VXToolBar2;
    using Browser = VXTextBrowser2;
    using Button = VXButton2;
    using Combo = VXComboBox2;
    using Label = VXText2;
    using Dial = VXDial2;
    using Edit = VXEdit2;
    using Image = VXImage2;
    using Link = VXHyperLink2;
    using List = VXListBox2;
    using Menu = VXMenu2;
    using Mimic = VXMimicView2;
    using Notice = VXNotificationBar2;
    using Progress = VXProgressBar2;
    using Scene = VXHGScene2;
    using Slider = VXSlider2;
    using Source = VXMimicSource2;
    using Spin = VXSpinBox2;
    using Svg = VXSvgImage2;
    using Tool = VXToolButton2;
    using Web = VXWebBrowser2;
    return {
        kind<Button, QPushButton, &F::createButton2>("Button", QAccessible::Button)
            .has("default", &Button::setDefault, &Button::isDefault, true)
            .has("flat", &Button::setFlat, &Button::isFlat, true),
        kind<VXCheckBox2, QCheckBox, &F::createCheckBox2>("CheckBox", QAccessible::CheckBox),
        kind<Combo, QComboBox, &F::createComboBox2>("ComboBox", QAccessible::ComboBox)
            .has("placeholder", &Combo::setPlaceholder, &Combo::placeholder, L"choose")
            .has("editable", &Combo::setEditable, &Combo::isEditable, true)
            .has("insertPolicy", &Combo::setInsertPolicy, &Combo::insertPolicy,
                 ComboInsertPolicy::AtTop)
            .has("maximumVisibleItems", &Combo::setMaximumVisibleItems, &Combo::maximumVisibleItems,
                 3)
            .has("minimumCharacters", &Combo::setMinimumCharacters, &Combo::minimumCharacters, 4)
            .has("modelColumn", &Combo::setModelColumn, &Combo::modelColumn, 7)
            .refersTo("viewModel", &Combo::setViewModel, &Combo::viewModel)
            .has("currentText", &Combo::setCurrentText, &Combo::currentTextU, L"text")
            .reports("currentChanged", &Combo::currentChanged,
                     [](Combo& combo) {
                         combo.setViewModel(nullptr);
                         combo.clear();
                         combo.addItems({{L"a"}, {L"b"}});
                         combo.imitateChoice(1);
                     })
            .reports("textEdited", &Combo::textEdited),
        kind<Dial, QDial, &F::createDial2>("Dial", QAccessible::Dial)
            .has("pageStep", &Dial::setPageStep, &Dial::pageStep, 20)
            .has("notchVisible", &Dial::setNotchVisible, &Dial::isNotchVisible, true)
            .has("wrapping", &Dial::setWrapping, &Dial::isWrapping, true),
        kind<Edit, QLineEdit, &F::createEdit2>("Edit", QAccessible::EditableText)
            .has("echo", &Edit::setEcho, &Edit::echo, TextEcho::Password)
            .has("alignment", &Edit::setAlignment, &Edit::alignment,
                 AlignmentFlag::Right | AlignmentFlag::Bottom)
            .has("flat", &Edit::setFlat, &Edit::isFlat, true)
            .has("clearButtonVisible", &Edit::setClearButtonVisible, &Edit::isClearButtonVisible,
                 true)
            .has("maximumLength", &Edit::setMaximumLength, &Edit::maximumLength, 3)
            .has("inputMask", &Edit::setInputMask, &Edit::inputMask, L"99.99")
            .has("validator", &Edit::setValidator, &Edit::validator, TextValidator::integer(1, 9))
            .has("completion", &Edit::setCompletion, &Edit::completion,
                 TextCompletion{{L"a", L"b"}, true, true})
            .reports("textEdited", &Edit::textEdited,
                     [](Edit& e) { loosened(e).imitateTyping("x"); })
            .reports("returnPressed", &Edit::returnPressed,
                     [](Edit& e) { loosened(e).imitateReturn(); })
            .reports("editingFinished", &Edit::editingFinished,
                     [](Edit& e) { loosened(e).imitateReturn(); }),
        kind<Area, QTextEdit, &F::createEditArea2>("EditArea", QAccessible::EditableText)
            .has("maximumLineCount", &Area::setMaximumLineCount, &Area::maximumLineCount, 500)
            .has("modified", &Area::setModified, &Area::isModified, true)
            .has("richText", &Area::setRichText, &Area::isRichText, true)
            .has("wrap", &Area::setWrap, &Area::wrap, TextWrap::Anywhere)
            .has("tabWidth", &Area::setTabWidth, &Area::tabWidth, 3)
            .has("zoom", &Area::setZoom, &Area::zoom, 130)
            .has("lineNumbersVisible", &Area::setLineNumbersVisible, &Area::areLineNumbersVisible,
                 true)
            .has("currentLineHighlighted", &Area::setCurrentLineHighlighted,
                 &Area::isCurrentLineHighlighted, true)
            .has("marksVisible", &Area::setMarksVisible, &Area::areMarksVisible, true)
            .reports("textEdited", &Area::textEdited,
                     [](Area& area) { loosened(area).imitateTyping("x"); })
            .reports("modifiedChanged", &Area::modifiedChanged,
                     [](Area& area) {
                         area.setModified(false);
                         loosened(area).imitateTyping("x");
                     })
            .reports("marginClicked", &Area::marginClicked,
                     [](Area& area) {
                         area.setMarksVisible(true);
                         area.imitateMarginClick(0);
                     })
            .has("suggestionLength", &Area::setSuggestionLength, &Area::suggestionLength, 3)
            .reports("scrolled", &Area::scrolled)
            .reports("suggestionsWanted", &Area::suggestionsWanted,
                     [](Area& area) { loosened(area).imitateSuggestionKey(); })
            .reports("suggestionTaken", &Area::suggestionTaken)
            .reports("zoomed", &Area::zoomed),
        kind<Scene, QWidget, &F::createHGScene2>("HGScene", QAccessible::Graphic)
            .has("nodes",
                 [](Scene& scene, const std::vector<unsigned>& uids) {
                     for (const unsigned uid : uids)
                         scene.setNode({.uid = uid});
                 },
                 &Scene::nodes, {5, 3})
            .has("camera", &Scene::setCamera, &Scene::camera, {.eye = {1, 2, 3}, .height = 7})
            .has("navigable", &Scene::setNavigable, &Scene::isNavigable, true)
            .has("lights", &Scene::setLights, &Scene::lights, {{.color = Color(1, 2, 3)}})
            .has("ambientLight", &Scene::setAmbientLight, &Scene::ambientLight, Color(9, 8, 7))
            .has("background", &Scene::setBackground, &Scene::background, Color(1, 2, 3))
            .has("samples", &Scene::setSamples, &Scene::samples, 8)
            .reports("picked", &Scene::picked,
                     [](Scene& scene) {
                         scene.imitateClick({1, 1});
                     })
            .reports("cameraMoved", &Scene::cameraMoved,
                     [](Scene& scene) {
                         const auto type = WidgetEvent::KeyPress;
                         scene.imitateKey(type, VXKeyEvent2(&scene, type, Key::Left));
                     })
            .reports("frameDrawn", &Scene::frameDrawn),
        kind<Link, QLabel, &F::createHyperLink2>("HyperLink", QAccessible::Link)
            .has("text", &Link::setText, &Link::textU, L"text")
            .reports("clicked", &Link::clicked, [](Link& link) { link.imitateClick(); }),
        kind<Image, QLabel, &F::createImage2>("Image", QAccessible::StaticText)
            .has("maskColor", &Image::setMaskColor, &Image::maskColor, Color(1, 2, 3, 4))
            .has("pixmap",
                 [](Image& image, Size<int>) {
                     image.setPixmap(Pixmap(2, 1, {0xff0000ff, 0x0000ffff}));
                 },
                 &Image::imageSize, {2, 1})
            .has("scaleEnabled", &Image::setScaleEnabled, &Image::isScaleEnabled, true)
            .has("scaling", &Image::setScaling, &Image::scaling, ImageScaling::Fit),
        kind<List, QListWidget, &F::createListBox2>("ListBox", QAccessible::List)
            .has("selectionMode", &List::setSelectionMode, &List::selectionMode,
                 SelectionMode::Extended)
            .reports("selectionChanged", &List::selectionChanged,
                     [](List& list) {
                         list.addItems(VXStringList{"text"});
                         list.clearSelection();
                         list.imitateSelect(0);
                     })
            .reports("doubleClicked", &List::doubleClicked),
        kind<Menu, QMenu, &F::createMenu2>("Menu", QAccessible::PopupMenu)
            .has("digMenu", &Menu::setDigMenu, &Menu::isDigMenu, true)
            .reports("aboutToShow", &Menu::aboutToShow),
        kind<VXMenuBar2, QMenuBar, &F::createMenuBar2>("MenuBar", QAccessible::MenuBar),
        kind<Source, QObject, &F::createMimicSource2>("MimicSource")
            .has("nativeWindow", &Source::setNativeWindow, &Source::nativeWindow, 77)
            .has("maximumRate", &Source::setMaximumRate, &Source::maximumRate, 5)
            .refersTo("widget", &Source::setWidget, &Source::widget)
            .reports("refreshed", &Source::refreshed)
            .reports("ended", &Source::ended),
        kind<Mimic, QWidget, &F::createMimicView2>("MimicView", QAccessible::Graphic)
            .has("forwarding", &Mimic::setForwarding, &Mimic::isForwarding, true)
            .refersTo("source", &Mimic::setSource, &Mimic::source),
        kind<Notice, QFrame, &F::createNotificationBar2>("NotificationBar",
                                                         QAccessible::AlertMessage)
            .has("notification",
                 [](Notice& bar, const Notification& message) {
                     bar.notify(message, NotificationArrival::Replaces);
                 },
                 &Notice::notification,
                 {.text = L"text",
                  .kind = NotificationKind::Error,
                  .isRichText = true,
                  .icon = s_icon,
                  .buttons = {{L"Again", 2, false}},
                  .isClosable = false,
                  .timeout = 600000,
                  .uid = 9})
            .reports(
                "buttonClicked", &Notice::buttonClicked,
                [](Notice& bar) {
                    bar.notify({.buttons = {{L"Again", 2, false}}}, NotificationArrival::Replaces);
                    bar.imitateButton(2);
                })
            .reports("linkActivated", &Notice::linkActivated)
            .reports("dismissed", &Notice::dismissed,
                     [](Notice& bar) {
                         bar.notify({}, NotificationArrival::Replaces);
                         bar.imitateClose();
                     }),
        kind<Progress, QProgressBar, &F::createProgressBar2>("ProgressBar",
                                                             QAccessible::ProgressBar)
            .has("minimum", &Progress::setMinimum, &Progress::minimum, -5)
            .has("maximum", &Progress::setMaximum, &Progress::maximum, 50)
            .has("value", &Progress::setValue, &Progress::value, 7)
            .has("textVisible", &Progress::setTextVisible, &Progress::isTextVisible, true)
            .has("customText", &Progress::setCustomText, &Progress::customText, "text"),
        kind<VXRadioButton2, QRadioButton, &F::createRadioButton2>("RadioButton",
                                                                   QAccessible::RadioButton),
        kind<Slider, QSlider, &F::createSlider2>("Slider", QAccessible::Slider)
            .has("pageStep", &Slider::setPageStep, &Slider::pageStep, 20)
            .has("orientation", &Slider::setOrientation, &Slider::orientation,
                 Orientation::Vertical)
            .has("tickInterval", &Slider::setTickInterval, &Slider::tickInterval, 4)
            .has("tickPosition", &Slider::setTickPosition, &Slider::tickPosition,
                 TickPosition::Below),
        kind<Spin, QSpinBox, &F::createSpinBox2>("SpinBox", QAccessible::SpinBox)
            .has("editable", &Spin::setEditable, &Spin::isEditable, true)
            .has("wrapping", &Spin::setWrapping, &Spin::isWrapping, true)
            .has("prefix", &Spin::setPrefix, &Spin::prefixU, L"about ")
            .has("suffix", &Spin::setSuffix, &Spin::suffixU, L" km")
            .reports("textChanged", &Spin::textChanged),
        kind<Svg, QWidget, &F::createSvgImage2>("SvgImage", QAccessible::Graphic)
            .has("contents",
                 [](Svg& image, Size<int>) {
                     image.setContents(ByteArray(std::string(
                         "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='4'/>")));
                 },
                 &Svg::imageSize, {8, 4}),
        kind<Label, QLabel, &F::createText2>("Text", QAccessible::StaticText)
            .has("text", &Label::setText, &Label::textU, L"text")
            .has("alignment", &Label::setAlignment, &Label::alignment,
                 AlignmentFlag::Right | AlignmentFlag::Bottom)
            .has("wordWrap", &Label::setWordWrap, &Label::wordWrap, true)
            .has("selectable", &Label::setSelectable, &Label::isSelectable, true)
            .has("richText", &Label::setRichText, &Label::isRichText, true)
            .has("elideMode", &Label::setElideMode, &Label::elideMode, TextElideMode::Middle)
            .refersTo("buddy", &Label::setBuddy, &Label::buddy)
            .reports("linkActivated", &Label::linkActivated),
        kind<Browser, QWidget, &F::createTextBrowser2>("TextBrowser", QAccessible::Client)
            .has("text", &Browser::setText, &Browser::textU, L"text")
            .has("buffers", &Browser::setBuffersU, &Browser::buffersU, {L"one", L"two"})
            .has("filePath", &Browser::setFilePath, &Browser::filePath, {"one", "two"})
            .has("zoom", &Browser::setZoom, &Browser::zoom, 150)
            .has("selection",
                 [](Browser& browser, const TextRange& range) {
                     browser.setText("text");
                     browser.setSelection(range);
                 },
                 &Browser::selection, {1, 2})
            .reports("linkActivated", &Browser::linkActivated, &followLink)
            .reports("sourceChanged", &Browser::sourceChanged, &followLink)
            .reports("titleChanged", &Browser::titleChanged, &followLink)
            .reports("historyChanged", &Browser::historyChanged, &followLink)
            .reports("linkHovered", &Browser::linkHovered)
            .reports("selectionChanged", &Browser::selectionChanged)
            .reports("zoomChanged", &Browser::zoomChanged)
            .reports("alwaysOnTop", &Browser::alwaysOnTop),
        kind<Bar, QToolBar, &F::createToolbar2>("ToolBar", QAccessible::ToolBar)
            .has("label", &Bar::setLabel, &Bar::labelU, L"label")
            .has("orientation", &Bar::setOrientation, &Bar::orientation, Orientation::Vertical)
            .has("iconSize", &Bar::setIconSize, &Bar::iconSize, {9, 8})
            .has("style", &Bar::setToolButtonStyle, &Bar::toolButtonStyle,
                 ToolButtonStyle::TextUnderIcon)
            .has("minimumVisibleItems", &Bar::setMinimumVisibleItems, &Bar::minimumVisibleItems, 3),
        kind<Tool, QToolButton, &F::createToolButton2>("ToolButton", QAccessible::Button)
            .has("popupMode", &Tool::setPopupMode, &Tool::popupMode,
                 ToolButtonPopupMode::MenuButton)
            .has("style", &Tool::setToolButtonStyle, &Tool::toolButtonStyle,
                 ToolButtonStyle::TextUnderIcon)
            .has("autoRaise", &Tool::setAutoRaise, &Tool::isAutoRaise, true)
            .refersTo("menu", &Tool::setMenu, &Tool::menu)
            .refersTo("defaultAction", &Tool::setDefaultAction, &Tool::defaultAction),
        // Goes nowhere here, so that its engine does not start: what needs that is tried, with all
        // that is asked and reported, in a test of its own.
        kind<Web, QWidget, &F::createWebBrowser2>("WebBrowser", QAccessible::Client)
            .has("networkAccess", &Web::setNetworkAccess, &Web::hasNetworkAccess, true)
            .has("filePath", &Web::setFilePath, &Web::filePath, {"one", "two"})
            .has("profile", &Web::setProfile, &Web::profile, L"name")
            .has("zoom", &Web::setZoom, &Web::zoom, 150)
            .has("userStyle", &Web::setUserStyle, &Web::userStyle, L"p { color: red }")
            .reports("navigating", &Web::navigating)
            .reports("addressChanged", &Web::addressChanged)
            .reports("titleChanged", &Web::titleChanged)
            .reports("iconChanged", &Web::iconChanged)
            .reports("selectionChanged", &Web::selectionChanged)
            .reports("zoomChanged", &Web::zoomChanged),
    };
}

/// A model that is shown in views of the host's own, and has a peer for that.
class HostedModel : public VXTableModel2
{
public:
    explicit HostedModel(VXObject2* parent = nullptr) : VXTableModel2(parent)
    {
        createItemModel(parent);
    }
    ~HostedModel() override { retire(); }
};

std::vector<Kind> modelviewKinds()
{
    using Table = VXTableView2;
    using Tree = VXTreeView2;
    using Palette = VXPaletteView2;
    using Properties = VXSimplePropertyBrowser2;
    return {
        kind<Properties, QWidget, &F::createSimplePropertyBrowser2>("SimplePropertyBrowser",
                                                                    QAccessible::Client)
            .has("readOnly", &Properties::setReadOnly, &Properties::isReadOnly, true)
            .has("filter", &Properties::setFilter, &Properties::filter, L"text")
            .reports("propertyExpanded", &Properties::propertyExpanded,
                     [](Properties& p) { p.imitateExpand(showProperty(p), true); })
            .reports("propertyCollapsed", &Properties::propertyCollapsed,
                     [](Properties& p) {
                         p.setExpanded(showProperty(p), true);
                         p.imitateExpand(showProperty(p), false);
                     })
            .reports("propertyDoubleClicked", &Properties::propertyDoubleClicked,
                     [](Properties& p) { p.imitateDoubleClick(showProperty(p)); })
            .reports("editRequested", &Properties::editRequested,
                     [](Properties& p) {
                         p.setReadOnly(false);
                         p.imitateDoubleClick(insideOf(p));
                     })
            .reports("editorClosed", &Properties::editorClosed)
            .reports("currentChanged", &Properties::currentChanged),
        kind<VXExplorerBarView2, QAbstractItemView, &F::createExplorerBarView2>("ExplorerBarView",
                                                                                QAccessible::Tree),
        kind<Palette, QWidget, &F::createPaletteView2>("PaletteView", QAccessible::Client)
            .has("entryLayout", &Palette::setEntryLayout, &Palette::entryLayout,
                 PaletteLayout::List)
            .has("searchText", &Palette::setSearchText, &Palette::searchText, L"text")
            .has("reorderable", &Palette::setReorderable, &Palette::isReorderable, true)
            .reports("currentEntryChanged", &Palette::currentEntryChanged,
                     [](Palette& p) {
                         const unsigned group = showGroup(p);
                         p.setCurrentEntry(0);
                         p.imitateSetCurrentEntry(group + 1);
                     })
            .reports("searchChanged", &Palette::searchChanged,
                     [](Palette& p) {
                         p.setSearchText("former");
                         p.imitateSearch("other");
                     })
            .reports("entryDragged", &Palette::entryDragged)
            .reports("entryMoving", &Palette::entryMoving, &moveEntry)
            .reports("entryMoved", &Palette::entryMoved, &moveEntry),
        kind<Table, QTableView, &F::createTableView2>("TableView", QAccessible::Table)
            .has("rowMovable", &Table::setRowMovable, &Table::isRowMovable, true),
        kind<HostedModel, QAbstractItemModel, &F::createViewModel2>("TableModel"),
        kind<Tree, QTreeView, &F::createTreeView2>("TreeView", QAccessible::Tree)
            .has("wordWrap", &Tree::setWordWrap, &Tree::wordWrap, true)
            .has("uniformRowHeights", &Tree::setUniformRowHeights, &Tree::hasUniformRowHeights,
                 true)
            .reports("expanded", &Tree::expanded)
            .reports("collapsed", &Tree::collapsed),
    };
}

} // namespace

std::vector<Kind> allKinds()
{
    std::vector<Kind> all = kernelKinds();
    for (const std::vector<Kind>& folder : {containerKinds(), controlKinds(), modelviewKinds()})
        all.insert(all.end(), folder.begin(), folder.end());
    return all;
}

} // namespace VOXI
