#include "voxi2_qt/controls/qtspinbox2.h"

#include "voxi2_qt/kernel/qtasuser.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXSpinBox2Emitters;
using P = QtSpinBox2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setEditable, &P::doSetEditable>(),
    TROV::row<&E::isEditable, &P::doIsEditable>(),
    TROV::row<&E::stepBy, &P::doStepBy>(),
    asUserRow<&E::spinUp, &P::doimSpinUp>(),
    asUserRow<&E::spinDown, &P::doimSpinDown>(),
    asUserRow<&E::setValueAsUser, &P::doimSetValue>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::setWrapping, &P::doSetWrapping>(),
    TROV::row<&E::isWrapping, &P::doIsWrapping>(),
    TROV::row<&E::setPrefix, &P::doSetPrefix>(),
    TROV::row<&E::setPrefixU, &P::doSetPrefixU>(),
    TROV::row<&E::getPrefix, &P::doGetPrefix>(),
    TROV::row<&E::getPrefixU, &P::doGetPrefixU>(),
    TROV::row<&E::setSuffix, &P::doSetSuffix>(),
    TROV::row<&E::setSuffixU, &P::doSetSuffixU>(),
    TROV::row<&E::getSuffix, &P::doGetSuffix>(),
    TROV::row<&E::getSuffixU, &P::doGetSuffixU>());
// clang-format on

} // namespace

QtSpinBox2::QtSpinBox2(VXSpinBox2* object, VXSpinBox2Emitters* emitters, QWidget* parent)
    : QtRange2Shim(object, emitters, s_requests, parent)
{
    setKeyboardTracking(false);
}

// Requests ----------------------------------------------------------------------------------------

void QtSpinBox2::doSetEditable(bool editable) { setReadOnly(!editable); }
bool QtSpinBox2::doIsEditable() { return !isReadOnly(); }

void QtSpinBox2::doStepBy(int steps)
{
    const QtSignalBlocker blocker(this);
    stepBy(steps);
}

void QtSpinBox2::doimSpinUp() { spin(1); }
void QtSpinBox2::doimSpinDown() { spin(-1); }
void QtSpinBox2::doimSetValue(int value) { setValue(value); }
std::string QtSpinBox2::doGetText() { return toStdString(text()); }
std::wstring QtSpinBox2::doGetTextU() { return toStdWString(text()); }
void QtSpinBox2::doSetWrapping(bool wrapping) { setWrapping(wrapping); }
bool QtSpinBox2::doIsWrapping() { return wrapping(); }
void QtSpinBox2::doSetPrefix(const std::string& prefix) { setPrefix(toQString(prefix)); }
void QtSpinBox2::doSetPrefixU(const std::wstring& prefix) { setPrefix(toQString(prefix)); }
std::string QtSpinBox2::doGetPrefix() { return toStdString(prefix()); }
std::wstring QtSpinBox2::doGetPrefixU() { return toStdWString(prefix()); }
void QtSpinBox2::doSetSuffix(const std::string& suffix) { setSuffix(toQString(suffix)); }
void QtSpinBox2::doSetSuffixU(const std::wstring& suffix) { setSuffix(toQString(suffix)); }
std::string QtSpinBox2::doGetSuffix() { return toStdString(suffix()); }
std::wstring QtSpinBox2::doGetSuffixU() { return toStdWString(suffix()); }

// Reports -----------------------------------------------------------------------------------------

void QtSpinBox2::connectSignals()
{
    connect(this, &QSpinBox::valueChanged, this, &QtSpinBox2::slotValueChanged);
    connect(lineEdit(), &QLineEdit::textEdited, this, &QtSpinBox2::slotTextChanged);
}

void QtSpinBox2::slotValueChanged(int value) { report(&E::valueChanged, value); }
void QtSpinBox2::slotTextChanged() { report(&E::textChanged); }

/// Qt's menu, but nothing waits in here until the user is done with it.
void QtSpinBox2::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = lineEdit()->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    QAction* up = menu->addAction(QAbstractSpinBox::tr("&Step up"), this, &QSpinBox::stepUp);
    up->setEnabled(stepEnabled().testFlag(StepUpEnabled));
    QAction* down = menu->addAction(QAbstractSpinBox::tr("Step &down"), this, &QSpinBox::stepDown);
    down->setEnabled(stepEnabled().testFlag(StepDownEnabled));
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    menu->popup(byMouse ? event->globalPos() : mapToGlobal(rect().center()));
    event->accept();
}

// Helpers -----------------------------------------------------------------------------------------

void QtSpinBox2::spin(int direction)
{
    const qint64 next = qint64(value()) + direction * qint64(singleStep());
    setValue(static_cast<int>(std::clamp<qint64>(next, minimum(), maximum())));
}

} // namespace VOXI
