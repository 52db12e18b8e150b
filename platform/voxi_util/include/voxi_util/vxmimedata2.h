#pragma once

#include "voxi_util/any.h"
#include "voxi_util/bytearray.h"
#include "voxi_util/color.h"
#include "voxi_util/pixmap.h"
#include "voxi_util/stringid.h"
#include "voxi_util/voxi_util_export.h"
#include "voxi_util/vxstringlist.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

/// What is dragged or lies on the clipboard: one thing in several formats, the best first.
///
/// A format is a MIME type; its data are a ByteArray or, inside one program, any other value.
/// Implicitly shared: copying copies a pointer.
class VOXI_UTIL_EXPORT VXMimeData2
{
public:
    /// No format.
    VXMimeData2() noexcept = default;

    /// Replaces the data of a format in its place, or adds the format at the end. An empty value
    /// removes the format; an empty ByteArray does not.
    void setData(StringID format, any value);
    void setData(StringID format, ByteArray bytes) { setData(format, any(std::move(bytes))); }

    /// Empty when there is no such format.
    any data(StringID format) const;
    /// The bytes of a format; none when there is no such format or it holds something else.
    ByteArray bytes(StringID format) const;

    bool hasFormat(StringID format) const noexcept { return find(format) != nullptr; }
    std::vector<StringID> formats() const;
    void removeFormat(StringID format);
    void clear() noexcept { m_entries.reset(); }
    bool isEmpty() const noexcept { return entries().empty(); }

    /// "text/plain" in UTF-8; empty when there is none. Reads text values of other types too.
    std::wstring text() const;
    void setText(const std::wstring& text);
    bool hasText() const noexcept;

    /// "text/html" in UTF-8; empty when there is none.
    std::wstring html() const;
    void setHtml(const std::wstring& html);

    /// "text/uri-list": one on each line, comments left out.
    VXStringList uris() const;
    void setUris(const VXStringList& uris);

    /// "application/x-voxi-image"; null when there is none.
    Pixmap image() const;
    /// A null pixmap removes the format.
    void setImage(const Pixmap& image);

    /// "application/x-color", in the form that other programs exchange; none when there is none.
    /// Reads a Color value too.
    std::optional<Color> color() const;
    void setColor(Color color);

    /// Same formats in the same order with equal data. Data of a type that TypeInfo does not know
    /// are equal only among copies of the same mime data.
    VOXI_UTIL_EXPORT friend bool operator==(const VXMimeData2& a, const VXMimeData2& b);

private:
    using Entries = std::vector<std::pair<StringID, any>>;
    const Entries& entries() const noexcept;
    const any* find(StringID format) const noexcept;
    std::wstring textOf(StringID format) const;

    std::shared_ptr<const Entries> m_entries;
};

} // namespace VOXI
