#include "voxi_util/icon.h"

#include <algorithm>
#include <utility>

namespace VOXI {

Icon Icon::fromFile(std::string path) { return fromPixmap(Pixmap::fromFile(std::move(path))); }

Icon Icon::fromPixmap(const Pixmap& pixmap)
{
    Icon icon;
    icon.addPixmap(pixmap);
    return icon;
}

void Icon::addPixmap(const Pixmap& pixmap, IconMode mode, IconState state, Size<int> nominalSize)
{
    if (pixmap.isNull())
        return;
    std::vector<Layer> changed = layers();
    if (changed.empty())
        changed.emplace_back();
    changed.front().sources.push_back(
        {pixmap, mode, state, pixmap.isRaw() ? pixmap.size() : nominalSize});
    m_layers = std::make_shared<const std::vector<Layer>>(std::move(changed));
}

void Icon::addLayer(const Icon& icon, const VXRect<double>& placement, double opacity)
{
    if (icon.isNull())
        return;
    std::vector<Layer> changed = layers();
    for (Layer layer : icon.layers()) {
        const VXRect<double> inner = layer.placement;
        layer.placement = {placement.x + inner.x * placement.width,
                           placement.y + inner.y * placement.height, inner.width * placement.width,
                           inner.height * placement.height};
        layer.opacity *= opacity;
        changed.push_back(std::move(layer));
    }
    m_layers = std::make_shared<const std::vector<Layer>>(std::move(changed));
}

const std::vector<Icon::Layer>& Icon::layers() const noexcept
{
    static const std::vector<Layer>& none = *new std::vector<Layer>;
    return m_layers ? *m_layers : none;
}

std::vector<Size<int>> Icon::availableSizes(IconMode mode, IconState state) const
{
    std::vector<Size<int>> sizes;
    if (isNull())
        return sizes;
    for (const Source& source : layers().front().sources) {
        if (source.mode == mode && source.state == state && !source.nominalSize.isEmpty()
            && std::find(sizes.begin(), sizes.end(), source.nominalSize) == sizes.end())
            sizes.push_back(source.nominalSize);
    }
    return sizes;
}

bool operator==(const Icon& a, const Icon& b) noexcept
{
    return a.m_layers == b.m_layers || a.layers() == b.layers();
}

} // namespace VOXI
