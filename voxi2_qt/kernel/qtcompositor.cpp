#include "qtcompositor.h"

#include "voxi2_qt/kernel/qteventblocker.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QWidget>

#include <list>
#include <set>

namespace VOXI {

namespace {

Q_LOGGING_CATEGORY(platformLog, "voxi.platform")

const char* textOf(CompositorRefusal refusal)
{
    switch (refusal) {
    case CompositorRefusal::Raising:
        return "the Wayland compositor decides which window is in front and has the keyboard";
    case CompositorRefusal::Placing:
        return "the Wayland compositor decides where windows are";
    case CompositorRefusal::TellingMinimized:
        return "the Wayland compositor does not tell whether a window is still minimised";
    }
    return "";
}

} // namespace

bool isUnderCompositor()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

void noteRefusal(CompositorRefusal refusal)
{
    static std::set<CompositorRefusal> s_noted;
    if (isUnderCompositor() && s_noted.insert(refusal).second)
        qCInfo(platformLog, "%s", textOf(refusal));
}

void showAnew(QWidget* window, const std::function<void()>& change)
{
    const QPointer<QWidget> self(window);
    std::list<QtEventBlocker> blockers;
    const auto keepBack = [&](const QWidget* widget) {
        blockers.emplace_back(
            widget, std::initializer_list<WidgetEvent>{WidgetEvent::Show, WidgetEvent::Hide,
                                                       WidgetEvent::Move, WidgetEvent::Resize});
    };
    keepBack(window);
    for (const QWidget* inside : window->findChildren<QWidget*>()) {
        if (inside->window() == window)
            keepBack(inside);
    }
    // Who has the focus loses it to a menu, and has it while there is none.
    blockers.emplace_back(
        QApplication::focusWidget(),
        std::initializer_list<WidgetEvent>{WidgetEvent::FocusIn, WidgetEvent::FocusOut});
    window->hide();
    if (self)
        change();
    if (self)
        window->show();
}

} // namespace VOXI
