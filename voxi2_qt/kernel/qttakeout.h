#pragma once

#include "voxi2_qt/kernel/qteventblocker.h"

#include <list>

QT_BEGIN_NAMESPACE
class QStackedWidget;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// The stack of which the widget is a page, also that inside a tab container; null for none.
QStackedWidget* stackOfPage(QWidget* widget);

/// While it lives, that a page comes or goes is the program's doing; if it is the one shown, then
/// also what becomes of the others, as one of them is shown in its place.
class PageBlocker
{
public:
    explicit PageBlocker(QWidget* page);

private:
    std::list<QtEventBlocker> m_blockers;
};

/// Ends the user's drag of a peer; of any other widget, or null, nothing happens.
void endDrag(const QWidget* widget);

/// Readies a widget that the program is about to put into another widget.
///
/// Qt hides what moves; that is no news. A tool bar is left, a drag ended. And it takes a page that
/// a stack has hidden for one that the program has hidden, and would not show it in the new place.
void takeOut(QWidget* widget);

/// The same, unless the widget lies in `target` already.
void takeOutFor(QWidget* target, QWidget* widget);

/// Ends what the two below begin: the program has put the widget somewhere, where it comes into
/// sight with what is around it, or itself shown or hidden it. Nothing happens to other widgets.
void endAside(QWidget* widget, bool comesIntoSight);

/// Leaves a widget that was taken out of its container with `keeper`, hidden until it is shown or
/// put elsewhere. Null is ignored.
void keepHidden(QWidget* widget, QWidget* keeper);

/// Takes a widget out of whatever holds it: alone, and hidden until it is shown or put elsewhere.
/// A window remains one; what the program has hidden stays hidden.
void takeOutAlone(QWidget* widget);

} // namespace VOXI
