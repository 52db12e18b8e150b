#pragma once

#include "voxi2/containers/vxlayout2.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXFlowLayout2Emitters : TROV::EmittersTable<VXLayout2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(Direction)> setDirection{*this};
    TROV::Request<Direction()> getDirection{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Places widgets in lines, like words: what does not fit begins the next line.
///
/// Each widget gets the size that it would like. Lines go in the direction and follow each other
/// downwards, those of the two vertical directions to the right. Directions are what they are
/// called: other than a box or a grid it is not mirrored where the user reads from right to left;
/// `RightToLeft` is for that. The layout asks for as much room
/// as it used when it last laid out, and for none before. It places widgets up to the edges of its
/// widget: margins are set there, by `VXWidget2::setContentsMargins`.
class VOXI2_EXPORT VXFlowLayout2 : public VXLayout2
{
public:
    using ToolkitClass = VXFlowLayout2;

    /// Lays out the inside of `parent`, if it is a widget without a layout. A direction that is
    /// none of the four places nothing.
    explicit VXFlowLayout2(VXObject2* parent = nullptr,
                           Direction direction = Direction::LeftToRight);
    ~VXFlowLayout2() override;

    void setDirection(Direction direction);
    Direction direction() const;

private:
    VXFlowLayout2Emitters m_emitters;
};

} // namespace VOXI
