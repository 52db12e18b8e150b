#include "voxi2_qt/containers/qtwindow2.h"

#include "voxi2_qt/kernel/qteventblocker.h"

#include <optional>

namespace VOXI {

namespace {

using E = VXWindow2Emitters;
using P = QtWindow2;

const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setCentralWidget, &P::doSetCentralWidget>(),
    TROV::row<&E::getCentralWidget, &P::doGetCentralWidget>(),
    TROV::row<&E::setSupportsGlobalFocusBlocker, &P::doSetSupportsGlobalFocusBlocker>(),
    TROV::row<&E::getSupportsGlobalFocusBlocker, &P::doGetSupportsGlobalFocusBlocker>());

}  // namespace

QtWindow2::QtWindow2(VXWindow2* object, VXWindow2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, parent)
{
    enableEventBroadcasting();
    bindRequests(emitters, s_requests);
}

void QtWindow2::doSetCentralWidget(VXWidget2* widget)
{
    const auto place = [this](QWidget* child) {
        if (child && (child == centralWidget() || isWithin(child, this)))
            return;
        // Qt would delete the former one, which has an owner of its own.
        if (QWidget* former = takeCentralWidget())
            keepHidden(former);
        if (child)
            setCentralWidget(child);
    };
    if (widget)
        withWidgetOf(widget, place);
    else
        place(nullptr);
}

void QtWindow2::keepHidden(QWidget* widget)
{
    std::optional<QtEventBlocker> blocker;
    if (auto* peer = dynamic_cast<QtWidget2*>(peerOf(widget)))
        blocker.emplace(*peer, std::initializer_list<WidgetEvent>{WidgetEvent::Hide});
    widget->hide();
    widget->setParent(this);
}

VXWidget2* QtWindow2::doGetCentralWidget()
{
    return dynamic_cast<VXWidget2*>(abstractObjectOf(centralWidget()));
}

void QtWindow2::doSetSupportsGlobalFocusBlocker(bool supports)
{
    m_supportsFocusBlocker = supports;
}

bool QtWindow2::doGetSupportsGlobalFocusBlocker()
{
    return m_supportsFocusBlocker;
}

}  // namespace VOXI
