#include "voxi2_qt/kernel/qtcursorregistry.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace VOXI {

namespace {

QtCursorRegistry* installed()
{
    return dynamic_cast<QtCursorRegistry*>(CustomCursorRegistry::instance());
}

} // namespace

QtCursorRegistry::QtCursorRegistry() : m_thread(TROV::Thread::getCurrentThread()) {}

void QtCursorRegistry::registerCursor(const StringID& name, const Pixmap& image,
                                      const VXPoint<int>& hotSpot)
{
    {
        std::lock_guard lock(m_mutex);
        Entry& entry = m_entries[name];
        entry.m_image = image;
        entry.m_hotSpot = hotSpot;
        entry.m_isCurrent = false;
        if (!entry.m_cursor) { // nobody has asked for it
            if (image.isNull())
                m_entries.erase(name);
            return;
        }
    }
    if (m_thread == TROV::Thread::getCurrentThread()) {
        showAnew(name);
        return;
    }
    m_thread->post([name] {
        if (QtCursorRegistry* registry = installed())
            registry->showAnew(name);
    });
}

bool QtCursorRegistry::hasCursor(const StringID& name) const
{
    std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(name);
    return found != m_entries.end() && !found->second.m_image.isNull();
}

/// Makes the cursor of the image that is registered now, and shows it where the former one is.
void QtCursorRegistry::showAnew(const StringID& name)
{
    QCursor former;
    QCursor current;
    {
        std::lock_guard lock(m_mutex);
        const auto found = m_entries.find(name);
        if (found == m_entries.end() || found->second.m_isCurrent)
            return;
        Entry& entry = found->second;
        entry.m_isCurrent = true;
        const QPixmap pixmap = toQPixmap(entry.m_image);
        former = entry.m_cursor.value_or(QCursor());
        // What cannot be read leaves the cursor as it was.
        if (!pixmap.isNull())
            entry.m_cursor = QCursor(pixmap, entry.m_hotSpot.x, entry.m_hotSpot.y);
        current = entry.m_cursor.value_or(QCursor());
    }
    if (former.shape() != Qt::BitmapCursor)
        return;
    QList<QPointer<QWidget>> holders;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->testAttribute(Qt::WA_SetCursor) && widget->cursor() == former)
            holders.append(widget);
    }
    for (const QPointer<QWidget>& widget : holders) {
        if (widget)
            widget->setCursor(current);
    }
    std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(name);
    if (holders.isEmpty() && found != m_entries.end() && found->second.m_image.isNull())
        m_entries.erase(found);
}

QCursor QtCursorRegistry::toQCursor(const Cursor& cursor)
{
    if (!cursor.isCustom())
        return QCursor(VX2Qt(cursor));
    QtCursorRegistry* registry = installed();
    if (!registry || !registry->hasCursor(cursor.name()))
        return QCursor();
    registry->showAnew(cursor.name());
    std::lock_guard lock(registry->m_mutex);
    const auto found = registry->m_entries.find(cursor.name());
    if (found == registry->m_entries.end())
        return QCursor();
    return found->second.m_cursor.value_or(QCursor());
}

Cursor QtCursorRegistry::toCursor(const QCursor& cursor)
{
    if (cursor.shape() != Qt::BitmapCursor)
        return Qt2VX(cursor.shape());
    if (QtCursorRegistry* registry = installed()) {
        std::lock_guard lock(registry->m_mutex);
        for (const auto& [name, entry] : registry->m_entries) {
            if (entry.m_cursor == cursor)
                return Cursor(name);
        }
    }
    return Cursor();
}

} // namespace VOXI
