#include "voxi2/kernel/vxwidget2.h"

namespace VOXI {

VXWidget2::VXWidget2(VXObject2* parent) : VXObject2(parent), m_emitters(VXObject2::m_emitters) {}
VXWidget2::~VXWidget2() { retire(); }

// Showing -----------------------------------------------------------------------------------------

void VXWidget2::show() { m_emitters.show(); }
void VXWidget2::hide() { m_emitters.hide(); }
void VXWidget2::setVisible(bool visible) { m_emitters.setVisible(visible); }
bool VXWidget2::isVisible() const { return m_emitters.isVisible(); }
void VXWidget2::raise() { m_emitters.raise(); }
void VXWidget2::lower() { m_emitters.lower(); }
void VXWidget2::setActiveWindow() { m_emitters.setActiveWindow(); }
bool VXWidget2::isActiveWindow() const { return m_emitters.isActiveWindow(); }
void VXWidget2::refresh() { m_emitters.refresh(); }
void VXWidget2::update() { m_emitters.update(); }
void VXWidget2::setUpdatesEnabled(bool enabled) { m_emitters.setUpdatesEnabled(enabled); }

// Geometry ----------------------------------------------------------------------------------------

void VXWidget2::adjustSize() { m_emitters.adjustSize(); }
void VXWidget2::resize(const Size<int>& size) { m_emitters.resize(size); }
void VXWidget2::moveTo(const VXPoint<int>& position) { m_emitters.moveTo(position); }
void VXWidget2::setPosition(const VXRect<int>& geometry) { m_emitters.setPosition(geometry); }
VXRect<int> VXWidget2::position() const { return m_emitters.getPosition(); }
VXRect<int> VXWidget2::globalPosition() const { return m_emitters.getGlobalPosition(); }

VXPoint<int> VXWidget2::mapToGlobal(const VXPoint<int>& point) const
{
    return m_emitters.mapToGlobal(point);
}

VXPoint<int> VXWidget2::mapFromGlobal(const VXPoint<int>& point) const
{
    return m_emitters.mapFromGlobal(point);
}

void VXWidget2::setMinimumSize(const Size<int>& size) { m_emitters.setMinimumSize(size); }
void VXWidget2::setMaximumSize(const Size<int>& size) { m_emitters.setMaximumSize(size); }
Size<int> VXWidget2::minimumSize() const { return m_emitters.getMinimumSize(); }
Size<int> VXWidget2::maximumSize() const { return m_emitters.getMaximumSize(); }
void VXWidget2::setFixedSize(const Size<int>& size) { m_emitters.setFixedSize(size); }

void VXWidget2::setSizePolicy(Policy horizontal, Policy vertical)
{
    m_emitters.setSizePolicy(horizontal, vertical);
}

void VXWidget2::setSizeConstraint(SizeConstraint constraint)
{
    m_emitters.setSizeConstraint(constraint);
}

void VXWidget2::setContentsMargins(const VXRect<int>& margins)
{
    m_emitters.setContentsMargins(margins);
}

VXRect<int> VXWidget2::contentsMargins() const { return m_emitters.getContentsMargins(); }
VXRect<int> VXWidget2::contentsRect() const { return m_emitters.getContentsRect(); }
std::string VXWidget2::saveGeometry() const { return m_emitters.saveGeometry(); }

void VXWidget2::restoreGeometry(const std::string& geometry)
{
    m_emitters.restoreGeometry(geometry);
}

// Looks -------------------------------------------------------------------------------------------

void VXWidget2::setColor(ColorRole role, const Color& color) { m_emitters.setColor(role, color); }
Color VXWidget2::color(ColorRole role) const { return m_emitters.getColor(role); }
void VXWidget2::setFont(const VXFont& font) { m_emitters.setFont(font); }
VXFont VXWidget2::font() const { return m_emitters.getFont(); }
void VXWidget2::setCursor(const Cursor& cursor) { m_emitters.setCursor(cursor); }
void VXWidget2::unsetCursor() { m_emitters.unsetCursor(); }
Cursor VXWidget2::cursor() const { return m_emitters.getCursor(); }

void VXWidget2::setToolTip(const AnyText& text)
{
    text.passTo(m_emitters.setToolTip, m_emitters.setToolTipU);
}

std::string VXWidget2::toolTip() const { return m_emitters.getToolTip(); }
std::wstring VXWidget2::toolTipU() const { return m_emitters.getToolTipU(); }

void VXWidget2::setHighlight(bool on, const Color& color)
{
    m_emitters.setWidgetHighlight(on, color.red(), color.green(), color.blue(), color.alpha());
}

bool VXWidget2::isHighlighted() const { return m_emitters.isWidgetHighlighted(); }
void VXWidget2::setAccessibleName(const AnyText& name)
{
    name.passWideTo(m_emitters.setAccessibleName);
}

void VXWidget2::setAccessibleDescription(const AnyText& description)
{
    description.passWideTo(m_emitters.setAccessibleDescription);
}

std::wstring VXWidget2::accessibleName() const { return m_emitters.getAccessibleName(); }

std::wstring VXWidget2::accessibleDescription() const
{
    return m_emitters.getAccessibleDescription();
}

// Input -------------------------------------------------------------------------------------------

void VXWidget2::setEnabled(bool enabled) { m_emitters.setEnabled(enabled); }
bool VXWidget2::isEnabled() const { return m_emitters.isEnabled(); }
void VXWidget2::setFocus() { m_emitters.setFocus(); }
bool VXWidget2::hasFocus() const { return m_emitters.hasFocus(); }
void VXWidget2::setFocusPolicy(FocusPolicy policy) { m_emitters.setFocusPolicy(policy); }
FocusPolicy VXWidget2::focusPolicy() const { return m_emitters.getFocusPolicy(); }
void VXWidget2::setFocusProxy(VXWidget2* proxy) { m_emitters.setFocusProxy(proxy); }
VXWidget2* VXWidget2::focusProxy() const { return m_emitters.getFocusProxy(); }

void VXWidget2::setTabOrder(const std::vector<VXWidget2*>& widgets)
{
    m_emitters.setTabOrder(widgets);
}

std::vector<VXWidget2*> VXWidget2::tabOrder() const { return m_emitters.getTabOrder(); }

void VXWidget2::setEventConsumed(WidgetEvent event, bool consumed)
{
    m_emitters.setEventConsumed(event, consumed);
}

bool VXWidget2::isEventConsumed(WidgetEvent event) const
{
    return m_emitters.isEventConsumed(event);
}

void VXWidget2::setMouseTracking(bool tracking) { m_emitters.setMouseTracking(tracking); }
bool VXWidget2::hasMouseTracking() const { return m_emitters.hasMouseTracking(); }
void VXWidget2::setTouchEnabled(bool enabled) { m_emitters.setTouchEnabled(enabled); }
bool VXWidget2::isTouchEnabled() const { return m_emitters.isTouchEnabled(); }
void VXWidget2::setAcceptDrops(bool accept) { m_emitters.setAcceptDrops(accept); }
bool VXWidget2::canAcceptDrops() const { return m_emitters.canAcceptDrops(); }
void VXWidget2::setDragDelegate(VXDragDelegate2* delegate) { m_emitters.setDragDelegate(delegate); }
VXDragDelegate2* VXWidget2::dragDelegate() const { return m_emitters.getDragDelegate(); }

// Identity ----------------------------------------------------------------------------------------

void VXWidget2::setObjectName(const std::string& name)
{
    VXObject2::setObjectName(name);
    m_emitters.setObjectName(name);
}

std::string VXWidget2::peerObjectName() const { return m_emitters.getObjectName(); }

unsigned long long VXWidget2::winId() const { return m_emitters.getWinId(); }

// As if the user had done it ----------------------------------------------------------------------

void VXWidget2::imitate(WidgetEvent event) { m_emitters.triggerWidgetEvent(event); }

void VXWidget2::imitateContextMenu(const VXPoint<int>& local, const VXPoint<int>& global)
{
    m_emitters.triggerContextMenuEvent(local, global);
}

void VXWidget2::imitateFocus(WidgetEvent event) { m_emitters.triggerFocusEvent(event); }

void VXWidget2::imitateKey(WidgetEvent event, const VXKeyEvent2& key)
{
    m_emitters.triggerKeyEvent(event, key);
}

void VXWidget2::imitateMouse(WidgetEvent event, const VXMouseEvent2& mouse)
{
    m_emitters.triggerMouseEvent(event, mouse);
}

void VXWidget2::imitateMove(const VXPoint<int>& position) { m_emitters.triggerMoveEvent(position); }
void VXWidget2::imitateResize(const Size<int>& size) { m_emitters.triggerResizeEvent(size); }

} // namespace VOXI
