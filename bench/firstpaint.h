#pragma once

#include "heap.h"

#include <QApplication>
#include <QEvent>

#include <cstdio>
#include <cstdlib>

namespace bench {

/// Ends the program when the first window has been painted, and prints what is on the heap then.
class FirstPaint : public QObject
{
public:
    FirstPaint() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* /*object*/, QEvent* event) override
    {
        // All that is painted now is painted in this turn of the loop.
        if (event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(this, &FirstPaint::end, Qt::QueuedConnection);
        return false;
    }

private:
    static void end()
    {
        std::printf("%zu\n", heapInUse());
        std::fflush(stdout);
        std::_Exit(0);
    }
};

} // namespace bench
