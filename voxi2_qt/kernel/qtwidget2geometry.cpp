// The part of QtWidget2 that is about positions and sizes.

#include "qtcompositor.h"
#include "qtignored.h"
#include "qtsavedstate.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QLayout>
#include <QWidget>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

void QtWidget2::doAdjustSize()
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    asQWidget()->adjustSize();
}

void QtWidget2::doSetContentsMargins(VXRect<int> margins)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    asQWidget()->setContentsMargins(toQMargins(margins));
}

void QtWidget2::doSetMaximumSize(Size<int> size)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    if (size.width == -1)
        asQWidget()->setMaximumHeight(size.height);
    else if (size.height == -1)
        asQWidget()->setMaximumWidth(size.width);
    else
        asQWidget()->setMaximumSize(VX2Qt(size));
}

void QtWidget2::doSetMinimumSize(Size<int> size)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    if (size.width == -1)
        asQWidget()->setMinimumHeight(size.height);
    else if (size.height == -1)
        asQWidget()->setMinimumWidth(size.width);
    else
        asQWidget()->setMinimumSize(VX2Qt(size));
}

void QtWidget2::doResize(Size<int> size)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    asQWidget()->resize(VX2Qt(size));
    keepDelayedBack(WidgetEvent::Resize);
}

void QtWidget2::doSetPosition(VXRect<int> geometry)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    asQWidget()->setGeometry(VX2Qt(geometry));
    keepDelayedBack(WidgetEvent::Move);
    keepDelayedBack(WidgetEvent::Resize);
}

void QtWidget2::doMoveTo(VXPoint<int> position)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Move});
    if (asQWidget()->isWindow())
        noteRefusal(CompositorRefusal::Placing);
    asQWidget()->move(VX2Qt(position));
    keepDelayedBack(WidgetEvent::Move);
}

void QtWidget2::doRestoreGeometry(const std::string& geometry)
{
    if (!restoreGeometryQuietly(QByteArray::fromBase64(QByteArray::fromStdString(geometry))))
        ignored(*this, "that is no text of saveGeometry, or not all of it");
}

void QtWidget2::doSetSizeConstraint(SizeConstraint constraint)
{
    if (QLayout* layout = asQWidget()->layout())
        layout->setSizeConstraint(VX2Qt(constraint));
}

void QtWidget2::doSetFixedSize(Size<int> size)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Resize});
    asQWidget()->setFixedSize(VX2Qt(size));
}

void QtWidget2::doSetSizePolicy(Policy horizontal, Policy vertical)
{
    asQWidget()->setSizePolicy(VX2Qt(horizontal), VX2Qt(vertical));
}

Size<int> QtWidget2::doGetMaximumSize() { return Qt2VX(asQWidget()->maximumSize()); }
Size<int> QtWidget2::doGetMinimumSize() { return Qt2VX(asQWidget()->minimumSize()); }
VXRect<int> QtWidget2::doGetPosition() { return Qt2VX(asQWidget()->geometry()); }

VXRect<int> QtWidget2::doGetGlobalPosition()
{
    const QWidget* widget = asQWidget();
    return Qt2VX(QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size()));
}

VXPoint<int> QtWidget2::doMapToGlobal(VXPoint<int> point)
{
    return Qt2VX(asQWidget()->mapToGlobal(VX2Qt(point)));
}

VXPoint<int> QtWidget2::doMapFromGlobal(VXPoint<int> point)
{
    return Qt2VX(asQWidget()->mapFromGlobal(VX2Qt(point)));
}

VXRect<int> QtWidget2::doGetContentsRect() { return Qt2VX(asQWidget()->contentsRect()); }

VXRect<int> QtWidget2::doGetContentsMargins()
{
    return toVXMargins(asQWidget()->contentsMargins());
}

std::string QtWidget2::doSaveGeometry()
{
    return asQWidget()->saveGeometry().toBase64().toStdString();
}

// Helpers -----------------------------------------------------------------------------------------

bool QtWidget2::restoreGeometryQuietly(const QByteArray& geometry)
{
    const QtEventBlocker blocker(*this, {WidgetEvent::Move, WidgetEvent::Resize});
    const bool restored = isSavedGeometry(geometry) && asQWidget()->restoreGeometry(geometry);
    if (restored) {
        keepDelayedBack(WidgetEvent::Move);
        keepDelayedBack(WidgetEvent::Resize);
    }
    return restored;
}

} // namespace VOXI
