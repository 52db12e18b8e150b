#pragma once

#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/textencoding.h"

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace VOXI {

namespace Detail {
VOXI2_QT_EXPORT QString qStringFromUtf8(std::string_view text);
VOXI2_QT_EXPORT std::string utf8FromQString(const QString& text);

inline QString qStringFromNarrow(std::string_view text)
{
    if (narrowTextEncoding() == NarrowTextEncoding::Latin1)
        return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    return qStringFromUtf8(text);
}
} // namespace Detail

/// Reads an 8-bit text in the process's encoding (Latin-1 or UTF-8). NUL characters pass through;
/// in UTF-8 each ill-formed sequence becomes one U+FFFD.
inline QString toQString(const std::string& text) { return Detail::qStringFromNarrow(text); }

/// The same, where the text ends at its first NUL.
inline QString toQStringUpToNul(const std::string& text)
{
    return Detail::qStringFromNarrow(std::string_view(text).substr(0, text.find('\0')));
}

/// Reads a wide text. Lone surrogates pass through; what is no character becomes U+FFFD.
VOXI2_QT_EXPORT QString toQString(const std::wstring& text);

/// Takes over UTF-16 as it is.
inline QString toQString(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

/// Writes an 8-bit text in the process's encoding. In Latin-1 a character above U+00FF becomes '?',
/// one for each of its UTF-16 units; in UTF-8 a lone surrogate becomes U+FFFD.
VOXI2_QT_EXPORT std::string toStdString(const QString& text);

/// Writes a wide text; any text survives the way there and back.
VOXI2_QT_EXPORT std::wstring toStdWString(const QString& text);

/// Takes over the name of a file, whose bytes are UTF-8 whatever the process's encoding is.
inline QString toQFileName(const std::filesystem::path& file)
{
    return Detail::qStringFromUtf8(file.native());
}

/// The reverse of toQFileName.
inline std::filesystem::path toFilePath(const QString& name)
{
    return Detail::utf8FromQString(name);
}

} // namespace VOXI
