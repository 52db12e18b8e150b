#include "qtsavedtext.h"

namespace VOXI {

namespace {

constexpr char Version[] = ":1:";
constexpr int CheckDigits = 4;

std::string headOf(const char* kind) { return std::string(kind) + Version; }

QByteArray checkOf(const QByteArray& bytes)
{
    return QByteArray::number(qChecksum(bytes), 16).rightJustified(CheckDigits, '0');
}

} // namespace

std::string toSavedText(const char* kind, const QByteArray& bytes)
{
    return headOf(kind) + (checkOf(bytes) + ':' + bytes.toBase64()).toStdString();
}

std::optional<QByteArray> fromSavedText(const char* kind, const std::string& text)
{
    if (!isSavedText(kind, text))
        return std::nullopt;
    const std::size_t start = headOf(kind).size() + CheckDigits + 1;
    if (text.size() <= start)
        return std::nullopt;
    const QByteArray bytes = QByteArray::fromBase64(QByteArray::fromStdString(text.substr(start)));
    // The decoder is lenient; only what would be written again is whole.
    if (toSavedText(kind, bytes) != text)
        return std::nullopt;
    return bytes;
}

bool isSavedText(const char* kind, const std::string& text) noexcept
{
    return text.rfind(headOf(kind), 0) == 0;
}

} // namespace VOXI
