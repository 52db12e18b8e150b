#include "voxi_util/vxmimedata2.h"

#include "voxi_util/textencoding.h"
#include "voxi_util/typeinfo.h"
#include "voxi_util/vxlazydata.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace VOXI {
namespace {

StringID plainFormat()
{
    static const StringID format("text/plain");
    return format;
}

StringID htmlFormat()
{
    static const StringID format("text/html");
    return format;
}

StringID uriFormat()
{
    static const StringID format("text/uri-list");
    return format;
}

StringID imageFormat()
{
    static const StringID format("application/x-voxi-image");
    return format;
}

StringID colorFormat()
{
    static const StringID format("application/x-color");
    return format;
}

/// The form that other programs understand: red, green, blue and opacity as 16-bit numbers in the
/// order of bytes of this machine.
using WideChannels = std::array<std::uint16_t, 4>;

ByteArray bytesOf(Color color)
{
    const auto wide = [](int channel) { return static_cast<std::uint16_t>(channel * 257); };
    const WideChannels channels{wide(color.red()), wide(color.green()), wide(color.blue()),
                                wide(color.alpha())};
    return {channels.data(), sizeof channels};
}

std::optional<Color> colorOf(const ByteArray& bytes)
{
    WideChannels channels;
    if (bytes.size() != sizeof channels)
        return std::nullopt;
    std::memcpy(channels.data(), bytes.data(), sizeof channels);
    return Color(channels[0] >> 8, channels[1] >> 8, channels[2] >> 8, channels[3] >> 8);
}

/// Whether both hold the type, and equal values of it.
template <class T>
bool bothEqual(const any& a, const any& b)
{
    const T* const left = std::any_cast<T>(&a);
    const T* const right = std::any_cast<T>(&b);
    return left && right && *left == *right;
}

bool sameValue(const any& a, const any& b)
{
    if (a.type() != b.type())
        return false;
    // Wide texts are compared themselves: as narrow ones different texts may look alike.
    if (bothEqual<ByteArray>(a, b) || bothEqual<Pixmap>(a, b) || bothEqual<std::wstring>(a, b)
        || bothEqual<VXLazyData>(a, b))
        return true;
    const TypeInfo type = TypeInfo::of(a);
    return type.isValid() && type.family() != TypeFamily::WString
           && type.convertToString(a) == type.convertToString(b);
}

} // namespace

const VXMimeData2::Entries& VXMimeData2::entries() const noexcept
{
    static const Entries& none = *new Entries;
    return m_entries ? *m_entries : none;
}

const any* VXMimeData2::find(StringID format) const noexcept
{
    for (const auto& [own, value] : entries()) {
        if (own == format)
            return &value;
    }
    return nullptr;
}

void VXMimeData2::setData(StringID format, any value)
{
    if (!value.has_value()) {
        removeFormat(format);
        return;
    }
    Entries changed = entries();
    const auto place = std::find_if(changed.begin(), changed.end(),
                                    [format](const auto& entry) { return entry.first == format; });
    if (place != changed.end())
        place->second = std::move(value);
    else
        changed.emplace_back(format, std::move(value));
    m_entries = std::make_shared<const Entries>(std::move(changed));
}

any VXMimeData2::data(StringID format) const
{
    const any* const value = find(format);
    if (!value)
        return {};
    const VXLazyData* const lazy = std::any_cast<VXLazyData>(value);
    return lazy ? lazy->get() : *value;
}

ByteArray VXMimeData2::bytes(StringID format) const
{
    any value = data(format);
    ByteArray* const bytes = std::any_cast<ByteArray>(&value);
    return bytes ? std::move(*bytes) : ByteArray();
}

std::vector<StringID> VXMimeData2::formats() const
{
    std::vector<StringID> formats;
    for (const auto& entry : entries())
        formats.push_back(entry.first);
    return formats;
}

void VXMimeData2::removeFormat(StringID format)
{
    if (!hasFormat(format))
        return;
    Entries changed = entries();
    std::erase_if(changed, [format](const auto& entry) { return entry.first == format; });
    m_entries = std::make_shared<const Entries>(std::move(changed));
}

std::wstring VXMimeData2::textOf(StringID format) const
{
    const any value = data(format);
    if (!value.has_value())
        return {};
    if (const ByteArray* const bytes = std::any_cast<ByteArray>(&value))
        return wideFromUtf8(bytes->view());
    return TypeInfo::of(value).convertToUString(value);
}

std::wstring VXMimeData2::text() const { return textOf(plainFormat()); }

void VXMimeData2::setText(const std::wstring& text)
{
    setData(plainFormat(), ByteArray(utf8FromWide(text)));
}

bool VXMimeData2::hasText() const noexcept { return hasFormat(plainFormat()); }
std::wstring VXMimeData2::html() const { return textOf(htmlFormat()); }

void VXMimeData2::setHtml(const std::wstring& html)
{
    setData(htmlFormat(), ByteArray(utf8FromWide(html)));
}

VXStringList VXMimeData2::uris() const
{
    const ByteArray bytes = this->bytes(uriFormat());
    VXStringList uris;
    std::string_view rest = bytes.view();
    while (!rest.empty()) {
        const std::size_t end = rest.find_first_of("\r\n");
        const std::string_view line = rest.substr(0, end);
        if (!line.empty() && line.front() != '#')
            uris.emplace_back(line);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return uris;
}

void VXMimeData2::setUris(const VXStringList& uris)
{
    std::string lines;
    for (const std::string& uri : uris)
        lines += uri + "\r\n";
    setData(uriFormat(), ByteArray(std::move(lines)));
}

Pixmap VXMimeData2::image() const
{
    const any value = data(imageFormat());
    const Pixmap* const image = std::any_cast<Pixmap>(&value);
    return image ? *image : Pixmap();
}

void VXMimeData2::setImage(const Pixmap& image)
{
    setData(imageFormat(), image.isNull() ? any() : any(image));
}

std::optional<Color> VXMimeData2::color() const
{
    const any value = data(colorFormat());
    if (const Color* const color = std::any_cast<Color>(&value))
        return *color;
    const ByteArray* const bytes = std::any_cast<ByteArray>(&value);
    return bytes ? colorOf(*bytes) : std::nullopt;
}

void VXMimeData2::setColor(Color color) { setData(colorFormat(), bytesOf(color)); }

bool operator==(const VXMimeData2& a, const VXMimeData2& b)
{
    if (a.m_entries == b.m_entries)
        return true;
    return std::equal(a.entries().begin(), a.entries().end(), b.entries().begin(),
                      b.entries().end(), [](const auto& left, const auto& right) {
                          return left.first == right.first && sameValue(left.second, right.second);
                      });
}

} // namespace VOXI
