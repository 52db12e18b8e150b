#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QEvent;
class QWidget;
class QWindow;
QT_END_NAMESPACE

namespace VOXI {

/// While one lives, a window is not painted: for application code that runs in the middle of its
/// painting. A local variable; toolkit's thread only.
///
/// That code may run a loop. Qt, which cannot paint a window while it does, would try to: two
/// painters at a time on the memory that it paints in, or memory that is replaced because the user
/// has resized the window. What asks for it waits until this ends.
class VOXI2_QT_EXPORT QtPaintingHold : public QObject
{
public:
    explicit QtPaintingHold(QWidget& window);
    ~QtPaintingHold() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Kept
    {
        QPointer<QObject> m_receiver;
        std::unique_ptr<QEvent> m_event;
    };

    std::vector<Kept> m_kept;
};

} // namespace VOXI
