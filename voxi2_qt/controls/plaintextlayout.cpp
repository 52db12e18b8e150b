#include "plaintextlayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimerEvent>

#include <algorithm>
#include <climits>
#include <cmath>

namespace VOXI {

namespace {

constexpr int NotLaidOut = -1;           // as a block's state, which is its width else
constexpr int Fresh = 1;                 // the number of lines that Qt gives to a new block
constexpr qreal Endless = INT_MAX / 256; // of a line: Qt counts in 64ths of a pixel
constexpr qreal Everywhere = 1e9;
constexpr int LongLine = 100'000;  // characters
constexpr int BrokenLine = 10'000; // their widths
constexpr int WidthDelay = 200;    // ms

int whole(qreal length) { return static_cast<int>(std::ceil(std::min(length, Endless))); }

} // namespace

PlainTextLayout::PlainTextLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {}

// What is where -----------------------------------------------------------------------------------

QSizeF PlainTextLayout::documentSize() const
{
    const qreal margins = 2 * document()->documentMargin();
    const bool isWrapped = m_settings.m_wrap != QTextOption::NoWrap && m_settings.m_width > 0;
    return {isWrapped ? m_settings.m_width : m_width + margins, document()->lineCount() + margins};
}

/// As wide as can be: it is asked what to paint when a selection changes.
QRectF PlainTextLayout::frameBoundingRect(QTextFrame*) const
{
    return {0, 0, Everywhere, documentSize().height()};
}

QRectF PlainTextLayout::blockBoundingRect(const QTextBlock& block) const
{
    if (!block.isValid())
        return {};
    lay(block);
    const qreal width = std::max<qreal>(block.userState(), 0) + 2 * m_settings.m_margin;
    return {0, top(block), width, static_cast<qreal>(block.lineCount())};
}

QTextBlock PlainTextLayout::blockAt(qreal y) const
{
    const qreal last = document()->lineCount() - 1;
    const qreal inside = std::clamp<qreal>(y - document()->documentMargin(), 0, last);
    return document()->findBlockByLineNumber(static_cast<int>(inside));
}

int PlainTextLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const
{
    const QTextBlock block = blockAt(point.y());
    const QRectF box = blockBoundingRect(block);
    const QTextLayout& layout = *block.layout();
    const QPointF inside = point - box.topLeft();
    int first = 0;
    int end = layout.lineCount();
    while (end - first > 1) {
        const int middle = first + (end - first) / 2;
        (layout.lineAt(middle).y() <= inside.y() ? first : end) = middle;
    }
    const QTextLine line = layout.lineAt(first);
    if (!line.isValid() || (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inside)))
        return accuracy == Qt::ExactHit ? -1 : block.position();
    return block.position() + line.xToCursor(inside.x());
}

int PlainTextLayout::layOut(int top, int bottom, int anchor)
{
    int grown = 0;
    for (QTextBlock block = blockAt(top); block.isValid(); block = block.next()) {
        const qreal begin = this->top(block);
        if (begin > bottom)
            break;
        const int former = block.lineCount();
        lay(block);
        if (begin < anchor)
            grown += block.lineCount() - former;
    }
    return grown;
}

qreal PlainTextLayout::top(const QTextBlock& block) const
{
    return document()->documentMargin() + block.firstLineNumber();
}

// Painting ----------------------------------------------------------------------------------------

void PlainTextLayout::draw(QPainter* painter, const PaintContext& context)
{
    const QRectF clip =
        context.clip.isValid() ? context.clip : QRectF(QPointF(0, 0), documentSize());
    painter->setPen(context.palette.color(QPalette::Text));
    for (QTextBlock block = blockAt(clip.top()); block.isValid(); block = block.next()) {
        const QRectF box = blockBoundingRect(block);
        if (box.top() > clip.bottom())
            break;
        drawBlock(*painter, context, clip, block, box.topLeft());
    }
}

void PlainTextLayout::drawBlock(QPainter& painter, const PaintContext& context, const QRectF& clip,
                                const QTextBlock& block, const QPointF& at) const
{
    QTextLayout& layout = *block.layout();
    QList<QTextLayout::FormatRange> selections;
    for (const Selection& selection : context.selections) {
        const int begin = std::max(selection.cursor.selectionStart() - block.position(), 0);
        const int end =
            std::min(selection.cursor.selectionEnd() - block.position(), block.length());
        const bool isLine = !selection.cursor.hasSelection()
                            && selection.format.hasProperty(QTextFormat::FullWidthSelection)
                            && block.contains(selection.cursor.position());
        if (isLine) {
            const QTextLine line =
                layout.lineForTextPosition(selection.cursor.position() - block.position());
            const int length = line.textLength();
            // With its end, so that there is something to select.
            const bool isLast = line.textStart() + length == block.length() - 1;
            selections.push_back({line.textStart(), length + (isLast ? 1 : 0), selection.format});
        } else if (begin < end) {
            selections.push_back({begin, end - begin, selection.format});
        }
    }
    layout.draw(&painter, at, selections, clip);

    int cursor = context.cursorPosition;
    if (cursor < -1 && !layout.preeditAreaText().isEmpty())
        cursor = layout.preeditAreaPosition() - (cursor + 2);
    else if (block.contains(cursor))
        cursor -= block.position();
    else
        return;
    bool isGiven = false;
    const int width = property("cursorWidth").toInt(&isGiven);
    layout.drawCursor(&painter, at, cursor, isGiven ? width : 1);
}

// Changes -----------------------------------------------------------------------------------------

void PlainTextLayout::documentChanged(int from, int removed, int added)
{
    if (isSettingsChange(from, removed, added)) {
        if (const Settings now = settings(); now != m_settings)
            adopt(now);
        return;
    }
    if (m_lineHeight == 0)
        adopt(settings());
    Q_EMIT changing(from, removed, added);

    const QTextDocument& text = *document();
    const bool isSameLength =
        text.characterCount() == m_characterCount && text.blockCount() == m_blockCount;
    const bool isSameCount = text.blockCount() == m_blockCount;
    m_characterCount = text.characterCount();
    m_blockCount = text.blockCount();

    const QTextBlock first = text.findBlock(from);
    QTextBlock last = text.findBlock(from + added);
    if (!last.isValid())
        last = text.lastBlock();
    if (first == last && isSameCount) {
        const int height = first.lineCount();
        forget(first, false);
        lay(first);
        if (first.lineCount() == height) {
            Q_EMIT updateBlock(first);
            return;
        }
    } else {
        for (QTextBlock block = first; block.isValid(); block = block.next()) {
            forget(block, !isSameLength);
            if (block == last)
                break;
        }
        if (removed > 0 && !isSameLength)
            seekWidth();
    }
    Q_EMIT update(QRectF(0, top(first), Everywhere, Everywhere));
    reportSize();
}

/// Qt tells so that the document's font, width or wrapping is another; or that there is none.
bool PlainTextLayout::isSettingsChange(int from, int removed, int added) const
{
    return from == 0 && removed == 0 && added == document()->characterCount()
           && added == m_characterCount;
}

PlainTextLayout::Settings PlainTextLayout::settings() const
{
    const QTextOption option = document()->defaultTextOption();
    const qreal width = document()->pageSize().width();
    const bool isWidthUsed = option.wrapMode() != QTextOption::NoWrap || m_hasRightToLeft;
    return {document()->defaultFont(),
            option.wrapMode(),
            option.flags(),
            option.textDirection(),
            option.tabStopDistance(),
            document()->documentMargin(),
            isWidthUsed ? std::max<qreal>(width, 0) : 0};
}

void PlainTextLayout::adopt(const Settings& settings)
{
    Settings sameWidth = m_settings;
    sameWidth.m_width = settings.m_width;
    const bool isOnlyWidth = sameWidth == settings && !m_hasRightToLeft;
    m_settings = settings;
    if (!isOnlyWidth || m_lineHeight == 0) {
        m_width = 0;
        QTextLayout probe(QStringLiteral("x"), settings.m_font, paintDevice());
        m_lineHeight = std::max(whole(layLines(probe, false).height()), Fresh + 1);
        m_characterWidth = QFontMetricsF(settings.m_font, paintDevice()).averageCharWidth();
    }
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (!isOnlyWidth || !fits(block))
            forget(block, true);
    }
    Q_EMIT update(QRectF(0, 0, Everywhere, Everywhere));
    reportSize();
}

/// Whether it was laid out, and is the same in the width there is now.
bool PlainTextLayout::fits(const QTextBlock& block) const
{
    return block.userState() != NotLaidOut && block.lineCount() == m_lineHeight
           && block.userState() + 2 * m_settings.m_margin <= m_settings.m_width;
}

int PlainTextLayout::estimate(const QTextBlock& block) const
{
    const qreal room = m_settings.m_width - 2 * m_settings.m_margin;
    if (m_settings.m_wrap == QTextOption::NoWrap || room <= 0)
        return m_lineHeight;
    const qreal lines = std::ceil((block.length() - 1) * m_characterWidth / room);
    return whole(std::max<qreal>(lines, 1) * m_lineHeight);
}

/// `isOtherText`: else the height that is known is the best guess.
void PlainTextLayout::forget(QTextBlock block, bool isOtherText) const
{
    block.clearLayout();
    if (isOtherText)
        block.setUserState(NotLaidOut);
    if (!isOtherText && block.lineCount() > Fresh)
        return;
    if (const int height = estimate(block); height != block.lineCount())
        block.setLineCount(height);
}

void PlainTextLayout::lay(const QTextBlock& block) const
{
    QTextLayout& layout = *block.layout();
    if (layout.lineCount() > 0)
        return;
    const bool isRightToLeft = block.textDirection() == Qt::RightToLeft;
    m_hasRightToLeft = m_hasRightToLeft || isRightToLeft;
    const QSizeF size = layLines(layout, isRightToLeft);
    QTextBlock changed = block;
    if (const int height = std::max(whole(size.height()), Fresh + 1); height != block.lineCount())
        changed.setLineCount(height);
    const int former = block.userState();
    changed.setUserState(whole(size.width()));
    noteWidth(former, block.userState());
    // Not now: it may be while something is painted.
    if (documentSize() != m_reported && !m_sizeTimer.isActive())
        m_sizeTimer.start(0, const_cast<PlainTextLayout*>(this));
}

QSizeF PlainTextLayout::layLines(QTextLayout& layout, bool isRightToLeft) const
{
    const qreal margin = m_settings.m_margin;
    const qreal page = document()->pageSize().width() - 2 * margin;
    const bool isWrapped = m_settings.m_wrap != QTextOption::NoWrap && page > 0;
    // One that is beyond all measure is broken all the same, or each piece of it would cost as much
    // as the whole.
    const bool isBroken = !isWrapped && layout.text().size() > LongLine;
    const qreal room = isWrapped ? page : isBroken ? BrokenLine * m_characterWidth : Endless;
    QSizeF size(0, 0);
    QTextOption option = document()->defaultTextOption();
    if (isBroken)
        option.setWrapMode(QTextOption::WrapAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(room);
        if (!isWrapped && !isBroken && isRightToLeft) // it begins at the right edge
            line.setLineWidth(std::max(page, line.naturalTextWidth()));
        line.setPosition({margin, size.height()});
        size.rheight() += line.height() + std::ceil(std::min<qreal>(line.leading(), 0));
        size.setWidth(std::max(size.width(), line.naturalTextWidth()));
    }
    layout.endLayout();
    return size;
}

// Size --------------------------------------------------------------------------------------------

void PlainTextLayout::noteWidth(int former, int width) const
{
    if (width >= m_width)
        m_width = width;
    else if (former == m_width)
        seekWidth();
}

/// Not at each key: all blocks are looked through.
void PlainTextLayout::seekWidth() const
{
    if (m_settings.m_wrap == QTextOption::NoWrap && !m_widthTimer.isActive())
        m_widthTimer.start(WidthDelay, const_cast<PlainTextLayout*>(this));
}

void PlainTextLayout::findWidth()
{
    m_width = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        m_width = std::max(m_width, block.userState());
    reportSize();
}

void PlainTextLayout::reportSize()
{
    m_sizeTimer.stop();
    if (const QSizeF size = documentSize(); size != m_reported) {
        m_reported = size;
        Q_EMIT documentSizeChanged(size);
    }
}

void PlainTextLayout::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_sizeTimer.timerId()) {
        reportSize();
    } else if (event->timerId() == m_widthTimer.timerId()) {
        m_widthTimer.stop();
        findWidth();
    } else {
        QAbstractTextDocumentLayout::timerEvent(event);
    }
}

} // namespace VOXI
