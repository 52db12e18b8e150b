#pragma once

#include <QElapsedTimer>
#include <QModelIndex>
#include <QString>

namespace VOXI {

class QtAbstractView2;

/// What the user types to find a row that begins with it.
class QtKeyboardSearch
{
public:
    /// Goes on with what was typed a moment ago.
    void type(const QString& text);

    /// The next row whose cell in the column of `start` begins with it; from the top again after
    /// the last. Only cells that are known count: to look at the others, all would have to be
    /// fetched.
    QModelIndex find(const QtAbstractView2& view, const QModelIndex& start) const;

private:
    QString wanted() const;

    QString m_text;
    QElapsedTimer m_sinceTyped;
};

} // namespace VOXI
