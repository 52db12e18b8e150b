#include "voxi2_qt/containers/qtflowlayout2.h"

#include <QWidget>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXFlowLayout2Emitters;
using P = QtFlowLayout2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setDirection, &P::doSetDirection>(),
    TROV::row<&E::getDirection, &P::doGetDirection>());
// clang-format on

constexpr QSize Nothing(-1, -1);
constexpr qint64 Unset = -1;

constexpr int Far = (1 << 30) - 1; // the sum of two is still a number

/// A coordinate that Qt can reckon with, whatever sizes and spacing the items have.
int bounded(qint64 value) { return static_cast<int>(std::clamp<qint64>(value, -Far, Far)); }

/// A pass in terms of lines: `along` a line, and `across` from line to line. A vertical pass is a
/// horizontal one with the axes exchanged.
///
/// Items may come and go while they are placed, because handlers run: they are counted afresh, and
/// not touched again.
class Pass
{
public:
    Pass(const QLayout& layout, const QList<QLayoutItem*>& items, const QRect& rect,
         Qt::Orientation orientation, bool testOnly)
        : m_layout(layout),
          m_items(items),
          m_isVertical(orientation == Qt::Vertical),
          m_testOnly(testOnly),
          m_first(m_isVertical ? rect.top() : rect.left()),
          m_last(m_isVertical ? rect.bottom() : rect.right()),
          m_firstAcross(m_isVertical ? rect.left() : rect.top()),
          m_across(m_firstAcross)
    {}

    QSize forward();
    QSize backward();

private:
    int spacing() const { return m_layout.spacing(); }

    QLayoutItem& item(qsizetype index) const
    {
#ifdef __GNUC__
        // Thousands of items do not fit into the processor's cache: those to come are asked for
        // while this one is placed.
        if (constexpr int Ahead = 16; index + Ahead < m_items.size())
            __builtin_prefetch(m_items[index + Ahead]);
#endif
        return *m_items[index];
    }

    QSize hint(const QLayoutItem& item) const
    {
        const QSize size = item.sizeHint().boundedTo(QSize(Far, Far));
        return m_isVertical ? size.transposed() : size;
    }

    void beginLine()
    {
        m_across += qint64(m_depth) + spacing();
        m_depth = 0;
        m_usedLength = m_last - m_first;
    }

    void place(QLayoutItem& item, qint64 along, const QSize& size) const
    {
        if (m_testOnly)
            return;
        const QPoint position(bounded(along), bounded(m_across));
        item.setGeometry(m_isVertical ? QRect(position.transposed(), size.transposed())
                                      : QRect(position, size));
    }

    /// `reach` is how far the item's near edge is from where lines begin.
    void account(const QSize& size, qint64 reach)
    {
        m_length = std::max(reach, m_usedLength);
        m_largest = m_largest.expandedTo(size);
        m_depth = std::max(m_depth, size.height());
    }

    QSize result() const
    {
        const QSize size(bounded(std::max<qint64>(m_length, m_largest.width())),
                         bounded(m_across + m_depth - m_firstAcross));
        return m_isVertical ? size.transposed() : size;
    }

    const QLayout& m_layout;
    const QList<QLayoutItem*>& m_items;
    const bool m_isVertical;
    const bool m_testOnly;
    const qint64 m_first;
    const qint64 m_last;
    const qint64 m_firstAcross;
    qint64 m_across;
    int m_depth = 0; // of the line so far
    qint64 m_usedLength = 0;
    qint64 m_length = 0;
    QSize m_largest{0, 0};
};

QSize Pass::forward()
{
    qint64 along = m_first;
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        QLayoutItem& current = item(i);
        const QSize size = hint(current);
        qint64 next = along + size.width() + spacing();
        // A line does not break before something deep stands in it.
        if (next - spacing() > m_last && m_depth > 0) {
            beginLine();
            along = m_first;
            next = along + size.width() + spacing();
        }
        // Where the last item begins counts for the length, not where it ends: the widest item is
        // accounted for in the result.
        account(size, along - m_first);
        place(current, along, size);
        along = next;
    }
    return result();
}

QSize Pass::backward()
{
    qint64 along = Unset;
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        QLayoutItem& current = item(i);
        const QSize size = hint(current);
        if (along == Unset)
            along = m_last - size.width() - spacing();
        // The step to the next item is this one's size: wider ones may overlap their neighbour.
        qint64 next = along - size.width() - spacing();
        if (along < m_first && m_depth > 0) {
            beginLine();
            along = m_last - size.width() - spacing();
            next = along - size.width() - spacing();
        }
        account(size, m_last - along);
        place(current, along, size);
        along = next;
    }
    return result();
}

} // namespace

QtFlowLayout2::QtFlowLayout2(VXFlowLayout2* object, VXFlowLayout2Emitters* emitters,
                             QWidget* parent, VOXI::Direction direction)
    : QtObject2Shim(object, emitters, s_requests, freeWidget(object, parent)),
      m_cachedSize(Nothing),
      m_direction(direction)
{}

QtFlowLayout2::~QtFlowLayout2()
{
    // One by one: a layout among them looks for itself here when it goes.
    while (!m_items.isEmpty())
        delete m_items.takeLast();
}

// Requests ----------------------------------------------------------------------------------------

void QtFlowLayout2::doSetDirection(VOXI::Direction direction)
{
    m_direction = direction;
    invalidate();
}

VOXI::Direction QtFlowLayout2::doGetDirection() { return m_direction; }

// Helpers -----------------------------------------------------------------------------------------

void QtFlowLayout2::addItem(QLayoutItem* item) { m_items.append(item); }
int QtFlowLayout2::count() const { return static_cast<int>(m_items.size()); }
QLayoutItem* QtFlowLayout2::itemAt(int index) const { return m_items.value(index); }

QLayoutItem* QtFlowLayout2::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

Qt::Orientations QtFlowLayout2::expandingDirections() const { return {}; }

bool QtFlowLayout2::hasHeightForWidth() const
{
    return m_direction == VOXI::Direction::LeftToRight
           || m_direction == VOXI::Direction::RightToLeft;
}

int QtFlowLayout2::heightForWidth(int width) const
{
    return doLayout(QRect(0, 0, width, 0), true).height();
}

QSize QtFlowLayout2::minimumSize() const { return m_cachedSize; }
QSize QtFlowLayout2::sizeHint() const { return minimumSize(); }

void QtFlowLayout2::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    m_cachedSize = doLayout(rect, false);
}

QSize QtFlowLayout2::doLayout(const QRect& rect, bool testOnly) const
{
    switch (m_direction) {
    case VOXI::Direction::LeftToRight:
        return doLeftToRightLayout(rect, testOnly);
    case VOXI::Direction::RightToLeft:
        return doRightToLeftLayout(rect, testOnly);
    case VOXI::Direction::TopToBottom:
        return doTopToBottomLayout(rect, testOnly);
    case VOXI::Direction::BottomToTop:
        return doBottomToTopLayout(rect, testOnly);
    }
    return Nothing;
}

QSize QtFlowLayout2::doLeftToRightLayout(const QRect& rect, bool testOnly) const
{
    return Pass(*this, m_items, rect, Qt::Horizontal, testOnly).forward();
}

QSize QtFlowLayout2::doRightToLeftLayout(const QRect& rect, bool testOnly) const
{
    return Pass(*this, m_items, rect, Qt::Horizontal, testOnly).backward();
}

QSize QtFlowLayout2::doTopToBottomLayout(const QRect& rect, bool testOnly) const
{
    return Pass(*this, m_items, rect, Qt::Vertical, testOnly).forward();
}

QSize QtFlowLayout2::doBottomToTopLayout(const QRect& rect, bool testOnly) const
{
    return Pass(*this, m_items, rect, Qt::Vertical, testOnly).backward();
}

} // namespace VOXI
