#include "qtcomposedwindows.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace VOXI {

namespace {

/// What Qt lets nobody else call.
struct NativeWindows : QWidget
{
    using QWidget::destroy;
};

/// Whether what Qt paints into was made for the graphics card already, and is in use there.
bool isComposed(const QWidget& window)
{
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const bool isDrawnByCard =
            widget->inherits("QOpenGLWidget") || widget->inherits("QQuickWidget");
        if (isDrawnByCard && widget->window() == &window)
            return true;
    }
    return false;
}

/// Whether it still has the QWindow that it had before its owner or flags changed or it was closed.
bool isLeftOver(const QWidget& widget)
{
    if (!widget.windowHandle() || widget.testAttribute(Qt::WA_NativeWindow))
        return false;
    return !widget.isWindow()
           || (!widget.testAttribute(Qt::WA_WState_Created) && !isComposed(widget));
}

} // namespace

bool QtComposedWindows::ms_areThere = false;

void QtComposedWindows::begin()
{
    if (std::exchange(ms_areThere, true))
        return;
    for (QWidget* const widget : QApplication::allWidgets())
        settle(*widget);
}

void QtComposedWindows::settle(QWidget& widget)
{
    if (ms_areThere && isLeftOver(widget))
        (widget.*&NativeWindows::destroy)(true, true);
}

} // namespace VOXI
