#include "voxi_util/pixmap.h"

#include "voxi_util/readwritelock.h"

#include <atomic>
#include <cmath>
#include <cstddef>
#include <utility>

namespace VOXI {
namespace {

struct DecoderSlot
{
    ReadWriteLock lock;
    std::shared_ptr<ImageDecoder> decoder;
};

std::atomic<std::size_t> s_fileSizeLimit{std::size_t(64) << 20};

/// Never destroyed: a back end may take its decoder away while the process is exiting.
DecoderSlot& decoderSlot()
{
    static DecoderSlot& slot = *new DecoderSlot;
    return slot;
}

} // namespace

struct Pixmap::Data
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    ByteArray data;
    std::string path;
    double pixelRatio = 1;

    friend bool operator==(const Data&, const Data&) = default;
};

Pixmap::Pixmap(std::shared_ptr<const Data> data) noexcept : m_data(std::move(data)) {}

Pixmap::Pixmap(int width, int height, std::vector<std::uint32_t> rgba, double pixelRatio)
{
    if (width <= 0 || height <= 0
        || rgba.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        return;
    const double ratio = std::isfinite(pixelRatio) && pixelRatio > 0 ? pixelRatio : 1;
    m_data = std::make_shared<const Data>(Data{width, height, std::move(rgba), {}, {}, ratio});
}

Pixmap Pixmap::fromData(ByteArray data)
{
    if (data.isEmpty())
        return {};
    return Pixmap(std::make_shared<const Data>(Data{0, 0, {}, std::move(data), {}, 1}));
}

Pixmap Pixmap::fromFile(std::string path)
{
    if (path.empty())
        return {};
    return Pixmap(std::make_shared<const Data>(Data{0, 0, {}, {}, std::move(path), 1}));
}

/// What a null pixmap reads from.
const Pixmap::Data& Pixmap::shared() const noexcept
{
    static const Data& none = *new Data;
    return m_data ? *m_data : none;
}

bool Pixmap::isRaw() const noexcept { return shared().width > 0; }
int Pixmap::width() const noexcept { return shared().width; }
int Pixmap::height() const noexcept { return shared().height; }
double Pixmap::pixelRatio() const noexcept { return shared().pixelRatio; }
const std::vector<std::uint32_t>& Pixmap::pixels() const noexcept { return shared().pixels; }
const ByteArray& Pixmap::data() const noexcept { return shared().data; }
const std::string& Pixmap::path() const noexcept { return shared().path; }

bool operator==(const Pixmap& a, const Pixmap& b) noexcept
{
    return a.m_data == b.m_data || (a.m_data && b.m_data && *a.m_data == *b.m_data);
}

ImageDecoder::~ImageDecoder() = default;

void ImageDecoder::install(std::shared_ptr<ImageDecoder> decoder)
{
    DecoderSlot& slot = decoderSlot();
    // The former decoder goes after the lock is given up: its destructor is not ours to know.
    {
        WriteLocker writing(slot.lock);
        slot.decoder.swap(decoder);
    }
}

void ImageDecoder::setFileSizeLimit(std::size_t bytes) noexcept { s_fileSizeLimit = bytes; }
std::size_t ImageDecoder::fileSizeLimit() noexcept { return s_fileSizeLimit; }

std::shared_ptr<ImageDecoder> ImageDecoder::installed()
{
    DecoderSlot& slot = decoderSlot();
    ReadLocker reading(slot.lock);
    return slot.decoder;
}

} // namespace VOXI
