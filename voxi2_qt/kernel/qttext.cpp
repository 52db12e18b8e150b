#include "voxi2_qt/kernel/qttext.h"

#include "qtunitsinto.h"

#include <QUtf8StringView>

#include <algorithm>

namespace VOXI {

namespace {
constexpr char32_t FirstSurrogate = 0xd800;
constexpr char32_t LastSurrogate = 0xdfff;
constexpr char32_t LastOfBmp = 0xffff;
constexpr qsizetype LongText = 48;

std::u16string_view viewOf(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

bool isSurrogate(char16_t unit) { return unit >= FirstSurrogate && unit <= LastSurrogate; }

bool isAscii(std::string_view text)
{
    unsigned bits = 0;
    for (const char character : text)
        bits |= static_cast<unsigned char>(character);
    return bits < 0x80;
}

std::string latin1Of(const QString& text)
{
    // Qt writes many characters at a time, but into a buffer of its own: that pays for long texts.
    if (text.size() > LongText) {
        const QByteArray bytes = text.toLatin1();
        return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
    }
    const std::u16string_view units = viewOf(text);
    std::string result(units.size(), '\0');
    std::transform(units.begin(), units.end(), result.begin(), [](char16_t unit) {
        return unit > 0xff ? '?' : static_cast<char>(static_cast<unsigned char>(unit));
    });
    return result;
}
} // namespace

// Qt's own reader drops a byte order mark and counts ill-formed sequences in another way than
// voxi_util; it serves the texts that have neither. Most texts need no reader at all.
QString Detail::qStringFromUtf8(std::string_view text)
{
    const QUtf8StringView view(text.data(), static_cast<qsizetype>(text.size()));
    if (isAscii(text))
        return QString::fromLatin1(view.data(), view.size());
    if (!text.starts_with("\xef\xbb\xbf") && view.isValidUtf8())
        return QString::fromUtf8(view.data(), view.size());
    return toQString(wideFromUtf8(text));
}

// Qt would write a lone surrogate as '?'.
std::string Detail::utf8FromQString(const QString& text)
{
    if (!text.isValidUtf16())
        return utf8FromWide(toStdWString(text));
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QString toQString(const std::wstring& text)
{
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    return unitsInto(result.data(), text) ? result
                                          : toQString(std::u16string_view(utf16FromWide(text)));
}

// Whether it is one of the few is seen on the way.
bool unitsInto(QChar* units, const std::wstring& text)
{
    char32_t bits = 0;
    for (const wchar_t character : text) {
        bits |= static_cast<char32_t>(character);
        *units++ = QChar(static_cast<char16_t>(character));
    }
    return bits <= LastOfBmp;
}

std::string toStdString(const QString& text)
{
    return narrowTextEncoding() == NarrowTextEncoding::Latin1 ? latin1Of(text)
                                                              : Detail::utf8FromQString(text);
}

std::wstring toStdWString(const QString& text)
{
    const std::u16string_view units = viewOf(text);
    if (std::any_of(units.begin(), units.end(), isSurrogate))
        return wideFromUtf16(units);
    return {units.begin(), units.end()};
}

} // namespace VOXI
