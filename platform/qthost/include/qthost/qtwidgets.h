#pragma once

#include "qthost/qthost_export.h"

class QWidget;

namespace VOXI {

class VXObject;

// For programs that use Qt beside the toolkit. Toolkit's thread.

/// The Qt widget that shows an abstract object, to be put into layouts and windows of the program's
/// own; null for what is no widget, for null and dead ones, and without a back end. It ends with
/// the abstract object. When Qt deletes it first, with a window that it was put into, the abstract
/// object lives on without a peer, and its requests do nothing.
QTHOST_EXPORT QWidget* qtWidgetOf(const VXObject* object);

/// The live abstract object that a Qt widget shows; null for other widgets.
QTHOST_EXPORT VXObject* objectOf(const QWidget* widget);

/// Shows a Qt widget of the program's own in a toolkit widget without a layout, which it fills: an
/// empty panel, as a rule.
///
///     auto* chart = new VOXI::VXPanel2(page);
///     VOXI::embedQtWidget(new ChartView, chart);
///     layout->addWidget(chart);
///
/// The panel asks for as much room as the Qt widget, and has its size policy; focus given to the
/// panel goes to it. From now on the Qt widget belongs to the panel's, and ends with it at the
/// latest. What it does is between it and the program: the panel reports nothing of it. False, and
/// nothing happens, when the object has no widget, has a layout, or lies in the Qt widget.
QTHOST_EXPORT bool embedQtWidget(QWidget* widget, const VXObject* panel);

} // namespace VOXI
