#include "voxi2_qt/kernel/qtcursorregistry.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QPixmap>

namespace VOXI {

namespace {

QtCursorRegistry* installed()
{
    return dynamic_cast<QtCursorRegistry*>(CustomCursorRegistry::instance());
}

} // namespace

void QtCursorRegistry::registerCursor(const StringID& name, const Pixmap& image,
                                      const VXPoint<int>& hotSpot)
{
    std::lock_guard lock(m_mutex);
    if (image.isNull())
        m_entries.erase(name);
    else
        m_entries[name] = Entry{image, hotSpot, QCursor(), false};
}

bool QtCursorRegistry::hasCursor(const StringID& name) const
{
    std::lock_guard lock(m_mutex);
    return m_entries.count(name) != 0;
}

QCursor QtCursorRegistry::make(const Entry& entry)
{
    const QPixmap pixmap = toQPixmap(entry.m_image);
    if (pixmap.isNull())
        return QCursor();
    return QCursor(pixmap, entry.m_hotSpot.x, entry.m_hotSpot.y);
}

QCursor QtCursorRegistry::toQCursor(const Cursor& cursor)
{
    if (!cursor.isCustom())
        return QCursor(VX2Qt(cursor));
    QtCursorRegistry* registry = installed();
    if (!registry)
        return QCursor();
    std::lock_guard lock(registry->m_mutex);
    const auto found = registry->m_entries.find(cursor.name());
    if (found == registry->m_entries.end())
        return QCursor();
    if (!found->second.m_made) {
        found->second.m_cursor = make(found->second);
        found->second.m_made = true;
    }
    return found->second.m_cursor;
}

Cursor QtCursorRegistry::toCursor(const QCursor& cursor)
{
    if (cursor.shape() != Qt::BitmapCursor)
        return Qt2VX(cursor.shape());
    if (QtCursorRegistry* registry = installed()) {
        std::lock_guard lock(registry->m_mutex);
        for (const auto& [name, entry] : registry->m_entries) {
            if (entry.m_made && entry.m_cursor == cursor)
                return Cursor(name);
        }
    }
    return Cursor();
}

} // namespace VOXI
