#include "voxi2_qt/controls/qtmenubar2.h"

#include "../kernel/qtignored.h"
#include "voxi2_qt/controls/qtmenu2.h"
#include "voxi2_qt/kernel/qttext.h"

namespace VOXI {

namespace {

using E = VXMenuBar2Emitters;
using P = QtMenuBar2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::glAddMenu, &P::doGlAddMenu>(),
    TROV::row<&E::addMenuU, &P::doAddMenuU>(),
    TROV::row<&E::removeMenu, &P::doRemoveMenu>(),
    TROV::row<&E::clear, &P::doClear>());
// clang-format on

} // namespace

QtMenuBar2::QtMenuBar2(VXMenuBar2* object, VXMenuBar2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtMenuBar2::doGlAddMenu(const std::string& title, VXMenu2* menu)
{
    addTitled(toQStringUpToNul(title), menu);
}

void QtMenuBar2::doAddMenuU(const std::wstring& title, VXMenu2* menu)
{
    addTitled(toQString(title), menu);
}

void QtMenuBar2::doRemoveMenu(VXMenu2* menu)
{
    withPeerOf<QtMenu2>(menu, [this](QtMenu2* peer) {
        removeActionFrom(*this, {this}, peer ? peer->menuAction() : nullptr);
    });
}

void QtMenuBar2::doClear() { clear(); }

// Helpers -----------------------------------------------------------------------------------------

void QtMenuBar2::addTitled(const QString& title, VXMenu2* menu)
{
    withPeerOf<QtMenu2>(menu, [&](QtMenu2* peer) {
        if (!peer)
            return;
        peer->setTitle(title);
        addMenu(peer);
    });
}

} // namespace VOXI
