#pragma once

#include "voxi2_qt/kernel/qtobject2.h"

#include <QObject>

namespace VOXI {

/// The peer that the object is, or else the innermost one that it lies in; null when there is none.
/// What is being destroyed is no peer any more.
inline const QtObject2* nearestPeer(const QObject* object) noexcept
{
    for (; object; object = object->parent()) {
        if (const QtObject2* peer = peerOf(object))
            return peer;
    }
    return nullptr;
}

} // namespace VOXI
