#include "textmargin.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {
constexpr int Room = 4; ///< at each side of what there is
constexpr int LeastDigits = 2;
} // namespace

TextMargin::TextMargin(QTextEdit& area) : QWidget(&area), m_area(area)
{
    setCursor(Qt::ArrowCursor);
    hide();
}

int TextMargin::wantedWidth() const
{
    const int digits = static_cast<int>(QString::number(m_area.document()->blockCount()).size());
    int width = 0;
    if (m_hasMarks)
        width += markSide() + Room;
    if (m_hasNumbers)
        width += metrics().horizontalAdvance(QLatin1Char('9')) * std::max(digits, LeastDigits);
    return width > 0 ? width + 2 * Room : 0;
}

// Marks -------------------------------------------------------------------------------------------

void TextMargin::setMark(const TextMark& mark)
{
    removeMark(mark.uid);
    const QTextDocument& text = *m_area.document();
    const int line = std::clamp(mark.line, 0, text.blockCount() - 1);
    m_marks.push_back({mark, QTextCursor(text.findBlockByNumber(line))});
    update();
}

bool TextMargin::removeMark(unsigned uid)
{
    const auto removed =
        std::erase_if(m_marks, [uid](const Mark& mark) { return mark.m_mark.uid == uid; });
    update();
    return removed != 0;
}

void TextMargin::clearMarks()
{
    m_marks.clear();
    update();
}

std::vector<TextMark> TextMargin::marks() const
{
    std::vector<TextMark> marks;
    marks.reserve(m_marks.size());
    for (const Mark& mark : m_marks) {
        marks.push_back(mark.m_mark);
        marks.back().line = mark.m_place.blockNumber();
    }
    std::stable_sort(marks.begin(), marks.end(),
                     [](const TextMark& a, const TextMark& b) { return a.line < b.line; });
    return marks;
}

const TextMark* TextMargin::markAt(int line) const
{
    const QTextBlock block = m_area.document()->findBlockByNumber(line);
    const auto found = std::find_if(m_marks.rbegin(), m_marks.rend(), [&](const Mark& mark) {
        return block.contains(mark.m_place.position());
    });
    return found != m_marks.rend() ? &found->m_mark : nullptr;
}

// Input -------------------------------------------------------------------------------------------

bool TextMargin::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const TextMark* const mark = m_hasMarks ? markAt(lineAt(help.pos())) : nullptr;
    // What the program says is a text, whatever it looks like.
    const QString tip = mark ? toQString(mark->toolTip).toHtmlEscaped() : QString();
    QToolTip::showText(help.globalPos(), tip.isEmpty() ? tip : QLatin1String("<p>") + tip, this);
    return true;
}

void TextMargin::mousePressEvent(QMouseEvent* event)
{
    m_pressedLine = event->button() == Qt::LeftButton ? lineAt(event->position()) : -1;
}

void TextMargin::mouseReleaseEvent(QMouseEvent* event)
{
    const int line = lineAt(event->position());
    const int pressed = std::exchange(m_pressedLine, -1);
    if (event->button() == Qt::LeftButton && line == pressed
        && rect().contains(event->position().toPoint()))
        Q_EMIT clicked(line);
}

void TextMargin::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(m_area.viewport(), event);
}

int TextMargin::lineAt(const QPointF& place) const
{
    return m_area.cursorForPosition({0, static_cast<int>(place.y())}).blockNumber();
}

// Painting ----------------------------------------------------------------------------------------

QRect TextMargin::rectOf(const QTextBlock& block) const
{
    const QRectF box = m_area.document()->documentLayout()->blockBoundingRect(block);
    const int y = static_cast<int>(box.top()) - m_area.verticalScrollBar()->value();
    return {0, y, width(), static_cast<int>(box.height())};
}

int TextMargin::markSide() const { return metrics().height(); }
QFontMetrics TextMargin::metrics() const { return QFontMetrics(m_area.document()->defaultFont()); }

void TextMargin::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setFont(m_area.document()->defaultFont());
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    const int current = m_area.textCursor().blockNumber();
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    QTextBlock block = m_area.cursorForPosition({0, 0}).block();
    const int firstPlace = block.position();
    for (QRect line = rectOf(block); block.isValid() && line.top() <= height();
         block = block.next(), line = rectOf(block)) {
        if (!m_hasNumbers)
            continue;
        line.setHeight(metrics().height());
        // Themes do not always have a colour of their own for texts that stand back.
        QColor ink = palette().color(group, QPalette::Text);
        if (block.blockNumber() != current)
            ink.setAlpha(ink.alpha() / 2);
        painter.setPen(ink);
        painter.drawText(line.adjusted(Room, 0, -Room, 0),
                         (isRightToLeft() ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignTop,
                         QString::number(block.blockNumber() + 1));
    }
    const int endPlace = block.isValid() ? block.position() : m_area.document()->characterCount();
    for (const Mark& mark : m_marks) {
        const int place = mark.m_place.position();
        if (m_hasMarks && place >= firstPlace && place < endPlace)
            drawMark(painter, mark.m_mark, rectOf(mark.m_place.block()));
    }
}

void TextMargin::drawMark(QPainter& painter, const TextMark& mark, const QRect& line) const
{
    const int side = markSide();
    const int x = isRightToLeft() ? width() - Room - side : Room;
    const QRect place(x, line.top(), side, side);
    if (!mark.icon.isNull()) {
        VX2Qt(mark.icon).paint(&painter, place);
        return;
    }
    const int inset = side / 4;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().highlight());
    painter.drawEllipse(place.adjusted(inset, inset, -inset, -inset));
    painter.restore();
}

} // namespace VOXI
