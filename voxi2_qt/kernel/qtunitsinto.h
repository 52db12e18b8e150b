#pragma once

#include <QChar>

#include <string>

namespace VOXI {

/// What `toQString` gives, into memory that is there already: as many units as the text has
/// characters. False, and nothing of use, for the few texts that have others than those of one
/// unit.
bool unitsInto(QChar* units, const std::wstring& text);

} // namespace VOXI
