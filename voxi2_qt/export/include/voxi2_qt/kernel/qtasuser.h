#pragma once

#include "trov/operations.h"
#include "trov/thread.h"

#include <QThread>

namespace VOXI {

/// Stands around an operation that does, at the program's request, what the user could do: what
/// handlers of the resulting events throw reaches the program behind Qt's back. The user's own acts
/// in a loop that a handler opens are not the program's.
class QtAsUser final : public TROV::EventErrors
{
protected:
    bool isCause() const noexcept override
    {
        return QThread::currentThread()->loopLevel() == m_loopLevel;
    }

private:
    const int m_loopLevel = QThread::currentThread()->loopLevel();
};

/// A row of an operations table whose operation acts as the user.
template <auto Field, auto Function>
auto asUserRow()
{
    return TROV::row<Field, Function, QtAsUser>();
}

} // namespace VOXI
