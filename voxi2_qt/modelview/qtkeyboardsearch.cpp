#include "qtkeyboardsearch.h"

#include "qtviewmodel2.h"

#include <QApplication>

#include <algorithm>

namespace VOXI {

void QtKeyboardSearch::type(const QString& text)
{
    if (!isGoingOn())
        m_text.clear();
    m_text += text;
    m_sinceTyped.start();
}

bool QtKeyboardSearch::isGoingOn() const
{
    return m_sinceTyped.isValid()
           && m_sinceTyped.elapsed() <= QApplication::keyboardInputInterval();
}

/// The same letter again and again goes from one row that begins with it to the next.
QString QtKeyboardSearch::wanted() const
{
    const bool isOneLetter =
        std::all_of(m_text.begin(), m_text.end(), [&](QChar each) { return each == m_text[0]; });
    return isOneLetter ? m_text.left(1) : m_text;
}

QModelIndex QtKeyboardSearch::find(const QtViewModel2& model, const RowBelow& rowBelow,
                                   const QModelIndex& start, qsizetype most) const
{
    const QString text = wanted();
    const QModelIndex top = model.index(0, std::max(start.column(), 0));
    if (text.isEmpty() || !top.isValid())
        return {};
    // A text that grows may still fit where it is.
    const bool isOther = text.size() == 1;
    const QModelIndex begin = start.isValid() && !isOther ? start : rowBelow(start);
    QModelIndex index = begin.isValid() ? begin : top;
    const QModelIndex first = index;
    do {
        const CellRecord* const record = model.peekCell(index);
        if (record && record->isEnabled() && record->text().startsWith(text, Qt::CaseInsensitive))
            return index;
        index = rowBelow(index);
        if (!index.isValid())
            index = top;
    } while (index != first && --most > 0);
    return {};
}

} // namespace VOXI
