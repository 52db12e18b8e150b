#pragma once

#include "benchsupport.h"

#include <QAbstractItemView>

namespace bench {

constexpr int ViewWidth = 1280;
constexpr int ViewHeight = 800;

/// Until all that is in sight is painted with what it shows.
inline void settleFilled(const QAbstractItemView& view)
{
    const auto isFilled = [&] {
        const QRect area = view.viewport()->rect();
        for (const QPoint& point : {QPoint(2, 2), area.center(), area.bottomRight()}) {
            const QModelIndex index = view.indexAt(point);
            if (index.isValid() && !index.data().isValid())
                return false;
        }
        return true;
    };
    settle();
    while (!isFilled())
        settle();
    settle();
}

} // namespace bench
