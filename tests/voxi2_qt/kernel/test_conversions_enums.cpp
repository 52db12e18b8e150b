#include "enumpairs.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QAction>
#include <QTreeView>

using namespace VOXI;

TEST(ConvertEnums, MembersWithTheNumbersThatTheyHaveInQt)
{
    expectSameNumbers<QBoxLayout::Direction>(Direction::LeftToRight, Direction::BottomToTop);
    expectSameNumbers<Qt::Orientation>(Orientation::Horizontal, Orientation::Vertical);
    expectSameNumbers<QLayout::SizeConstraint>(SizeConstraint::Default,
                                               SizeConstraint::MinimumAndMaximum);
    expectSameNumbers<QTabWidget::TabPosition>(TabPosition::North, TabPosition::East);
    expectSameNumbers<QFrame::Shape>(FrameShape::None, FrameShape::StyledPanel);
    expectSameNumbers<QToolButton::ToolButtonPopupMode>(ToolButtonPopupMode::Delayed,
                                                        ToolButtonPopupMode::Instant);
    expectSameNumbers<Qt::ToolButtonStyle>(ToolButtonStyle::IconOnly, ToolButtonStyle::FollowStyle);
    expectSameNumbers<Qt::ShortcutContext>(ShortcutContext::Widget,
                                           ShortcutContext::WidgetWithChildren);
    expectSameNumbers<QActionGroup::ExclusionPolicy>(ActionExclusion::None,
                                                     ActionExclusion::ExclusiveOptional);
    expectSameNumbers<QComboBox::InsertPolicy>(ComboInsertPolicy::None,
                                               ComboInsertPolicy::Alphabetically);
    expectSameNumbers<QHeaderView::ResizeMode>(ColumnResizeMode::Interactive,
                                               ColumnResizeMode::ResizeToContents);
    expectSameNumbers<QAbstractItemView::SelectionBehavior>(SelectionBehavior::Items,
                                                            SelectionBehavior::Columns);
    expectSameNumbers<QAbstractItemView::SelectionMode>(SelectionMode::None,
                                                        SelectionMode::Contiguous);
    expectSameNumbers<Qt::TextElideMode>(TextElideMode::Left, TextElideMode::None);
}

TEST(ConvertEnums, MembersWithOtherNumbersInQt)
{
    expectPairs<QSizePolicy::Policy, Policy>({{Policy::Fixed, 0},
                                              {Policy::Minimum, 1},
                                              {Policy::Maximum, 4},
                                              {Policy::Preferred, 5},
                                              {Policy::Expanding, 7},
                                              {Policy::MinimumExpanding, 3},
                                              {Policy::Ignored, 13}});
    expectPairs<QFrame::Shadow, FrameShadow>(
        {{FrameShadow::Plain, 0x10}, {FrameShadow::Raised, 0x20}, {FrameShadow::Sunken, 0x30}});
}

TEST(ConvertEnums, Flags)
{
    expectSameBits<Qt::Alignment>(AlignmentFlag::Baseline);
    EXPECT_EQ(VX2Qt(Alignment(AlignmentFlag::Center)), Qt::AlignCenter);
    EXPECT_EQ(VX2Qt(Alignment::fromInt(0xfffffe00)), Qt::Alignment());

    for (const auto area : {ToolBarArea::None, ToolBarArea::Left, ToolBarArea::Right,
                            ToolBarArea::Top, ToolBarArea::Bottom})
        expectSameNumbers<Qt::ToolBarArea>(area, area);
    EXPECT_EQ(Qt2VX(Qt::AllToolBarAreas), ToolBarArea::None);
    expectSameNumbers<Qt::DockWidgetArea>(DockArea::None, DockArea::None);
    expectSameBits<Qt::DockWidgetAreas>(DockArea::Bottom);
    expectSameBits<QDockWidget::DockWidgetFeatures>(DockFeature::VerticalTitleBar);

    expectSameBits<QAbstractItemView::EditTriggers>(EditTrigger::AnyKeyPressed);
    EXPECT_EQ(Qt2VX(QAbstractItemView::EditKeyPressed), EditTrigger::EditKeyPressed);
    EXPECT_EQ(Qt2VX(QAbstractItemView::AllEditTriggers), EditTrigger::All);
    EXPECT_EQ(Qt2VX(QAbstractItemView::NoEditTriggers), EditTrigger::None);

    expectSameBits<Qt::WindowStates>(WindowState::Active);
}

TEST(ConvertEnums, WhatIsNoMemberBecomesWhatAFreshWidgetHas)
{
    EXPECT_EQ(VX2Qt(static_cast<ComboInsertPolicy>(99)), QComboBox().insertPolicy());
    EXPECT_EQ(Qt2VX(static_cast<QComboBox::InsertPolicy>(7)), ComboInsertPolicy::AtBottom);
    EXPECT_EQ(VX2Qt(static_cast<SelectionMode>(99)), QTreeView().selectionMode());
    EXPECT_EQ(VX2Qt(static_cast<TextElideMode>(99)), QTreeView().textElideMode());
    EXPECT_EQ(VX2Qt(static_cast<ShortcutContext>(99)), QAction().shortcutContext());
    EXPECT_EQ(VX2Qt(static_cast<ToolButtonPopupMode>(99)), QToolButton().popupMode());
    EXPECT_EQ(VX2Qt(static_cast<FrameShape>(99)), QFrame().frameShape());
    // A frame that was never given a shadow is without one: plain.
    EXPECT_EQ(Qt2VX(QFrame::Shadow(0)), FrameShadow::Plain);
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
