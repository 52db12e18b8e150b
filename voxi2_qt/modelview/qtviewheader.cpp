#include "qtviewheader.h"

#include "cellroles.h"
#include "voxi2_qt/kernel/qtreporthold.h"

#include <QHelpEvent>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QThread>
#include <QToolTip>

#include <utility>

namespace VOXI {

QtViewHeader::QtViewHeader(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent)
{
    if (orientation == Qt::Horizontal)
        setMinimumSectionSize(0); // any width can be set
    setResizeContentsPrecision(0);
    setHighlightSections(true);
}

bool QtViewHeader::isUserActing() const
{
    return m_userLevel == QThread::currentThread()->loopLevel() && !QtReportHold::isActive();
}

bool QtViewHeader::isFlexible(int section) const
{
    if (sectionResizeMode(section) != Interactive)
        return true;
    int last = count() - 1;
    while (last >= 0 && isSectionHidden(logicalIndex(last)))
        --last;
    return stretchLastSection() && visualIndex(section) == last;
}

bool QtViewHeader::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const QPointer<QtViewHeader> self(this);
        const int former = std::exchange(m_userLevel, QThread::currentThread()->loopLevel());
        const bool isHandled = QHeaderView::viewportEvent(event);
        if (self)
            m_userLevel = former;
        return isHandled;
    }
    case QEvent::ToolTip:
        return showToolTip(static_cast<const QHelpEvent&>(*event))
               || QHeaderView::viewportEvent(event);
    default:
        return QHeaderView::viewportEvent(event);
    }
}

void QtViewHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    option->icon = iconOf(section);
}

QSize QtViewHeader::sectionSizeFromContents(int section) const
{
    const QSize size = QHeaderView::sectionSizeFromContents(section);
    QStyleOptionHeader option;
    option.icon = iconOf(section);
    if (option.icon.isNull())
        return size;
    // Styles place it before the text.
    initStyleOption(&option);
    option.text = model()->headerData(section, orientation()).toString();
    const auto measured = [&] {
        return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, this);
    };
    const QSize with = measured();
    option.icon = QIcon();
    return {size.width() + with.width() - measured().width(), qMax(size.height(), with.height())};
}

QIcon QtViewHeader::iconOf(int section) const
{
    const QAbstractItemModel* const shown = model(); // null while the view changes models
    return shown ? shown->headerData(section, orientation(), HeaderIconRole).value<QIcon>()
                 : QIcon();
}

bool QtViewHeader::showToolTip(const QHelpEvent& event)
{
    const int section = logicalIndexAt(event.pos());
    if (section < 0)
        return false;
    const QVariant text = model()->headerData(section, orientation(), HeaderToolTipRole);
    if (text.isValid())
        QToolTip::showText(event.globalPos(), text.toString(), this);
    return text.isValid();
}

} // namespace VOXI
