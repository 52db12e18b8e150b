#include "enumpairs.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QAction>
#include <QTreeView>

using namespace VOXI;

TEST(ConvertEnums, LayoutAndSizes)
{
    expectPairs<QBoxLayout::Direction, Direction>({{Direction::LeftToRight, 0},
                                                   {Direction::RightToLeft, 1},
                                                   {Direction::TopToBottom, 2},
                                                   {Direction::BottomToTop, 3}});
    expectPairs<Qt::Orientation, Orientation>(
        {{Orientation::Horizontal, 1}, {Orientation::Vertical, 2}});
    expectPairs<QSizePolicy::Policy, Policy>({{Policy::Fixed, 0},
                                              {Policy::Minimum, 1},
                                              {Policy::Maximum, 4},
                                              {Policy::Preferred, 5},
                                              {Policy::Expanding, 7},
                                              {Policy::MinimumExpanding, 3},
                                              {Policy::Ignored, 13}});
    expectPairs<QLayout::SizeConstraint, SizeConstraint>({{SizeConstraint::Default, 0},
                                                          {SizeConstraint::None, 1},
                                                          {SizeConstraint::Minimum, 2},
                                                          {SizeConstraint::Fixed, 3},
                                                          {SizeConstraint::Maximum, 4},
                                                          {SizeConstraint::MinimumAndMaximum, 5}});
}

TEST(ConvertEnums, Alignment)
{
    expectFlags<Qt::Alignment, AlignmentFlag>({{AlignmentFlag::Left, 0x1},
                                               {AlignmentFlag::Right, 0x2},
                                               {AlignmentFlag::HCenter, 0x4},
                                               {AlignmentFlag::Justify, 0x8},
                                               {AlignmentFlag::Absolute, 0x10},
                                               {AlignmentFlag::Top, 0x20},
                                               {AlignmentFlag::Bottom, 0x40},
                                               {AlignmentFlag::VCenter, 0x80},
                                               {AlignmentFlag::Center, 0x84},
                                               {AlignmentFlag::Baseline, 0x100}});
    EXPECT_EQ(VX2Qt(Alignment::fromInt(0xfffffe00)), Qt::Alignment());
}

TEST(ConvertEnums, Docking)
{
    expectPairs<Qt::ToolBarArea, ToolBarArea>({{ToolBarArea::None, 0},
                                               {ToolBarArea::Left, 1},
                                               {ToolBarArea::Right, 2},
                                               {ToolBarArea::Top, 4},
                                               {ToolBarArea::Bottom, 8}});
    EXPECT_EQ(Qt2VX(Qt::AllToolBarAreas), ToolBarArea::None);
    expectPairs<Qt::DockWidgetArea, DockArea>({{DockArea::None, 0},
                                               {DockArea::Left, 1},
                                               {DockArea::Right, 2},
                                               {DockArea::Top, 4},
                                               {DockArea::Bottom, 8}});
    expectFlags<Qt::DockWidgetAreas, DockArea>(
        {{DockArea::Left, 1}, {DockArea::Right, 2}, {DockArea::Top, 4}, {DockArea::Bottom, 8}});
    expectFlags<QDockWidget::DockWidgetFeatures, DockFeature>({{DockFeature::Closable, 1},
                                                               {DockFeature::Movable, 2},
                                                               {DockFeature::Floatable, 4},
                                                               {DockFeature::VerticalTitleBar, 8}});
}

TEST(ConvertEnums, FramesAndToolButtons)
{
    expectPairs<QTabWidget::TabPosition, TabPosition>({{TabPosition::North, 0},
                                                       {TabPosition::South, 1},
                                                       {TabPosition::West, 2},
                                                       {TabPosition::East, 3}});
    expectPairs<QFrame::Shadow, FrameShadow>(
        {{FrameShadow::Plain, 0x10}, {FrameShadow::Raised, 0x20}, {FrameShadow::Sunken, 0x30}});
    expectPairs<QFrame::Shape, FrameShape>({{FrameShape::None, 0},
                                            {FrameShape::Box, 1},
                                            {FrameShape::Panel, 2},
                                            {FrameShape::WinPanel, 3},
                                            {FrameShape::HorizontalLine, 4},
                                            {FrameShape::VerticalLine, 5},
                                            {FrameShape::StyledPanel, 6}});
    // A frame that was never given a shadow is without one: plain.
    EXPECT_EQ(Qt2VX(QFrame::Shadow(0)), FrameShadow::Plain);
    expectPairs<QToolButton::ToolButtonPopupMode, ToolButtonPopupMode>(
        {{ToolButtonPopupMode::Delayed, 0},
         {ToolButtonPopupMode::MenuButton, 1},
         {ToolButtonPopupMode::Instant, 2}});
    expectPairs<Qt::ToolButtonStyle, ToolButtonStyle>({{ToolButtonStyle::IconOnly, 0},
                                                       {ToolButtonStyle::TextOnly, 1},
                                                       {ToolButtonStyle::TextBesideIcon, 2},
                                                       {ToolButtonStyle::TextUnderIcon, 3},
                                                       {ToolButtonStyle::FollowStyle, 4}});
    expectPairs<Qt::ShortcutContext, ShortcutContext>({{ShortcutContext::Widget, 0},
                                                       {ShortcutContext::Window, 1},
                                                       {ShortcutContext::Application, 2},
                                                       {ShortcutContext::WidgetWithChildren, 3}});
    expectPairs<QActionGroup::ExclusionPolicy, ActionExclusion>(
        {{ActionExclusion::None, 0},
         {ActionExclusion::Exclusive, 1},
         {ActionExclusion::ExclusiveOptional, 2}});
}

TEST(ConvertEnums, ItemViewsAndCombos)
{
    expectPairs<QComboBox::InsertPolicy, ComboInsertPolicy>(
        {{ComboInsertPolicy::None, 0},
         {ComboInsertPolicy::AtTop, 1},
         {ComboInsertPolicy::AtCurrent, 2},
         {ComboInsertPolicy::AtBottom, 3},
         {ComboInsertPolicy::AfterCurrent, 4},
         {ComboInsertPolicy::BeforeCurrent, 5},
         {ComboInsertPolicy::Alphabetically, 6}});
    expectPairs<QHeaderView::ResizeMode, ColumnResizeMode>(
        {{ColumnResizeMode::Interactive, 0},
         {ColumnResizeMode::Stretch, 1},
         {ColumnResizeMode::Fixed, 2},
         {ColumnResizeMode::ResizeToContents, 3}});
    expectPairs<QAbstractItemView::SelectionBehavior, SelectionBehavior>(
        {{SelectionBehavior::Items, 0},
         {SelectionBehavior::Rows, 1},
         {SelectionBehavior::Columns, 2}});
    expectPairs<QAbstractItemView::SelectionMode, SelectionMode>({{SelectionMode::None, 0},
                                                                  {SelectionMode::Single, 1},
                                                                  {SelectionMode::Multi, 2},
                                                                  {SelectionMode::Extended, 3},
                                                                  {SelectionMode::Contiguous, 4}});
    expectPairs<Qt::TextElideMode, TextElideMode>({{TextElideMode::Left, 0},
                                                   {TextElideMode::Right, 1},
                                                   {TextElideMode::Middle, 2},
                                                   {TextElideMode::None, 3}});
    // What is no member becomes what a fresh widget has.
    EXPECT_EQ(VX2Qt(static_cast<ComboInsertPolicy>(99)), QComboBox().insertPolicy());
    EXPECT_EQ(Qt2VX(static_cast<QComboBox::InsertPolicy>(7)), ComboInsertPolicy::AtBottom);
    EXPECT_EQ(VX2Qt(static_cast<SelectionMode>(99)), QTreeView().selectionMode());
    EXPECT_EQ(VX2Qt(static_cast<TextElideMode>(99)), QTreeView().textElideMode());
    EXPECT_EQ(VX2Qt(static_cast<ShortcutContext>(99)), QAction().shortcutContext());
    EXPECT_EQ(VX2Qt(static_cast<ToolButtonPopupMode>(99)), QToolButton().popupMode());
    EXPECT_EQ(VX2Qt(static_cast<FrameShape>(99)), QFrame().frameShape());
}

TEST(ConvertEnums, EditTriggers)
{
    expectFlags<QAbstractItemView::EditTriggers, EditTrigger>({{EditTrigger::CurrentChanged, 1},
                                                               {EditTrigger::DoubleClicked, 2},
                                                               {EditTrigger::SelectedClicked, 4},
                                                               {EditTrigger::EditKeyPressed, 8},
                                                               {EditTrigger::AnyKeyPressed, 16},
                                                               {EditTrigger::All, 31}});
    EXPECT_EQ(Qt2VX(QAbstractItemView::EditKeyPressed), EditTrigger::EditKeyPressed);
    EXPECT_EQ(Qt2VX(QAbstractItemView::AllEditTriggers), EditTrigger::All);
    EXPECT_EQ(Qt2VX(QAbstractItemView::NoEditTriggers), EditTrigger::None);
}

TEST(ConvertEnums, WindowStates)
{
    expectFlags<Qt::WindowStates, WindowState>({{WindowState::Minimized, 1},
                                                {WindowState::Maximized, 2},
                                                {WindowState::FullScreen, 4},
                                                {WindowState::Active, 8}});
}

TEST(ConvertEnums, CursorShapes)
{
    const Qt::CursorShape expected[] = {
        Qt::ArrowCursor,     Qt::UpArrowCursor,      Qt::CrossCursor,      Qt::WaitCursor,
        Qt::IBeamCursor,     Qt::SizeVerCursor,      Qt::SizeHorCursor,    Qt::SizeBDiagCursor,
        Qt::SizeFDiagCursor, Qt::SizeAllCursor,      Qt::BlankCursor,      Qt::SplitVCursor,
        Qt::SplitHCursor,    Qt::PointingHandCursor, Qt::ForbiddenCursor,  Qt::WhatsThisCursor,
        Qt::BusyCursor,      Qt::OpenHandCursor,     Qt::ClosedHandCursor, Qt::DragCopyCursor,
        Qt::DragMoveCursor,  Qt::DragLinkCursor};
    static_assert(std::size(expected) == CursorShape::Custom);
    for (int i = 0; i < CursorShape::Custom; ++i) {
        const CursorShape shape(static_cast<CursorShape::Standard>(i));
        EXPECT_EQ(VX2Qt(shape), expected[i]);
        EXPECT_EQ(Qt2VX(expected[i]), shape);
    }
    EXPECT_EQ(VX2Qt(CursorShape(StringID("own"))), Qt::ArrowCursor);
    EXPECT_EQ(Qt2VX(Qt::BitmapCursor), CursorShape(CursorShape::Arrow));
}
