#pragma once

#include "voxi2/controls/textareavalues.h"

#include <QBasicTimer>
#include <QObject>
#include <QString>
#include <QTextLayout>

#include <functional>
#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QTextBlock;
class QTextDocument;
class QTextEdit;
QT_END_NAMESPACE

namespace VOXI {

/// Has the lines in sight of a plain text coloured by somebody who is asked, and takes his time.
///
/// What is known to be right ends at a change: a comment may begin there. Lines behind it keep
/// their colours until there are others.
class TextColoring final : public QObject
{
    Q_OBJECT

public:
    /// Asks for the colours of a text that begins with that line. The answer may come before it
    /// returns.
    using Ask = std::function<void(unsigned query, int firstLine, const QString& text)>;
    /// Whether anybody would hear it.
    using IsHeard = std::function<bool()>;

    TextColoring(QTextEdit& area, IsHeard isHeard, Ask ask);

    /// Something else may have come into sight.
    void look();
    /// To be told of each change of the text, before it is laid out.
    void change(int from, int removed, int added);
    void answer(unsigned query, const std::vector<TextSpan>& spans);
    /// Nothing of what is known is right any more.
    void restart();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Change
    {
        int m_from;
        int m_removed;
        int m_added;
    };
    struct Part // of the text, from one unit to before another
    {
        int m_from;
        int m_end;
    };
    struct Query
    {
        unsigned m_id = 0;
        int m_from = 0;
        int m_end = 0; // of the last line
        QString m_text;
        std::vector<Change> m_since;
    };
    using Formats = QList<QTextLayout::FormatRange>;

    QTextDocument& text() const;
    bool isRight(const QTextBlock& block) const;
    void askForSeen();
    void shiftFormats(int from, int removed, int added) const;
    static std::optional<Part> moved(Part part, const std::vector<Change>& changes);
    static std::vector<Part> partsOf(const Query& query, const std::vector<TextSpan>& spans);
    void apply(const Query& query, const std::vector<TextSpan>& spans);
    void setRight(Part part);

    QTextEdit& m_area;
    const IsHeard m_isHeard;
    const Ask m_ask;
    std::vector<Part> m_right; // ascending
    std::optional<Query> m_query;
    unsigned m_lastId = 0;
    bool m_isApplying = false; // which is no change of the text
    QBasicTimer m_timer;
};

} // namespace VOXI
