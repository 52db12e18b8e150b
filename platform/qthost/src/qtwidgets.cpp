#include "qthost/qtwidgets.h"

#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

#include <QHBoxLayout>
#include <QWidget>

namespace VOXI {

QWidget* qtWidgetOf(const VXObject* object)
{
    const VXObjectDataLocker lock;
    return VXObject::isObjectValid(object) ? dynamic_cast<QWidget*>(lookup(object)) : nullptr;
}

VXObject* objectOf(const QWidget* widget)
{
    const VXObjectDataLocker lock;
    const auto* const peer = dynamic_cast<const GuiObject*>(widget);
    VXObject* const object = peer ? peer->getHandle() : nullptr;
    return VXObject::isObjectValid(object) ? object : nullptr;
}

bool embedQtWidget(QWidget* widget, const VXObject* panel)
{
    QWidget* const outer = qtWidgetOf(panel);
    if (!widget || !outer || outer->layout())
        return false;
    for (const QWidget* around = outer; around; around = around->parentWidget()) {
        if (around == widget)
            return false;
    }
    auto* const layout = new QHBoxLayout(outer);
    layout->setContentsMargins({});
    layout->addWidget(widget);
    outer->setSizePolicy(widget->sizePolicy());
    outer->setFocusProxy(widget);
    return true;
}

} // namespace VOXI
