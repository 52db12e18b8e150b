#pragma once

#include "voxi_util/geometry.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/voxi_util_export.h"

#include <memory>
#include <string>
#include <vector>

namespace VOXI {

/// A picture for several sizes, modes and states, made of layers that lie on each other.
///
/// Implicitly shared: copying copies a pointer, adding to a copy leaves the original alone. What
/// an icon looks like at a size is worked out by ImageCompositor.
class VOXI_UTIL_EXPORT Icon
{
public:
    enum class IconMode { Normal, Disabled, Active, Selected };
    enum class IconState { Off, On };

    /// One pixmap of a layer and what it is meant for.
    struct Source
    {
        Pixmap pixmap;
        IconMode mode = IconMode::Normal;
        IconState state = IconState::Off;
        /// In pixels; {0, 0} when it is unknown or the picture suits any size.
        Size<int> nominalSize;

        friend bool operator==(const Source&, const Source&) = default;
    };

    struct Layer
    {
        std::vector<Source> sources;
        /// In fractions of the icon's area: {0, 0, 1, 1} is the whole of it.
        VXRect<double> placement{0, 0, 1, 1};
        /// 0 is invisible, 1 as the pixmaps are.
        double opacity = 1;

        friend bool operator==(const Layer&, const Layer&) = default;
    };

    /// The longest side that widgets show icons with, in pixels. Where a larger size is asked for
    /// it becomes this one.
    static constexpr int MaxShownSide = 1024;

    /// No icon.
    Icon() noexcept = default;
    /// The file is read when the icon is first shown; null when the path is empty. UTF-8. Devices
    /// and files beyond `ImageDecoder::fileSizeLimit` are not read.
    static Icon fromFile(std::string path);
    static Icon fromPixmap(const Pixmap& pixmap);

    /// Adds a pixmap to the bottom layer; a null one is ignored. A raw pixmap has its own size,
    /// `nominalSize` counts for the others.
    void addPixmap(const Pixmap& pixmap, IconMode mode = IconMode::Normal,
                   IconState state = IconState::Off, Size<int> nominalSize = {});

    /// Lays another icon with all its layers on top. `placement` is in fractions of this icon's
    /// area, `opacity` is of 0 to 1.
    void addLayer(const Icon& icon, const VXRect<double>& placement = {0, 0, 1, 1},
                  double opacity = 1);

    bool isNull() const noexcept { return !m_layers; }
    /// From the bottom to the top.
    const std::vector<Layer>& layers() const noexcept;
    /// The known sizes of the bottom layer for a mode and a state, each once, in order of adding.
    std::vector<Size<int>> availableSizes(IconMode mode = IconMode::Normal,
                                          IconState state = IconState::Off) const;

    /// The same for all copies of one icon, null for a null one; for caches.
    const void* identity() const noexcept { return m_layers.get(); }

    /// By content; copies of one icon are equal without a look at it.
    VOXI_UTIL_EXPORT friend bool operator==(const Icon& a, const Icon& b) noexcept;

private:
    std::shared_ptr<const std::vector<Layer>> m_layers;
};

} // namespace VOXI
