// The part of QtWidget2 that is about the way of the Tab key.

#include "voxi2_qt/kernel/qtwidget2.h"

#include <QList>
#include <QSet>
#include <QWidget>

#include <algorithm>

namespace VOXI {

namespace {

/// Qt moves a widget whose focus goes to a part of it together with its parts. With one of them in
/// the list as well the chain would be torn, and whoever walks along it never come back.
bool movesAnother(const QWidget* outer, const QList<QWidget*>& all)
{
    return outer->focusProxy() && std::ranges::any_of(all, [outer](const QWidget* inner) {
               return inner != outer && isWithin(outer, inner);
           });
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtWidget2::doSetTabOrder(const std::vector<VXWidget2*>& widgets)
{
    const QWidget* const window = asQWidget()->window();
    QList<QWidget*> stops;
    QSet<const QWidget*> known;
    for (const VXWidget2* each : widgets) {
        withWidgetOf(each, [&](QWidget* widget) {
            if (widget && widget->window() == window && widget->focusPolicy() != Qt::NoFocus
                && !known.contains(widget)) {
                known.insert(widget);
                stops.push_back(widget);
            }
        });
    }
    const QList<QWidget*> all = stops;
    stops.removeIf([&all](const QWidget* stop) { return movesAnother(stop, all); });
    for (qsizetype i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops[i - 1], stops[i]);
}

std::vector<VXWidget2*> QtWidget2::doGetTabOrder()
{
    std::vector<VXWidget2*> result;
    QWidget* const self = asQWidget();
    QWidget* each = self;
    do {
        if ((each->focusPolicy() & Qt::TabFocus) && isWithin(self, each)) {
            if (auto* const widget = abstractObjectOf<VXWidget2>(each))
                result.push_back(widget);
        }
        each = each->nextInFocusChain();
    } while (each != self);
    return result;
}

} // namespace VOXI
