#pragma once

#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/stringid.h"

namespace VOXI {

/// Knows the cursors that an application draws itself.
///
/// A back end installs one; the application registers cursors under names and sets them on widgets
/// like the standard shapes. Any thread.
class VOXI2_EXPORT CustomCursorRegistry
{
public:
    virtual ~CustomCursorRegistry();

    /// Makes `image` the cursor of that name, in place of an earlier one; `hotSpot` is the pixel
    /// that points, (-1, -1) the centre. Widgets that have the cursor show the new image at once;
    /// if another thread registers it, with the next turn of the toolkit's. An empty image takes
    /// the name out: widgets that have the cursor keep it, with its name and the last image, but
    /// it cannot be set any more.
    virtual void registerCursor(const StringID& name, const Pixmap& image,
                                const VXPoint<int>& hotSpot) = 0;

    /// Whether a cursor of that name is known.
    virtual bool hasCursor(const StringID& name) const = 0;

    /// The registry in force replaces the former one, which is not deleted. Null: none.
    static void installCustomCursorRegistry(CustomCursorRegistry* registry);

    /// Null while no back end is up.
    static CustomCursorRegistry* instance();
};

} // namespace VOXI
