#pragma once

#include "voxi2/kernel/dragdrop.h"
#include "voxi2/kernel/focus.h"
#include "voxi2/kernel/gesture.h"
#include "voxi2/kernel/key.h"
#include "voxi2/kernel/mouse.h"
#include "voxi2/kernel/widgetevent.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QEvent>
#include <Qt>

namespace VOXI {

VOXI2_QT_EXPORT Qt::MouseButton VX2Qt(MouseButton button) noexcept;
VOXI2_QT_EXPORT MouseButton Qt2VX(Qt::MouseButton button) noexcept;
VOXI2_QT_EXPORT Qt::MouseButtons VX2Qt(VXFlags<MouseButton> buttons) noexcept;
VOXI2_QT_EXPORT VXFlags<MouseButton> Qt2VX(Qt::MouseButtons buttons) noexcept;

VOXI2_QT_EXPORT Qt::KeyboardModifiers VX2Qt(VXFlags<Modifier> modifiers) noexcept;
VOXI2_QT_EXPORT VXFlags<Modifier> Qt2VX(Qt::KeyboardModifiers modifiers) noexcept;

/// A number that is no member of Key becomes Qt::Key_unknown.
VOXI2_QT_EXPORT Qt::Key VX2Qt(Key key) noexcept;
/// A key without a member of Key becomes Key::Unknown.
VOXI2_QT_EXPORT Key Qt2VX(Qt::Key key) noexcept;

VOXI2_QT_EXPORT Qt::FocusPolicy VX2Qt(FocusPolicy policy) noexcept;
VOXI2_QT_EXPORT FocusPolicy Qt2VX(Qt::FocusPolicy policy) noexcept;
VOXI2_QT_EXPORT Qt::FocusReason VX2Qt(FocusReason reason) noexcept;
VOXI2_QT_EXPORT FocusReason Qt2VX(Qt::FocusReason reason) noexcept;

VOXI2_QT_EXPORT Qt::DropAction VX2Qt(DropAction action) noexcept;
VOXI2_QT_EXPORT DropAction Qt2VX(Qt::DropAction action) noexcept;
VOXI2_QT_EXPORT Qt::DropActions VX2Qt(VXFlags<DropAction> actions) noexcept;
VOXI2_QT_EXPORT VXFlags<DropAction> Qt2VX(Qt::DropActions actions) noexcept;

VOXI2_QT_EXPORT Qt::GestureType VX2Qt(GestureType type) noexcept;
/// Every gesture that a program has registered with Qt is GestureType::Custom.
VOXI2_QT_EXPORT GestureType Qt2VX(Qt::GestureType type) noexcept;
VOXI2_QT_EXPORT Qt::GestureState VX2Qt(GestureState state) noexcept;
VOXI2_QT_EXPORT GestureState Qt2VX(Qt::GestureState state) noexcept;

/// WidgetEvent::Other and numbers that are no member become QEvent::Close.
VOXI2_QT_EXPORT QEvent::Type VX2Qt(WidgetEvent event) noexcept;
/// A type that is none of the toolkit's becomes WidgetEvent::Close.
VOXI2_QT_EXPORT WidgetEvent Qt2VX(QEvent::Type type) noexcept;
/// Whether a type is one of the toolkit's, and which.
VOXI2_QT_EXPORT bool isWidgetEvent(QEvent::Type type, WidgetEvent& event) noexcept;

} // namespace VOXI
