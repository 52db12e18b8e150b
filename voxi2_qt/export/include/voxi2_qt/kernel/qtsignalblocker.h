#pragma once

#include <QObject>

#include <cassert>

namespace VOXI {

/// Blocks an object's Qt signals for a scope.
///
/// Its end switches blocking off rather than restoring what was before, so blockers of one object
/// must not be nested; builds with assertions abort where they are.
class QtSignalBlocker
{
public:
    explicit QtSignalBlocker(QObject* object) noexcept : m_object(object)
    {
        [[maybe_unused]] const bool wasBlocked = m_object->blockSignals(true);
        assert(!wasBlocked);
    }
    ~QtSignalBlocker() { m_object->blockSignals(false); }
    QtSignalBlocker(const QtSignalBlocker&) = delete;
    QtSignalBlocker& operator=(const QtSignalBlocker&) = delete;

private:
    QObject* m_object;
};

} // namespace VOXI
