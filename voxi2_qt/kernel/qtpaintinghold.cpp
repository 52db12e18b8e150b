#include "voxi2_qt/kernel/qtpaintinghold.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace VOXI {

namespace {

bool wantsPainting(const QObject* receiver, QEvent::Type type)
{
    // A window's widget is resized by the program as well, which does not paint it.
    return type == QEvent::UpdateRequest
           || (receiver->isWindowType() && (type == QEvent::Expose || type == QEvent::Resize));
}

} // namespace

QtPaintingHold::QtPaintingHold(QWidget& window)
{
    window.installEventFilter(this);
    if (QWindow* const native = window.windowHandle())
        native->installEventFilter(this);
}

QtPaintingHold::~QtPaintingHold()
{
    for (Kept& kept : m_kept) {
        if (kept.m_receiver)
            QCoreApplication::postEvent(kept.m_receiver, kept.m_event.release());
    }
}

bool QtPaintingHold::eventFilter(QObject* receiver, QEvent* event)
{
    if (!wantsPainting(receiver, event->type()))
        return false;
    // The last one says it all.
    std::erase_if(m_kept, [&](const Kept& kept) {
        return kept.m_receiver == receiver && kept.m_event->type() == event->type();
    });
    m_kept.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
    return true;
}

} // namespace VOXI
