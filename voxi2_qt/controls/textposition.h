#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <cwchar>

namespace VOXI {

/// Between places in Qt's texts, which count UTF-16 units, and in wide ones, which count characters
/// where `wchar_t` has room for them. What is out of the text is at its nearest end.

inline int toWidePosition(QStringView text, qsizetype position)
{
    const QStringView before = text.first(std::clamp<qsizetype>(position, 0, text.size()));
    if constexpr (sizeof(wchar_t) == sizeof(QChar))
        return static_cast<int>(before.size());
    qsizetype pairs = 0;
    for (qsizetype i = 1; i < before.size(); ++i)
        pairs += before[i].isLowSurrogate() && before[i - 1].isHighSurrogate();
    return static_cast<int>(before.size() - pairs);
}

inline int fromWidePosition(QStringView text, qsizetype position)
{
    qsizetype unit = 0;
    for (; position > 0 && unit < text.size(); --position) {
        const bool isPair = sizeof(wchar_t) > sizeof(QChar) && text[unit].isHighSurrogate()
                            && unit + 1 < text.size() && text[unit + 1].isLowSurrogate();
        unit += isPair ? 2 : 1;
    }
    return static_cast<int>(unit);
}

} // namespace VOXI
