#pragma once

#include "voxi_util/bytearray.h"
#include "voxi_util/geometry.h"
#include "voxi_util/voxi_util_export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace VOXI {

/// A picture, as pixels or as something that an ImageDecoder can turn into pixels.
///
/// Immutable and implicitly shared: copying copies a pointer, and any thread may read it.
class VOXI_UTIL_EXPORT Pixmap
{
public:
    /// No picture.
    Pixmap() noexcept = default;

    /// Pixels row by row from the top, each 0xRRGGBBAA, not premultiplied. Null unless both
    /// dimensions are positive and there are exactly width times height pixels. `pixelRatio` says
    /// how many of them there are for each unit of the screen; what is no number above 0 is 1.
    Pixmap(int width, int height, std::vector<std::uint32_t> rgba, double pixelRatio = 1);

    /// An encoded picture, in whatever format the decoder understands; null when there is no byte.
    static Pixmap fromData(ByteArray data);
    /// A file that is read when the picture is decoded; null when the path is empty. UTF-8. What is
    /// no plain file, such as a device, or larger than `ImageDecoder::fileSizeLimit`, is not read.
    static Pixmap fromFile(std::string path);

    bool isNull() const noexcept { return !m_data; }
    /// Whether it has pixels.
    bool isRaw() const noexcept;

    /// In pixels; 0 unless raw.
    int width() const noexcept;
    int height() const noexcept;
    Size<int> size() const noexcept { return {width(), height()}; }
    /// Pixels for each unit of the screen, along a side; 1 unless it was made with another.
    double pixelRatio() const noexcept;

    /// Empty unless raw. Valid as long as any copy of this pixmap exists.
    const std::vector<std::uint32_t>& pixels() const noexcept;
    /// Empty unless made by fromData.
    const ByteArray& data() const noexcept;
    /// Empty unless made by fromFile.
    const std::string& path() const noexcept;

    /// The same for all copies of one pixmap, null for a null one; for caches.
    const void* identity() const noexcept { return m_data.get(); }

    /// By content; copies of one pixmap are equal without a look at it.
    VOXI_UTIL_EXPORT friend bool operator==(const Pixmap& a, const Pixmap& b) noexcept;

private:
    struct Data;
    explicit Pixmap(std::shared_ptr<const Data> data) noexcept;
    const Data& shared() const noexcept;

    std::shared_ptr<const Data> m_data;
};

/// Turns encoded pictures into pixels; a back end installs one. Must serve any thread.
class VOXI_UTIL_EXPORT ImageDecoder
{
public:
    ImageDecoder() = default;
    virtual ~ImageDecoder();
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;

    /// A raw pixmap of `source`; null when it cannot be decoded. `wanted` is a hint for pictures
    /// that have no size of their own, such as drawings; {0, 0} asks for the natural size. Does not
    /// throw for a picture that is missing or broken.
    virtual Pixmap decode(const Pixmap& source, Size<int> wanted) = 0;

    /// Replaces the decoder of the process; null removes it.
    static void install(std::shared_ptr<ImageDecoder> decoder);
    /// Null when there is none.
    static std::shared_ptr<ImageDecoder> installed();

    /// The largest file that decoders read, in bytes; 64 MiB unless it is set. Any thread.
    static void setFileSizeLimit(std::size_t bytes) noexcept;
    static std::size_t fileSizeLimit() noexcept;

    /// The longest side that decoders give a drawing, which has any size; drawings that ask for
    /// more are made smaller. In pixels.
    static constexpr int MaxDrawingSide = 4096;
};

} // namespace VOXI
