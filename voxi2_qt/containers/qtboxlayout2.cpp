#include "voxi2_qt/containers/qtboxlayout2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXBoxLayout2Emitters;
using P = QtBoxLayout2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::boxAddWidget, &P::doBoxAddWidget>(),
    TROV::row<&E::insertWidget, &P::doInsertWidget>(),
    TROV::row<&E::insertSpacer, &P::doInsertSpacer>(),
    TROV::row<&E::setStretchFactor, &P::doSetStretchFactor>(),
    TROV::row<&E::addLayout, &P::doAddLayout>(),
    TROV::row<&E::refusesLayout, &P::doRefusesLayout>(),
    TROV::row<&E::setDirection, &P::doSetDirection>(),
    TROV::row<&E::getDirection, &P::doGetDirection>());
// clang-format on

using Widgets = QList<QPointer<QWidget>>;

/// The widgets of the layout and of those inside it.
void collectWidgets(const QLayout& layout, Widgets& widgets)
{
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* const item = layout.itemAt(i);
        if (QWidget* const widget = item->widget())
            widgets.append(widget);
        else if (const QLayout* const inner = item->layout())
            collectWidgets(*inner, widgets);
    }
}

Widgets widgetsOf(const QLayout& layout)
{
    Widgets widgets;
    collectWidgets(layout, widgets);
    return widgets;
}

/// Whether one of the layout's widgets is, or holds, the one that the layout shall lie in.
bool holds(const QLayout& layout, const QWidget* target)
{
    const Widgets widgets = widgetsOf(layout);
    return std::any_of(widgets.begin(), widgets.end(),
                       [target](const auto& widget) { return isWithin(widget, target); });
}

/// Qt does not look whether its widgets are still there while it moves them: they are hidden first.
void takeOutWidgetsFor(QWidget* target, const QLayout& layout)
{
    const QPointer<QWidget> there = target;
    for (const QPointer<QWidget>& widget : widgetsOf(layout)) {
        if (widget && there)
            takeOutFor(there, widget);
    }
}

} // namespace

QtBoxLayout2::QtBoxLayout2(VXBoxLayout2* object, VXBoxLayout2Emitters* emitters, QWidget* parent,
                           VOXI::Direction direction)
    : QtObject2Shim(object, emitters, s_requests, VX2Qt(direction), freeWidget(object, parent))
{}

// Requests ----------------------------------------------------------------------------------------

void QtBoxLayout2::doSetParent(VXObject* widget)
{
    if (doRefuses(widget))
        return;
    withWidgetOf(widget, [this](QWidget* target) { takeOutWidgetsFor(target, *this); });
    QtLayout2::doSetParent(widget);
}

bool QtBoxLayout2::doRefuses(VXObject* widget)
{
    bool refuses = QtLayout2::doRefuses(widget);
    withWidgetOf(widget, [&](QWidget* target) { refuses = refuses || holds(*this, target); });
    return refuses;
}

void QtBoxLayout2::doBoxAddWidget(VXObject* widget, int stretch, Alignment alignment)
{
    doInsertWidget(widget, -1, stretch, alignment);
}

void QtBoxLayout2::doInsertWidget(VXObject* widget, int index, int stretch, Alignment alignment)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!prepareFor(child))
            return;
        // First, or a position would count it that Qt then has no more. Qt would look at every item
        // for a widget that was never in a layout.
        if (child->testAttribute(Qt::WA_LaidOut))
            removeWidget(child);
        QBoxLayout::insertWidget(placeFor(index), child, stretch, VX2Qt(alignment));
        forgetStray(child);
        invalidate();
    });
}

void QtBoxLayout2::doInsertSpacer(int index, int size, int stretch)
{
    if (stretch != 0)
        insertStretch(placeFor(index), stretch);
    else
        insertSpacing(placeFor(index), size);
    invalidate();
}

void QtBoxLayout2::doSetStretchFactor(VXObject* widget, int stretch)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!child || !setStretchFactor(child, stretch))
            ignored(*this, Reason::NotInThis);
    });
}

void QtBoxLayout2::doAddLayout(VXObject* layout, int stretch)
{
    if (doRefusesLayout(layout))
        return;
    withPeerOf<GuiObject>(layout, [&](GuiObject* peer) {
        const QPointer<QLayout> inner = asQLayout(peer);
        takeOutWidgetsFor(parentWidget(), *inner);
        // Code of the host that heard of it may have changed everything.
        if (!inner || doRefusesLayout(layout))
            return;
        QBoxLayout::addLayout(inner, stretch);
        invalidate();
    });
}

bool QtBoxLayout2::doRefusesLayout(VXObject* layout)
{
    bool refuses = true;
    withPeerOf<GuiObject>(layout, [&](GuiObject* peer) {
        const QLayout* const inner = asQLayout(peer);
        // Qt lets a layout go neither out of a widget nor out of another layout.
        refuses = !inner || inner->parent() || isInside(*inner)
                  || (parentWidget() && holds(*inner, parentWidget()));
    });
    return refuses;
}

void QtBoxLayout2::doSetDirection(VOXI::Direction direction) { setDirection(VX2Qt(direction)); }
VOXI::Direction QtBoxLayout2::doGetDirection() { return Qt2VX(direction()); }

// Helpers -----------------------------------------------------------------------------------------

int QtBoxLayout2::placeFor(int index) const
{
    // Qt does not check it.
    return index < 0 || index > count() ? -1 : index;
}

bool QtBoxLayout2::isInside(const QLayout& layout) const
{
    const QObject* around = this;
    while (around && around != &layout)
        around = around->parent();
    return around;
}

} // namespace VOXI
