#include "qtapplicationwatch.h"

#include "qtcomposedwindows.h"
#include "qtwindowkeys.h"
#include "voxi2_qt/kernel/qtclosingwindow.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QWindow>

namespace VOXI {

namespace {

/// The focus goes from one window to another, or to none. Qt passes on pointers to both that it
/// does not guard, so that handlers, which could destroy them, run behind that.
class Activation final : public QObject
{
public:
    Activation() : QObject(qApp)
    {
        connect(qApp, &QGuiApplication::focusWindowChanged, this, [this] { m_hold.close(); });
        QMetaObject::invokeMethod(
            qApp, [this] { delete this; }, Qt::QueuedConnection);
    }

private:
    QtReportHold m_hold;
};

class ApplicationWatch final : public QObject
{
public:
    explicit ApplicationWatch(QObject* parent) : QObject(parent) { s_watches = true; }
    ~ApplicationWatch() override { s_watches = false; }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::DeferredDelete:
            return QtDeletionHold::isActive() && isInner(object)
                   && QtDeletionHold::postpones(*object);
        case QEvent::FocusOut:
        case QEvent::FocusIn:
            if (object->isWindowType() && !QtReportHold::isActive())
                new Activation; // ends by itself
            return false;
        case QEvent::KeyPress:
            return object->isWidgetType()
                   && passKey(static_cast<QWidget&>(*object), static_cast<QKeyEvent&>(*event));
        case QEvent::Expose:
        case QEvent::WindowStateChange:
            return object->isWindowType() && settle(static_cast<QWindow&>(*object), *event);
        case QEvent::Close:
            return object->isWindowType() && close(static_cast<QWindow&>(*object), *event);
        default:
            return false;
        }
    }

    static bool s_watches;
    static inline QList<QPointer<QWidget>> s_awaited; // once for each change that is awaited

private:
    /// Closes a window. Handlers run when Qt has taken it to pieces.
    static bool close(QWindow& window, QEvent& event)
    {
        const QPointer<QWidget> widget = QWidget::find(window.winId());
        QtClosingWindow closing(widget);
        const QtReportHold hold;
        static_cast<QObject&>(window).event(&event);
        if (widget)
            QtComposedWindows::settle(*widget);
        closing.setClosed();
        return true;
    }

    /// The window system says what has become of a state that the program has changed.
    static bool settle(QWindow& window, QEvent& event)
    {
        if (s_awaited.isEmpty())
            return false;
        QWidget* const widget = QWidget::find(window.winId());
        if (!widget || !s_awaited.contains(widget))
            return false;
        const QtEventBlocker blocker(widget, {WidgetEvent::Show, WidgetEvent::Hide});
        static_cast<QObject&>(window).event(&event);
        return true;
    }

    /// Whether Qt has made it for itself inside a peer: the animation of a pane, the buttons of a
    /// tool bar.
    static bool isInner(const QObject* object)
    {
        if (peerOf(object))
            return false; // which asks for itself
        while (object && !peerOf(object))
            object = object->parent();
        return object;
    }
};

bool ApplicationWatch::s_watches = false;

} // namespace

void watchApplication()
{
    if (!ApplicationWatch::s_watches && qApp)
        qApp->installEventFilter(new ApplicationWatch(qApp));
}

void awaitState(QWidget& window)
{
    ApplicationWatch::s_awaited.removeAll(QPointer<QWidget>());
    ApplicationWatch::s_awaited.append(&window);
}

void stateSettled(QWidget& window) { ApplicationWatch::s_awaited.removeOne(&window); }

} // namespace VOXI
