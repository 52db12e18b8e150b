#include "voxi2_qt/modelview/qtexplorerbarview2.h"

namespace VOXI {

namespace {

using E = VXExplorerBarView2Emitters;

const auto s_requests = TROV::operations<E>();

} // namespace

QtExplorerBarView2::QtExplorerBarView2(VXExplorerBarView2* object,
                                       VXExplorerBarView2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent, static_cast<FoldedView::Host&>(*this))
{}

QtExplorerBarView2::~QtExplorerBarView2()
{
    endPeer();
    end();
}

// Helpers -----------------------------------------------------------------------------------------

FoldedView& QtExplorerBarView2::foldedView() const
{
    return const_cast<QtExplorerBarView2&>(*this);
}

} // namespace VOXI
