#pragma once

#include "voxi2/controls/imagescaling.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"
#include "voxi_util/color.h"
#include "voxi_util/pixmap.h"

#include <string>

namespace VOXI {

struct VXImage2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(std::string, bool)> setFile{*this};
    TROV::Request<void(std::wstring, bool)> setFileU{*this};
    TROV::Request<void(Pixmap)> setPixmap{*this};
    TROV::Request<void(Color)> setMaskColor{*this};
    TROV::Request<void(bool)> setScaleEnable{*this};
    TROV::Request<Size<int>()> getImageSize{*this};
    TROV::Request<Color()> getMaskColor{*this};
    TROV::Request<bool()> isScaleEnabled{*this};
    TROV::Request<void(ImageScaling)> setScaling{*this};
    TROV::Request<ImageScaling()> getScaling{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// A picture of pixels. Who cannot see it is told its accessible name.
class VOXI2_EXPORT VXImage2 : public VXWidget2
{
public:
    using ToolkitClass = VXImage2;

    explicit VXImage2(VXObject2* parent = nullptr);
    explicit VXImage2(const Pixmap& pixmap, VXObject2* parent = nullptr);
    ~VXImage2() override;

    /// Shows the picture of a file, which is read at once. With `mask` what looks like its
    /// background, by the colour of its corners, is left out. A name that ends in "@2x", before the
    /// dot, is that of a picture for screens of two pixels a unit, and so on to "@9x".
    ///
    /// A file that is missing, broken, larger than `ImageDecoder::fileSizeLimit` or of too many
    /// pixels shows nothing, and so does a drawing that refers to anything outside of itself.
    void setFile(const AnyText& path, bool mask = false);
    /// A null pixmap shows nothing.
    void setPixmap(const Pixmap& pixmap);
    /// In pixels; 0 x 0 while there is no picture.
    Size<int> imageSize() const;

    /// Is painted over everything, picture and highlight alike, as opaque as it is. One of opacity
    /// 0, which it is at first, shows the picture again.
    void setMaskColor(Color color);
    Color maskColor() const;

    /// `None` at first. A layout may make a widget smaller than its picture if that is then shown
    /// in its proportions.
    void setScaling(ImageScaling scaling);
    ImageScaling scaling() const;
    /// Short for `Stretch` and `None`.
    void setScaleEnabled(bool enabled);
    bool isScaleEnabled() const;

private:
    VXImage2Emitters m_emitters;
};

} // namespace VOXI
