#pragma once

#include "voxi2/containers/tabposition.h"
#include "voxi2/kernel/actionexclusion.h"
#include "voxi2/kernel/alignment.h"
#include "voxi2/kernel/combo.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/kernel/frame.h"
#include "voxi2/kernel/itemview.h"
#include "voxi2/kernel/shortcut.h"
#include "voxi2/kernel/sizepolicy.h"
#include "voxi2/kernel/toolbutton.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QAbstractItemView>
#include <QActionGroup>
#include <QBoxLayout>
#include <QComboBox>
#include <QFrame>
#include <QHeaderView>
#include <QSizePolicy>
#include <QTabWidget>
#include <QToolButton>
#include <Qt>

namespace VOXI {

// Member by member. What has no counterpart maps to what Qt uses unless it is told otherwise.

/// Bit by bit; bits without a counterpart are dropped.
VOXI2_QT_EXPORT Qt::Alignment VX2Qt(Alignment alignment) noexcept;
VOXI2_QT_EXPORT Alignment Qt2VX(Qt::Alignment alignment) noexcept;

VOXI2_QT_EXPORT QBoxLayout::Direction VX2Qt(Direction direction) noexcept;
VOXI2_QT_EXPORT Direction Qt2VX(QBoxLayout::Direction direction) noexcept;

VOXI2_QT_EXPORT Qt::Orientation VX2Qt(Orientation orientation) noexcept;
VOXI2_QT_EXPORT Orientation Qt2VX(Qt::Orientation orientation) noexcept;

VOXI2_QT_EXPORT QSizePolicy::Policy VX2Qt(Policy policy) noexcept;
VOXI2_QT_EXPORT Policy Qt2VX(QSizePolicy::Policy policy) noexcept;

VOXI2_QT_EXPORT QLayout::SizeConstraint VX2Qt(SizeConstraint constraint) noexcept;
VOXI2_QT_EXPORT SizeConstraint Qt2VX(QLayout::SizeConstraint constraint) noexcept;

VOXI2_QT_EXPORT QFrame::Shadow VX2Qt(FrameShadow shadow) noexcept;
VOXI2_QT_EXPORT FrameShadow Qt2VX(QFrame::Shadow shadow) noexcept;

VOXI2_QT_EXPORT QTabWidget::TabPosition VX2Qt(TabPosition position) noexcept;
VOXI2_QT_EXPORT TabPosition Qt2VX(QTabWidget::TabPosition position) noexcept;

VOXI2_QT_EXPORT QFrame::Shape VX2Qt(FrameShape shape) noexcept;
VOXI2_QT_EXPORT FrameShape Qt2VX(QFrame::Shape shape) noexcept;

VOXI2_QT_EXPORT QToolButton::ToolButtonPopupMode VX2Qt(ToolButtonPopupMode mode) noexcept;
VOXI2_QT_EXPORT ToolButtonPopupMode Qt2VX(QToolButton::ToolButtonPopupMode mode) noexcept;

VOXI2_QT_EXPORT Qt::ToolButtonStyle VX2Qt(ToolButtonStyle style) noexcept;
VOXI2_QT_EXPORT ToolButtonStyle Qt2VX(Qt::ToolButtonStyle style) noexcept;

VOXI2_QT_EXPORT QActionGroup::ExclusionPolicy VX2Qt(ActionExclusion exclusion) noexcept;
VOXI2_QT_EXPORT ActionExclusion Qt2VX(QActionGroup::ExclusionPolicy policy) noexcept;

VOXI2_QT_EXPORT Qt::ShortcutContext VX2Qt(ShortcutContext context) noexcept;
VOXI2_QT_EXPORT ShortcutContext Qt2VX(Qt::ShortcutContext context) noexcept;

VOXI2_QT_EXPORT QComboBox::InsertPolicy VX2Qt(ComboInsertPolicy policy) noexcept;
VOXI2_QT_EXPORT ComboInsertPolicy Qt2VX(QComboBox::InsertPolicy policy) noexcept;

VOXI2_QT_EXPORT QHeaderView::ResizeMode VX2Qt(ColumnResizeMode mode) noexcept;
VOXI2_QT_EXPORT ColumnResizeMode Qt2VX(QHeaderView::ResizeMode mode) noexcept;

VOXI2_QT_EXPORT QAbstractItemView::SelectionBehavior VX2Qt(SelectionBehavior behavior) noexcept;
VOXI2_QT_EXPORT SelectionBehavior Qt2VX(QAbstractItemView::SelectionBehavior behavior) noexcept;

VOXI2_QT_EXPORT QAbstractItemView::SelectionMode VX2Qt(SelectionMode mode) noexcept;
VOXI2_QT_EXPORT SelectionMode Qt2VX(QAbstractItemView::SelectionMode mode) noexcept;

VOXI2_QT_EXPORT Qt::TextElideMode VX2Qt(TextElideMode mode) noexcept;
VOXI2_QT_EXPORT TextElideMode Qt2VX(Qt::TextElideMode mode) noexcept;

/// Bit by bit; bits without a counterpart are dropped.
VOXI2_QT_EXPORT QAbstractItemView::EditTriggers VX2Qt(VXFlags<EditTrigger> triggers) noexcept;
VOXI2_QT_EXPORT VXFlags<EditTrigger> Qt2VX(QAbstractItemView::EditTriggers triggers) noexcept;
VOXI2_QT_EXPORT EditTrigger Qt2VX(QAbstractItemView::EditTrigger trigger) noexcept;

} // namespace VOXI
