#include "voxi2_qt/kernel/qtdocking.h"

#include "enumtable.h"

namespace VOXI {

namespace {

constexpr auto BarAreas = enumTable<ToolBarArea, Qt::ToolBarArea>({
    {ToolBarArea::None, Qt::NoToolBarArea},
    {ToolBarArea::Left, Qt::LeftToolBarArea},
    {ToolBarArea::Right, Qt::RightToolBarArea},
    {ToolBarArea::Top, Qt::TopToolBarArea},
    {ToolBarArea::Bottom, Qt::BottomToolBarArea},
});

constexpr auto DockAreas = enumTable<DockArea, Qt::DockWidgetArea>({
    {DockArea::None, Qt::NoDockWidgetArea},
    {DockArea::Left, Qt::LeftDockWidgetArea},
    {DockArea::Right, Qt::RightDockWidgetArea},
    {DockArea::Top, Qt::TopDockWidgetArea},
    {DockArea::Bottom, Qt::BottomDockWidgetArea},
});

constexpr auto Features = enumTable<DockFeature, QDockWidget::DockWidgetFeature>({
    {DockFeature::None, QDockWidget::NoDockWidgetFeatures},
    {DockFeature::Closable, QDockWidget::DockWidgetClosable},
    {DockFeature::Movable, QDockWidget::DockWidgetMovable},
    {DockFeature::Floatable, QDockWidget::DockWidgetFloatable},
    {DockFeature::VerticalTitleBar, QDockWidget::DockWidgetVerticalTitleBar},
});

} // namespace

Qt::ToolBarArea VX2Qt(ToolBarArea area) noexcept { return BarAreas.toQt(area); }
ToolBarArea Qt2VX(Qt::ToolBarArea area) noexcept { return BarAreas.toVx(area); }
Qt::DockWidgetArea VX2Qt(DockArea area) noexcept { return DockAreas.toQt(area); }
DockArea Qt2VX(Qt::DockWidgetArea area) noexcept { return DockAreas.toVx(area); }

Qt::DockWidgetAreas VX2Qt(VXFlags<DockArea> areas) noexcept
{
    return DockAreas.toQtFlags<Qt::DockWidgetAreas>(areas);
}

VXFlags<DockArea> Qt2VX(Qt::DockWidgetAreas areas) noexcept { return DockAreas.toVxFlags(areas); }

QDockWidget::DockWidgetFeatures VX2Qt(VXFlags<DockFeature> features) noexcept
{
    return Features.toQtFlags<QDockWidget::DockWidgetFeatures>(features);
}

VXFlags<DockFeature> Qt2VX(QDockWidget::DockWidgetFeatures features) noexcept
{
    return Features.toVxFlags(features);
}

} // namespace VOXI
