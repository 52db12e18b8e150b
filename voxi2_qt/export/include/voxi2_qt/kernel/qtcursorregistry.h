#pragma once

#include "trov/thread.h"
#include "voxi2/kernel/cursor.h"
#include "voxi2/kernel/customcursorregistry.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QCursor>

#include <mutex>
#include <optional>
#include <unordered_map>

namespace VOXI {

/// Keeps the cursors that the application registered, as Qt cursors.
class VOXI2_QT_EXPORT QtCursorRegistry final : public CustomCursorRegistry
{
public:
    /// On the GUI thread.
    QtCursorRegistry();

    void registerCursor(const StringID& name, const Pixmap& image,
                        const VXPoint<int>& hotSpot) override;
    bool hasCursor(const StringID& name) const override;

    /// The Qt cursor of a toolkit cursor; the arrow for a custom one that is not known. GUI thread.
    static QCursor toQCursor(const Cursor& cursor);

    /// The toolkit cursor that a Qt cursor was made from. GUI thread.
    static Cursor toCursor(const QCursor& cursor);

private:
    struct Entry
    {
        Pixmap m_image; // null: taken out, while widgets have it yet
        VXPoint<int> m_hotSpot;
        std::optional<QCursor> m_cursor; // made when it is first wanted, on the GUI thread
        bool m_isCurrent = false;        // the cursor is of this image
    };

    void showAnew(const StringID& name);

    TROV::Thread* const m_thread; // the GUI thread
    mutable std::mutex m_mutex;
    std::unordered_map<StringID, Entry> m_entries;
};

} // namespace VOXI
