#include "voxi2_qt/containers/qtboxlayout2.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QWidget>

namespace VOXI {

namespace {

using E = VXBoxLayout2Emitters;
using P = QtBoxLayout2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::boxAddWidget, &P::doBoxAddWidget>(),
    TROV::row<&E::insertWidget, &P::doInsertWidget>(),
    TROV::row<&E::insertSpacer, &P::doInsertSpacer>(),
    TROV::row<&E::setStretchFactor, &P::doSetStretchFactor>());
// clang-format on

} // namespace

QtBoxLayout2::QtBoxLayout2(VXBoxLayout2* object, VXBoxLayout2Emitters* emitters, QWidget* parent,
                           VOXI::Direction direction)
    // A widget that has a layout keeps it; Qt would warn.
    : QtObject2Shim(object, emitters, s_requests, VX2Qt(direction),
                    parent && !parent->layout() ? parent : nullptr)
{}

// Requests ----------------------------------------------------------------------------------------

void QtBoxLayout2::doBoxAddWidget(VXObject* widget, int stretch, Alignment alignment)
{
    doInsertWidget(widget, -1, stretch, alignment);
}

void QtBoxLayout2::doInsertWidget(VXObject* widget, int index, int stretch, Alignment alignment)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!prepareFor(child))
            return;
        removeWidget(child); // first, or a position would count it that Qt then has no more
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
        if (child)
            setStretchFactor(child, stretch);
    });
}

// Helpers -----------------------------------------------------------------------------------------

int QtBoxLayout2::placeFor(int index) const
{
    // Qt does not check it.
    return index < 0 || index > count() ? -1 : index;
}

} // namespace VOXI
