#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Readies a widget that the program is about to put into another widget.
///
/// Qt hides what moves; that is no news. And it takes a page that a stack has hidden for one that
/// the program has hidden, and would not show it in the new place.
void takeOut(QWidget* widget);

/// The same, unless the widget lies in `target` already.
void takeOutFor(QWidget* target, QWidget* widget);

/// Leaves a widget that was taken out of its container with `keeper`, hidden until it is put
/// elsewhere. Null is ignored.
void keepHidden(QWidget* widget, QWidget* keeper);

} // namespace VOXI
