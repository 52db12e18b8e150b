#pragma once

#include <QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace VOXI {

/// A part of a document's plain text, with "\n" for the ends of its lines. Places out of the text
/// stand for its end.
QString textBetween(const QTextDocument& document, int from, int to);

/// Between places in a document, which count UTF-16 units, and in its wide text, which count
/// characters.
///
/// They are the same where no character takes two units. Where some do, the text is known in pieces
/// by how many each of them has.
class WidePositions
{
public:
    /// To be told of each change once it is made; `removed` and `added` may reach behind the text.
    void change(const QTextDocument& document, int from, int removed, int added);
    void reset(const QTextDocument& document);

    /// Of the text, in units; it is 0 at first.
    int length() const noexcept { return m_length; }

    /// How many characters take two units.
    int pairs() const noexcept;

    /// What is out of the text is at its nearest end.
    int toWide(const QTextDocument& document, qint64 unit) const;
    int fromWide(const QTextDocument& document, qint64 character) const;

private:
    struct Piece
    {
        int m_units;
        int m_pairs;
    };

    int m_length = 0;
    std::vector<Piece> m_pieces; // none where there are no pairs
};

} // namespace VOXI
