#include "voxi2_qt/controls/qtabstractbutton2.h"

#include "qtaccessiblebutton.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

#include <QAbstractButton>
#include <QIcon>

#include <list>

namespace VOXI {

namespace {

using E = VXAbstractButton2Emitters;
using P = QtAbstractButton2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setCheckable, &P::doSetCheckable>(),
    TROV::row<&E::setChecked, &P::doSetChecked>(),
    TROV::row<&E::setExclusive, &P::doSetExclusive>(),
    TROV::row<&E::setIcon, &P::doSetIcon>(),
    TROV::row<&E::setLabel, &P::doSetLabel>(),
    TROV::row<&E::setLabelU, &P::doSetLabelU>(),
    TROV::row<&E::isCheckable, &P::doIsCheckable>(),
    TROV::row<&E::isChecked, &P::doIsChecked>(),
    TROV::row<&E::isExclusive, &P::doIsExclusive>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::getLabel, &P::doGetLabel>(),
    asUserRow<&E::click, &P::doimClick>(),
    asUserRow<&E::toggle, &P::doimToggle>(),
    TROV::row<&E::getLabelU, &P::doGetLabelU>(),
    TROV::row<&E::setIconSize, &P::doSetIconSize>(),
    TROV::row<&E::getIconSize, &P::doGetIconSize>());
// clang-format on

} // namespace

QtAbstractButton2::QtAbstractButton2(VXAbstractButton2* button, VXAbstractButton2Emitters* emitters)
    : QtPeerLevel(button, emitters, s_requests)
{
    QtAccessibleButton::install();
}

// Requests ----------------------------------------------------------------------------------------

void QtAbstractButton2::doSetCheckable(bool checkable) { button()->setCheckable(checkable); }

void QtAbstractButton2::doSetChecked(bool checked)
{
    quietly([&] { button()->setChecked(checked); });
}

void QtAbstractButton2::doSetExclusive(bool exclusive) { button()->setAutoExclusive(exclusive); }

void QtAbstractButton2::doSetIcon(const Icon& icon)
{
    keepIcon(icon);
    button()->setIcon(VX2Qt(icon));
}

void QtAbstractButton2::doSetLabel(const std::string& label)
{
    button()->setText(toQString(label));
}

void QtAbstractButton2::doSetLabelU(const std::wstring& label)
{
    button()->setText(toQString(label));
}

bool QtAbstractButton2::doIsCheckable() { return button()->isCheckable(); }
bool QtAbstractButton2::doIsChecked() { return button()->isChecked(); }
bool QtAbstractButton2::doIsExclusive() { return button()->autoExclusive(); }
Icon QtAbstractButton2::doGetIcon() { return keptIcon(); }
std::string QtAbstractButton2::doGetLabel() { return toStdString(button()->text()); }
void QtAbstractButton2::doimClick() { button()->click(); }
void QtAbstractButton2::doimToggle() { button()->toggle(); }
std::wstring QtAbstractButton2::doGetLabelU() { return toStdWString(button()->text()); }
void QtAbstractButton2::doSetIconSize(Size<int> size) { button()->setIconSize(toQIconSize(size)); }
Size<int> QtAbstractButton2::doGetIconSize() { return Qt2VX(button()->iconSize()); }

// Reports -----------------------------------------------------------------------------------------

void QtAbstractButton2::connectSignals()
{
    QObject::connect(button(), SIGNAL(clicked()), button(), SLOT(slotClicked()));
    QObject::connect(button(), SIGNAL(toggled(bool)), button(), SLOT(slotToggled(bool)));
}

void QtAbstractButton2::reportClick() { report(&E::clicked); }
void QtAbstractButton2::reportToggle(bool checked) { report(&E::toggled, checked); }

// Helpers -----------------------------------------------------------------------------------------

QAbstractButton* QtAbstractButton2::button() const noexcept
{
    return static_cast<QAbstractButton*>(asQWidget());
}

void QtAbstractButton2::quietly(const std::function<void()>& change)
{
    std::list<QtSignalBlocker> blockers;
    blockers.emplace_back(button());
    const QWidget* parent = button()->parentWidget();
    if (parent && button()->autoExclusive()) {
        // Qt looks for them in the same way, deep down.
        for (QAbstractButton* other : parent->findChildren<QAbstractButton*>()) {
            if (other != button() && other->autoExclusive() && other->isChecked() && peerOf(other))
                blockers.emplace_back(other);
        }
    }
    change();
}

} // namespace VOXI
