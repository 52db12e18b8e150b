#pragma once

#include <QByteArray>

#include <optional>
#include <string>

namespace VOXI {

/// What Qt saves as bytes, as one line of printable text that says what it is. Qt's own streams
/// carry no check of their own: it would take half of one for a whole.
std::string toSavedText(const char* kind, const QByteArray& bytes);

/// The bytes again; nothing for any other text.
std::optional<QByteArray> fromSavedText(const char* kind, const std::string& text);

/// Whether the text claims to be of that kind.
bool isSavedText(const char* kind, const std::string& text) noexcept;

} // namespace VOXI
