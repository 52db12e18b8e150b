#pragma once

#include "voxi2/controls/textsearch.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QTextCursor>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace VOXI {

/// Finds one thing in a document. Places count UTF-16 units.
class TextFinder
{
public:
    struct Match
    {
        int m_from = 0;
        int m_length = 0;
        QStringList m_groups{}; ///< of an expression, the first being all of it
    };

    TextFinder(const QTextDocument& document, const TextSearch& search);

    /// The nearest one that begins at `from` or behind it; of a search that is backward, that ends
    /// there or before. Then from the other end, if it wraps.
    std::optional<Match> find(int from) const;

    /// A cursor that selects the next one behind the selection of another, or before it; null when
    /// there is none.
    QTextCursor select(const QTextCursor& from) const;

    /// The one that is exactly there.
    std::optional<Match> matchAt(int from, int length) const;

    /// From the beginning, none overlapping another.
    std::vector<Match> all() const;

    /// A match's replacement, for which an expression's groups stand in the text.
    QString replacement(const Match& match, const QString& text) const;

private:
    bool isNothing() const;
    /// In what is searched at a time: lines, or all of the text where lines are searched for.
    std::optional<Match> next(int from) const;
    std::optional<Match> previous(int from) const;
    std::optional<Match> nextIn(const QString& text, qsizetype from) const;
    std::optional<Match> lastIn(const QString& text, qsizetype end) const;
    bool isWord(const QString& text, qsizetype from) const;

    const QTextDocument& m_document;
    const TextSearch m_search;
    const QString m_text;
    const Qt::CaseSensitivity m_case;
    const bool m_isAcrossLines;
    QRegularExpression m_expression;
};

} // namespace VOXI
