#pragma once

#include "voxi2/containers/dockarea.h"
#include "voxi2/containers/dockfeature.h"
#include "voxi2/containers/toolbararea.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QDockWidget>
#include <Qt>

namespace VOXI {

// Member by member. What has no counterpart maps to none.

VOXI2_QT_EXPORT Qt::ToolBarArea VX2Qt(ToolBarArea area) noexcept;
VOXI2_QT_EXPORT ToolBarArea Qt2VX(Qt::ToolBarArea area) noexcept;

VOXI2_QT_EXPORT Qt::DockWidgetArea VX2Qt(DockArea area) noexcept;
VOXI2_QT_EXPORT DockArea Qt2VX(Qt::DockWidgetArea area) noexcept;
VOXI2_QT_EXPORT Qt::DockWidgetAreas VX2Qt(VXFlags<DockArea> areas) noexcept;
VOXI2_QT_EXPORT VXFlags<DockArea> Qt2VX(Qt::DockWidgetAreas areas) noexcept;

VOXI2_QT_EXPORT QDockWidget::DockWidgetFeatures VX2Qt(VXFlags<DockFeature> features) noexcept;
VOXI2_QT_EXPORT VXFlags<DockFeature> Qt2VX(QDockWidget::DockWidgetFeatures features) noexcept;

} // namespace VOXI
