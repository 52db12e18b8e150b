#include "qtkeyboardsearch.h"

#include "qtviewmodel2.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QApplication>

#include <algorithm>

namespace VOXI {

void QtKeyboardSearch::type(const QString& text)
{
    if (!m_sinceTyped.isValid() || m_sinceTyped.elapsed() > QApplication::keyboardInputInterval())
        m_text.clear();
    m_text += text;
    m_sinceTyped.start();
}

/// The same letter again and again goes from one row that begins with it to the next.
QString QtKeyboardSearch::wanted() const
{
    const bool isOneLetter =
        std::all_of(m_text.begin(), m_text.end(), [&](QChar each) { return each == m_text[0]; });
    return isOneLetter ? m_text.left(1) : m_text;
}

QModelIndex QtKeyboardSearch::find(const QtAbstractView2& view, const QModelIndex& start) const
{
    const QtViewModel2& model = view.viewModel();
    const QString text = wanted();
    const QModelIndex top = model.index(0, std::max(start.column(), 0));
    if (text.isEmpty() || !top.isValid())
        return {};
    // A text that grows may still fit where it is.
    const bool isOther = text.size() == 1;
    const QModelIndex begin = start.isValid() && !isOther ? start : view.rowBelow(start);
    QModelIndex index = begin.isValid() ? begin : top;
    const QModelIndex first = index;
    do {
        const CellRecord* const record = model.peekCell(index);
        if (record && record->isEnabled() && record->text().startsWith(text, Qt::CaseInsensitive))
            return index;
        index = view.rowBelow(index);
        if (!index.isValid())
            index = top;
    } while (index != first);
    return {};
}

} // namespace VOXI
