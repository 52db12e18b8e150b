#include "voxi2_qt/kernel/qtcursor.h"

#include "enumtable.h"

namespace VOXI {

namespace {
constexpr auto Shapes = enumTable<CursorShape::Standard, Qt::CursorShape>({
    {CursorShape::Arrow, Qt::ArrowCursor},
    {CursorShape::UpArrow, Qt::UpArrowCursor},
    {CursorShape::Cross, Qt::CrossCursor},
    {CursorShape::Wait, Qt::WaitCursor},
    {CursorShape::IBeam, Qt::IBeamCursor},
    {CursorShape::SizeVertical, Qt::SizeVerCursor},
    {CursorShape::SizeHorizontal, Qt::SizeHorCursor},
    {CursorShape::SizeBackwardDiagonal, Qt::SizeBDiagCursor},
    {CursorShape::SizeForwardDiagonal, Qt::SizeFDiagCursor},
    {CursorShape::SizeAll, Qt::SizeAllCursor},
    {CursorShape::Blank, Qt::BlankCursor},
    {CursorShape::SplitVertical, Qt::SplitVCursor},
    {CursorShape::SplitHorizontal, Qt::SplitHCursor},
    {CursorShape::PointingHand, Qt::PointingHandCursor},
    {CursorShape::Forbidden, Qt::ForbiddenCursor},
    {CursorShape::WhatsThis, Qt::WhatsThisCursor},
    {CursorShape::Busy, Qt::BusyCursor},
    {CursorShape::OpenHand, Qt::OpenHandCursor},
    {CursorShape::ClosedHand, Qt::ClosedHandCursor},
    {CursorShape::DragCopy, Qt::DragCopyCursor},
    {CursorShape::DragMove, Qt::DragMoveCursor},
    {CursorShape::DragLink, Qt::DragLinkCursor},
});
} // namespace

Qt::CursorShape VX2Qt(const CursorShape& shape) noexcept { return Shapes.toQt(shape.shape()); }
CursorShape Qt2VX(Qt::CursorShape shape) noexcept { return Shapes.toVx(shape); }

} // namespace VOXI
