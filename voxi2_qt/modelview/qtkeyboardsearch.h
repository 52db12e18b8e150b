#pragma once

#include <QElapsedTimer>
#include <QModelIndex>
#include <QString>

#include <functional>
#include <limits>

namespace VOXI {

class QtViewModel2;

/// What the user types to find a row that begins with it.
class QtKeyboardSearch
{
public:
    /// Goes on with what was typed a moment ago.
    void type(const QString& text);

    /// Whether what is typed now goes on with it.
    bool isGoingOn() const;

    /// Gives the row below another one, as shown; invalid after the last.
    using RowBelow = std::function<QModelIndex(const QModelIndex&)>;
    /// The next row whose cell in the column of `start` begins with it; from the top again after
    /// the last. Only cells that are known count: to look at the others, all would have to be
    /// fetched. No more than `most` rows are looked at.
    QModelIndex find(const QtViewModel2& model, const RowBelow& rowBelow, const QModelIndex& start,
                     qsizetype most = std::numeric_limits<qsizetype>::max()) const;

private:
    QString wanted() const;

    QString m_text;
    QElapsedTimer m_sinceTyped;
};

} // namespace VOXI
