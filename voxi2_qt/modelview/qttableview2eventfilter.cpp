#include "qttableview2eventfilter.h"

#include "voxi2_qt/modelview/qttableview2.h"

#include <QEvent>

namespace VOXI {

QtTableView2EventFilter::QtTableView2EventFilter(QtTableView2& table)
    : QObject(&table),
      m_table(table)
{
    table.installEventFilter(this);
}

bool QtTableView2EventFilter::eventFilter(QObject* object, QEvent* event)
{
    if (object == &m_table
        && (event->type() == QEvent::FontChange || event->type() == QEvent::Show))
        m_table.updateSize();
    return false;
}

} // namespace VOXI
