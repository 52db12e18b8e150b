#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/bytearray.h"
#include "voxi_util/pixmap.h"

#include <string>

namespace VOXI {

struct VXSvgImage2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string)> setFile{*this};
    TROV::Request<void(std::wstring)> setFileU{*this};
    TROV::Request<void(ByteArray)> setData{*this};
    TROV::Request<void(int)> setHeight{*this};
    TROV::Request<Pixmap(int)> getPixmap{*this};
    TROV::Request<Size<int>()> getImageSize{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A drawing (SVG), sharp at every size. Who cannot see it is told its accessible name, or else its
/// tool tip.
///
/// A drawing is shown only if it can do no harm: none that refers to files or to the network, that
/// contains itself, or that is made to take more time and memory than drawings do. In its place,
/// and in that of one that is missing or broken, nothing is shown.
class VOXI2_EXPORT VXSvgImage2 : public VXWidget2
{
public:
    using ToolkitClass = VXSvgImage2;

    explicit VXSvgImage2(VXObject2* parent = nullptr);
    ~VXSvgImage2() override;

    /// Shows the drawing of a file, which is read at once; it may be compressed (SVGZ).
    void setFile(const AnyText& path);
    /// Shows a drawing that the program has, compressed or not.
    void setContents(const ByteArray& data);
    /// The same with a copy of `length` bytes at `data`; none if that is null or negative.
    void setContents(const char* data, int length);

    /// The drawing's own size in pixels; 0 x 0 while none is shown. Asks the peer, as a getter.
    Size<int> imageSize() const;

    /// Fixes the widget's height, and its width by the proportions of the drawing; those of the
    /// first drawing whose height was set stay in force for later ones. Ignored for a negative
    /// height, and while no drawing is shown that has a size.
    void setHeight(int height);

    /// The drawing in pixels: of that height; of the widget's own size where that is -1; of the
    /// drawing's own where it is 0, which is known once a height has been set. What the drawing
    /// leaves free has no defined colour. Null while no drawing is shown that has a size, for
    /// another negative height, and for more than 16 million pixels.
    Pixmap pixmap(int height) const;

private:
    bool hasSize() const;

    VXSvgImage2Emitters m_emitters;
};

} // namespace VOXI
