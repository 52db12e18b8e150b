#include "voxi2_qt/kernel/qtenums.h"

#include "enumtable.h"

namespace VOXI {

namespace {
// The first row of each table is what Qt uses unless it is told otherwise.

constexpr auto Alignments = enumTable<AlignmentFlag, Qt::AlignmentFlag>({
    {AlignmentFlag::Left, Qt::AlignLeft},
    {AlignmentFlag::Right, Qt::AlignRight},
    {AlignmentFlag::HCenter, Qt::AlignHCenter},
    {AlignmentFlag::Justify, Qt::AlignJustify},
    {AlignmentFlag::Absolute, Qt::AlignAbsolute},
    {AlignmentFlag::Top, Qt::AlignTop},
    {AlignmentFlag::Bottom, Qt::AlignBottom},
    {AlignmentFlag::VCenter, Qt::AlignVCenter},
    {AlignmentFlag::Baseline, Qt::AlignBaseline},
});

constexpr auto Directions = enumTable<Direction, QBoxLayout::Direction>({
    {Direction::LeftToRight, QBoxLayout::LeftToRight},
    {Direction::RightToLeft, QBoxLayout::RightToLeft},
    {Direction::TopToBottom, QBoxLayout::TopToBottom},
    {Direction::BottomToTop, QBoxLayout::BottomToTop},
});

constexpr auto Orientations = enumTable<Orientation, Qt::Orientation>({
    {Orientation::Horizontal, Qt::Horizontal},
    {Orientation::Vertical, Qt::Vertical},
});

constexpr auto Policies = enumTable<Policy, QSizePolicy::Policy>({
    {Policy::Fixed, QSizePolicy::Fixed},
    {Policy::Minimum, QSizePolicy::Minimum},
    {Policy::Maximum, QSizePolicy::Maximum},
    {Policy::Preferred, QSizePolicy::Preferred},
    {Policy::Expanding, QSizePolicy::Expanding},
    {Policy::MinimumExpanding, QSizePolicy::MinimumExpanding},
    {Policy::Ignored, QSizePolicy::Ignored},
});

constexpr auto SizeConstraints = enumTable<SizeConstraint, QLayout::SizeConstraint>({
    {SizeConstraint::Default, QLayout::SetDefaultConstraint},
    {SizeConstraint::None, QLayout::SetNoConstraint},
    {SizeConstraint::Minimum, QLayout::SetMinimumSize},
    {SizeConstraint::Fixed, QLayout::SetFixedSize},
    {SizeConstraint::Maximum, QLayout::SetMaximumSize},
    {SizeConstraint::MinimumAndMaximum, QLayout::SetMinAndMaxSize},
});

constexpr auto FrameShadows = enumTable<FrameShadow, QFrame::Shadow>({
    {FrameShadow::Plain, QFrame::Plain},
    {FrameShadow::Raised, QFrame::Raised},
    {FrameShadow::Sunken, QFrame::Sunken},
});

constexpr auto TabPositions = enumTable<TabPosition, QTabWidget::TabPosition>({
    {TabPosition::North, QTabWidget::North},
    {TabPosition::South, QTabWidget::South},
    {TabPosition::West, QTabWidget::West},
    {TabPosition::East, QTabWidget::East},
});

constexpr auto FrameShapes = enumTable<FrameShape, QFrame::Shape>({
    {FrameShape::None, QFrame::NoFrame},
    {FrameShape::Box, QFrame::Box},
    {FrameShape::Panel, QFrame::Panel},
    {FrameShape::WinPanel, QFrame::WinPanel},
    {FrameShape::HorizontalLine, QFrame::HLine},
    {FrameShape::VerticalLine, QFrame::VLine},
    {FrameShape::StyledPanel, QFrame::StyledPanel},
});

constexpr auto PopupModes = enumTable<ToolButtonPopupMode, QToolButton::ToolButtonPopupMode>({
    {ToolButtonPopupMode::Delayed, QToolButton::DelayedPopup},
    {ToolButtonPopupMode::MenuButton, QToolButton::MenuButtonPopup},
    {ToolButtonPopupMode::Instant, QToolButton::InstantPopup},
});

constexpr auto ToolButtonStyles = enumTable<ToolButtonStyle, Qt::ToolButtonStyle>({
    {ToolButtonStyle::IconOnly, Qt::ToolButtonIconOnly},
    {ToolButtonStyle::TextOnly, Qt::ToolButtonTextOnly},
    {ToolButtonStyle::TextBesideIcon, Qt::ToolButtonTextBesideIcon},
    {ToolButtonStyle::TextUnderIcon, Qt::ToolButtonTextUnderIcon},
    {ToolButtonStyle::FollowStyle, Qt::ToolButtonFollowStyle},
});

constexpr auto ShortcutContexts = enumTable<ShortcutContext, Qt::ShortcutContext>({
    {ShortcutContext::Window, Qt::WindowShortcut},
    {ShortcutContext::Widget, Qt::WidgetShortcut},
    {ShortcutContext::Application, Qt::ApplicationShortcut},
    {ShortcutContext::WidgetWithChildren, Qt::WidgetWithChildrenShortcut},
});

constexpr auto ActionExclusions = enumTable<ActionExclusion, QActionGroup::ExclusionPolicy>({
    {ActionExclusion::None, QActionGroup::ExclusionPolicy::None},
    {ActionExclusion::Exclusive, QActionGroup::ExclusionPolicy::Exclusive},
    {ActionExclusion::ExclusiveOptional, QActionGroup::ExclusionPolicy::ExclusiveOptional},
});
} // namespace

Qt::Alignment VX2Qt(Alignment alignment) noexcept
{
    return Alignments.toQtFlags<Qt::Alignment>(alignment);
}

Alignment Qt2VX(Qt::Alignment alignment) noexcept { return Alignments.toVxFlags(alignment); }
QBoxLayout::Direction VX2Qt(Direction direction) noexcept { return Directions.toQt(direction); }
Direction Qt2VX(QBoxLayout::Direction direction) noexcept { return Directions.toVx(direction); }
Qt::Orientation VX2Qt(Orientation orientation) noexcept { return Orientations.toQt(orientation); }
Orientation Qt2VX(Qt::Orientation orientation) noexcept { return Orientations.toVx(orientation); }
QSizePolicy::Policy VX2Qt(Policy policy) noexcept { return Policies.toQt(policy); }
Policy Qt2VX(QSizePolicy::Policy policy) noexcept { return Policies.toVx(policy); }

QLayout::SizeConstraint VX2Qt(SizeConstraint constraint) noexcept
{
    return SizeConstraints.toQt(constraint);
}

SizeConstraint Qt2VX(QLayout::SizeConstraint constraint) noexcept
{
    return SizeConstraints.toVx(constraint);
}

QFrame::Shadow VX2Qt(FrameShadow shadow) noexcept { return FrameShadows.toQt(shadow); }
FrameShadow Qt2VX(QFrame::Shadow shadow) noexcept { return FrameShadows.toVx(shadow); }
QTabWidget::TabPosition VX2Qt(TabPosition position) noexcept { return TabPositions.toQt(position); }
TabPosition Qt2VX(QTabWidget::TabPosition position) noexcept { return TabPositions.toVx(position); }
QFrame::Shape VX2Qt(FrameShape shape) noexcept { return FrameShapes.toQt(shape); }
FrameShape Qt2VX(QFrame::Shape shape) noexcept { return FrameShapes.toVx(shape); }

QToolButton::ToolButtonPopupMode VX2Qt(ToolButtonPopupMode mode) noexcept
{
    return PopupModes.toQt(mode);
}

ToolButtonPopupMode Qt2VX(QToolButton::ToolButtonPopupMode mode) noexcept
{
    return PopupModes.toVx(mode);
}

Qt::ToolButtonStyle VX2Qt(ToolButtonStyle style) noexcept { return ToolButtonStyles.toQt(style); }
ToolButtonStyle Qt2VX(Qt::ToolButtonStyle style) noexcept { return ToolButtonStyles.toVx(style); }

Qt::ShortcutContext VX2Qt(ShortcutContext context) noexcept
{
    return ShortcutContexts.toQt(context);
}

ShortcutContext Qt2VX(Qt::ShortcutContext context) noexcept
{
    return ShortcutContexts.toVx(context);
}

QActionGroup::ExclusionPolicy VX2Qt(ActionExclusion exclusion) noexcept
{
    return ActionExclusions.toQt(exclusion);
}

ActionExclusion Qt2VX(QActionGroup::ExclusionPolicy policy) noexcept
{
    return ActionExclusions.toVx(policy);
}

} // namespace VOXI
