#include "textmargin.h"
#include "voxi2_qt/controls/qteditarea2.h"

#include <QFontMetricsF>
#include <QTextDocument>

#include <algorithm>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

void QtEditArea2::doSetWrap(TextWrap wrap)
{
    const QtProgramScope scope;
    settle();
    const bool isAnywhere = wrap == TextWrap::Anywhere;
    setWordWrapMode(isAnywhere ? QTextOption::WrapAnywhere
                               : QTextOption::WrapAtWordBoundaryOrAnywhere);
    setLineWrapMode(wrap == TextWrap::None ? NoWrap : WidgetWidth);
}

TextWrap QtEditArea2::doGetWrap()
{
    if (lineWrapMode() == NoWrap)
        return TextWrap::None;
    return wordWrapMode() == QTextOption::WrapAnywhere ? TextWrap::Anywhere : TextWrap::Word;
}

void QtEditArea2::doSetTabWidth(int blanks)
{
    const QtProgramScope scope;
    m_tabWidth = std::clamp(blanks, 1, 100);
    applyTabWidth();
}

int QtEditArea2::doGetTabWidth() { return m_tabWidth; }

void QtEditArea2::doSetZoom(int percent)
{
    const QtProgramScope scope;
    m_zoom = std::clamp(percent, 10, 1000);
    applyFont();
}

int QtEditArea2::doGetZoom() { return m_zoom; }

void QtEditArea2::doSetLineNumbersVisible(bool visible)
{
    const QtProgramScope scope;
    m_margin->setNumbersVisible(visible);
    applyMargin();
}

bool QtEditArea2::doAreLineNumbersVisible() { return m_margin->areNumbersVisible(); }

void QtEditArea2::doSetCurrentLineHighlighted(bool highlighted)
{
    m_isHighlighting = highlighted;
    highlightCurrentLine();
}

bool QtEditArea2::doIsCurrentLineHighlighted() { return m_isHighlighting; }

// Helpers -----------------------------------------------------------------------------------------

void QtEditArea2::applyFont()
{
    QFont scaled = font();
    if (m_zoom != 100 && scaled.pointSizeF() > 0)
        scaled.setPointSizeF(scaled.pointSizeF() * m_zoom / 100);
    else if (m_zoom != 100)
        scaled.setPixelSize(std::max(scaled.pixelSize() * m_zoom / 100, 1));
    text().setDefaultFont(scaled);
    applyTabWidth();
    applyMargin();
}

void QtEditArea2::applyTabWidth()
{
    const QFontMetricsF metrics(text().defaultFont());
    setTabStopDistance(m_tabWidth * metrics.horizontalAdvance(QLatin1Char(' ')));
}

void QtEditArea2::applyMargin()
{
    const int width = m_margin->wantedWidth();
    const QMargins margins(isRightToLeft() ? 0 : width, 0, isRightToLeft() ? width : 0, 0);
    if (margins != viewportMargins())
        setViewportMargins(margins);
    m_margin->setVisible(width > 0);
    m_margin->update();
    placeMargin();
}

void QtEditArea2::placeMargin()
{
    const QRect room = viewport()->geometry();
    const int width = m_margin->wantedWidth();
    const int x = isRightToLeft() ? room.right() + 1 : room.left() - width;
    m_margin->setGeometry(x, room.top(), width, room.height());
}

void QtEditArea2::highlightCurrentLine()
{
    QList<ExtraSelection> selections;
    if (m_isHighlighting) {
        QColor color = palette().color(QPalette::Highlight);
        color.setAlphaF(0.15F);
        ExtraSelection line;
        line.format.setBackground(color);
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.cursor = textCursor();
        line.cursor.clearSelection();
        selections.push_back(line);
    }
    setExtraSelections(selections);
}

} // namespace VOXI
