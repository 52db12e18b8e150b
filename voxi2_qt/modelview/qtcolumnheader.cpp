#include "qtcolumnheader.h"

#include "voxi2_qt/kernel/qtreporthold.h"

#include <QEvent>
#include <QPointer>
#include <QThread>

#include <utility>

namespace VOXI {

QtColumnHeader::QtColumnHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    setMinimumSectionSize(0); // any width can be set
    setResizeContentsPrecision(0);
    setHighlightSections(true);
}

bool QtColumnHeader::isUserActing() const
{
    return m_userLevel == QThread::currentThread()->loopLevel() && !QtReportHold::isActive();
}

bool QtColumnHeader::isFlexible(int section) const
{
    if (sectionResizeMode(section) != Interactive)
        return true;
    int last = count() - 1;
    while (last >= 0 && isSectionHidden(logicalIndex(last)))
        --last;
    return stretchLastSection() && visualIndex(section) == last;
}

bool QtColumnHeader::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const QPointer<QtColumnHeader> self(this);
        const int former = std::exchange(m_userLevel, QThread::currentThread()->loopLevel());
        const bool isHandled = QHeaderView::viewportEvent(event);
        if (self)
            m_userLevel = former;
        return isHandled;
    }
    default:
        return QHeaderView::viewportEvent(event);
    }
}

} // namespace VOXI
