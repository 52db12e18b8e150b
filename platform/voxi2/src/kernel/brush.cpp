#include "voxi2/kernel/brush.h"

#include <cmath>
#include <utility>

namespace VOXI {

Brush::Brush(Style style, Gradient gradient)
{
    std::erase_if(gradient.stops,
                  [](const GradientStop& stop) { return std::isnan(stop.position); });
    if (gradient.stops.empty())
        return;
    if (gradient.stops.size() > MostStops)
        gradient.stops.resize(MostStops);
    m_gradient = std::make_shared<const Gradient>(std::move(gradient));
    m_style = style;
}

Brush Brush::linear(const VXPoint<double>& from, const VXPoint<double>& to,
                    std::vector<GradientStop> stops, GradientSpread spread)
{
    return Brush(Style::Linear, {std::move(stops), spread, from, to, 0});
}

Brush Brush::radial(const VXPoint<double>& center, double radius, std::vector<GradientStop> stops,
                    GradientSpread spread)
{
    return Brush(Style::Radial, {std::move(stops), spread, center, {}, radius});
}

} // namespace VOXI
