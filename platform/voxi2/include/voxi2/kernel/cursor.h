#pragma once

#include "voxi_util/stringid.h"

namespace VOXI {

/// The shape of the mouse pointer: a standard one, or one that the application registered with the
/// `CustomCursorRegistry` under a name.
class CursorShape
{
public:
    enum Standard : int {
        Arrow,
        UpArrow,
        Cross,
        Wait,
        IBeam,
        SizeVertical,
        SizeHorizontal,
        SizeBackwardDiagonal,
        SizeForwardDiagonal,
        SizeAll,
        Blank,
        SplitVertical,
        SplitHorizontal,
        PointingHand,
        Forbidden,
        WhatsThis,
        Busy,
        OpenHand,
        ClosedHand,
        DragCopy,
        DragMove,
        DragLink,
        Custom
    };

    /// `Custom` without a name is shown as the arrow.
    CursorShape(Standard shape = Arrow) : m_shape(shape) {}
    /// A name that nobody has registered is shown as the arrow.
    explicit CursorShape(const StringID& customName) : m_shape(Custom), m_name(customName) {}

    Standard shape() const noexcept { return m_shape; }
    bool isCustom() const noexcept { return m_shape == Custom; }
    /// The name of a custom shape; empty for others.
    const StringID& name() const noexcept { return m_name; }

    friend bool operator==(const CursorShape& a, const CursorShape& b)
    {
        return a.m_shape == b.m_shape && a.m_name == b.m_name;
    }

private:
    Standard m_shape;
    StringID m_name;
};

/// What a widget's pointer looks like.
using Cursor = CursorShape;

} // namespace VOXI
