#include "voxi2_qt/controls/qtabstractedit2.h"

#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QWidget>

namespace VOXI {

namespace {

using E = VXAbstractEdit2Emitters;
using P = QtAbstractEdit2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setText, &P::doSetText>(),
    TROV::row<&E::setTextU, &P::doSetTextU>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::setPlaceholder, &P::doSetPlaceholder>(),
    TROV::row<&E::setPlaceholderU, &P::doSetPlaceholderU>(),
    TROV::row<&E::getPlaceholder, &P::doGetPlaceholder>(),
    TROV::row<&E::getPlaceholderU, &P::doGetPlaceholderU>(),
    TROV::row<&E::setReadOnly, &P::doSetReadOnly>(),
    TROV::row<&E::isReadOnly, &P::doIsReadOnly>(),
    TROV::row<&E::setCursorPosition, &P::doSetCursorPosition>(),
    TROV::row<&E::getCursorPosition, &P::doGetCursorPosition>(),
    TROV::row<&E::setSelection, &P::doSetSelection>(),
    TROV::row<&E::getSelection, &P::doGetSelection>(),
    TROV::row<&E::getSelectedText, &P::doGetSelectedText>(),
    TROV::row<&E::selectAll, &P::doSelectAll>(),
    TROV::row<&E::insert, &P::doInsert>(),
    TROV::row<&E::undo, &P::doUndo>(),
    TROV::row<&E::redo, &P::doRedo>(),
    TROV::row<&E::isUndoAvailable, &P::doIsUndoAvailable>(),
    TROV::row<&E::isRedoAvailable, &P::doIsRedoAvailable>(),
    TROV::row<&E::cut, &P::doCut>(),
    TROV::row<&E::copy, &P::doCopy>(),
    TROV::row<&E::paste, &P::doPaste>(),
    asUserRow<&E::type, &P::doimType>());
// clang-format on

} // namespace

QtAbstractEdit2::QtAbstractEdit2(VXAbstractEdit2* edit, VXAbstractEdit2Emitters* emitters)
    : QtPeerLevel(edit, emitters, s_requests)
{}

// Requests ----------------------------------------------------------------------------------------

void QtAbstractEdit2::doSetText(const std::string& text) { change(toQString(text)); }
void QtAbstractEdit2::doSetTextU(const std::wstring& text) { change(toQString(text)); }

std::string QtAbstractEdit2::doGetText()
{
    settle();
    return toStdString(wholeText());
}

std::wstring QtAbstractEdit2::doGetTextU()
{
    settle();
    return toStdWString(wholeText());
}

void QtAbstractEdit2::doSetPlaceholder(const std::string& text)
{
    changePlaceholder(toQString(text));
}

void QtAbstractEdit2::doSetPlaceholderU(const std::wstring& text)
{
    changePlaceholder(toQString(text));
}

std::string QtAbstractEdit2::doGetPlaceholder() { return toStdString(shownPlaceholder()); }
std::wstring QtAbstractEdit2::doGetPlaceholderU() { return toStdWString(shownPlaceholder()); }

void QtAbstractEdit2::doimType(const std::wstring& text)
{
    if (!asQWidget()->isEnabled() || doIsReadOnly())
        return;
    settle();
    QInputMethodEvent typed;
    typed.setCommitString(toQString(text));
    QCoreApplication::sendEvent(asQWidget(), &typed);
}

// Reports -----------------------------------------------------------------------------------------

void QtAbstractEdit2::reportCursor()
{
    if (!QtProgramScope::isActive())
        report(&E::cursorMoved, doGetCursorPosition());
}

void QtAbstractEdit2::reportSelection()
{
    if (!QtProgramScope::isActive())
        report(&E::selectionChanged);
}

} // namespace VOXI
