#pragma once

#include "voxi2/controls/textareavalues.h"

#include <QTextCursor>
#include <QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
class QTextBlock;
class QTextEdit;
QT_END_NAMESPACE

namespace VOXI {

/// What stands beside the lines of an edit area: their numbers, and marks.
class TextMargin final : public QWidget
{
    Q_OBJECT

public:
    explicit TextMargin(QTextEdit& area);

    void setNumbersVisible(bool visible) { m_hasNumbers = visible; }
    bool areNumbersVisible() const noexcept { return m_hasNumbers; }
    void setMarksVisible(bool visible) { m_hasMarks = visible; }
    bool areMarksVisible() const noexcept { return m_hasMarks; }

    /// 0 when nothing is visible.
    int wantedWidth() const;

    /// Adds one, or puts another in the place of the one with its uid.
    void setMark(const TextMark& mark);
    bool removeMark(unsigned uid);
    void clearMarks();
    std::vector<TextMark> marks() const;
    /// The last one of those beside a line; null when there is none.
    const TextMark* markAt(int line) const;

Q_SIGNALS:
    void clicked(int line);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Mark
    {
        TextMark m_mark;
        QTextCursor m_place; // which moves with the text
    };

    int lineAt(const QPointF& place) const;
    QRect rectOf(const QTextBlock& block) const;
    int markSide() const;
    QFontMetrics metrics() const;
    void drawMark(QPainter& painter, const TextMark& mark, const QRect& line) const;

    QTextEdit& m_area;
    std::vector<Mark> m_marks;
    bool m_hasNumbers = false;
    bool m_hasMarks = false;
    int m_pressedLine = -1;
};

} // namespace VOXI
