#pragma once

#include "voxi_util/color.h"

#include <QColor>

#include <concepts>

namespace VOXI {

/// All four channels.
inline QColor VX2Qt(const Color& color) noexcept
{
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

/// The four channels in eight bits each, whatever the colour was specified in; an invalid colour
/// is opaque black. Takes colours alone, because every Qt enumeration converts to a QColor.
inline Color Qt2VX(const std::same_as<QColor> auto& color) noexcept
{
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

} // namespace VOXI
