#include "qtsavedtext.h"

namespace VOXI {

namespace {

constexpr char Version[] = ":1:";
constexpr int CheckDigits = 4;

std::string headOf(const char* kind)
{
    return std::string(kind) + Version;
}

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
    const QByteArray rest = QByteArray::fromStdString(text.substr(headOf(kind).size()));
    if (rest.size() <= CheckDigits || rest[CheckDigits] != ':')
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(rest.sliced(CheckDigits + 1),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.isEmpty() || checkOf(*decoded) != rest.first(CheckDigits))
        return std::nullopt;
    return *decoded;
}

bool isSavedText(const char* kind, const std::string& text) noexcept
{
    return text.rfind(headOf(kind), 0) == 0;
}

} // namespace VOXI
