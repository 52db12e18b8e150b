#pragma once

#include <QString>

#include <string>

namespace VOXI {

/// What `toQString` gives, in a text that is there already: for many texts one after the other, of
/// which none is kept, one piece of memory does.
void textInto(QString& result, const std::wstring& text);

} // namespace VOXI
