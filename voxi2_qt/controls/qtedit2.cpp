#include "voxi2_qt/controls/qtedit2.h"

#include "editparts.h"
#include "textposition.h"
#include "voxi2_qt/kernel/qtaction2.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStringListModel>

namespace VOXI {

namespace {

using E = VXEdit2Emitters;
using P = QtEdit2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setEcho, &P::doSetEcho>(),
    TROV::row<&E::getEcho, &P::doGetEcho>(),
    TROV::row<&E::setAlignment, &P::doSetAlignment>(),
    TROV::row<&E::getAlignment, &P::doGetAlignment>(),
    TROV::row<&E::setFlat, &P::doSetFlat>(),
    TROV::row<&E::isFlat, &P::doIsFlat>(),
    TROV::row<&E::setClearButtonVisible, &P::doSetClearButtonVisible>(),
    TROV::row<&E::isClearButtonVisible, &P::doIsClearButtonVisible>(),
    TROV::row<&E::addSideAction, &P::doAddSideAction>(),
    TROV::row<&E::removeSideAction, &P::doRemoveSideAction>(),
    TROV::row<&E::setMaximumLength, &P::doSetMaximumLength>(),
    TROV::row<&E::getMaximumLength, &P::doGetMaximumLength>(),
    TROV::row<&E::setInputMask, &P::doSetInputMask>(),
    TROV::row<&E::getInputMask, &P::doGetInputMask>(),
    TROV::row<&E::setValidator, &P::doSetValidator>(),
    TROV::row<&E::getValidator, &P::doGetValidator>(),
    TROV::row<&E::isAcceptable, &P::doIsAcceptable>(),
    TROV::row<&E::setCompletion, &P::doSetCompletion>(),
    TROV::row<&E::getCompletion, &P::doGetCompletion>(),
    asUserRow<&E::pressReturn, &P::doimPressReturn>());
// clang-format on

static_assert(int(TextEcho::None) == QLineEdit::NoEcho
              && int(TextEcho::Password) == QLineEdit::Password
              && int(TextEcho::PasswordOnLeave) == QLineEdit::PasswordEchoOnEdit);

} // namespace

QtEdit2::QtEdit2(VXEdit2* object, VXEdit2Emitters* emitters, QWidget* parent)
    : QtAbstractEdit2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtEdit2::doSetCursorPosition(int position)
{
    const QtProgramScope scope;
    deselect();
    setCursorPosition(fromWidePosition(text(), position));
}

int QtEdit2::doGetCursorPosition() { return toWidePosition(text(), cursorPosition()); }

void QtEdit2::doSetSelection(TextRange range)
{
    const QtProgramScope scope;
    const QString whole = text();
    const int start = fromWidePosition(whole, range.start);
    const int end = fromWidePosition(whole, qint64(range.start) + range.length);
    setSelection(start, end - start);
}

TextRange QtEdit2::doGetSelection()
{
    const QString whole = text();
    if (!hasSelectedText())
        return {toWidePosition(whole, cursorPosition()), 0};
    const int start = toWidePosition(whole, selectionStart());
    return {start, toWidePosition(whole, selectionEnd()) - start};
}

std::wstring QtEdit2::doGetSelectedText() { return toStdWString(selectedText()); }

void QtEdit2::doInsert(const std::wstring& text)
{
    const QtProgramScope scope;
    if (!isReadOnly())
        insert(toQString(text));
}

bool QtEdit2::doIsUndoAvailable() { return isUndoAvailable(); }
bool QtEdit2::doIsRedoAvailable() { return isRedoAvailable(); }

void QtEdit2::doSetEcho(TextEcho echo)
{
    const bool isKnown = echo > TextEcho::Normal && echo <= TextEcho::PasswordOnLeave;
    setEchoMode(isKnown ? static_cast<EchoMode>(echo) : Normal);
}

TextEcho QtEdit2::doGetEcho() { return static_cast<TextEcho>(echoMode()); }
void QtEdit2::doSetAlignment(Alignment alignment) { setAlignment(VX2Qt(alignment)); }
Alignment QtEdit2::doGetAlignment() { return Qt2VX(alignment()); }
void QtEdit2::doSetFlat(bool flat) { setFrame(!flat); }
bool QtEdit2::doIsFlat() { return !hasFrame(); }
void QtEdit2::doSetClearButtonVisible(bool visible) { setClearButtonEnabled(visible); }
bool QtEdit2::doIsClearButtonVisible() { return isClearButtonEnabled(); }

void QtEdit2::doAddSideAction(VXAction2* action, EditSide side)
{
    withPeerOf<QtAction2>(action, [&](QtAction2* peer) {
        if (peer)
            SideAction::add(*this, *peer,
                            side == EditSide::Leading ? LeadingPosition : TrailingPosition);
    });
}

void QtEdit2::doRemoveSideAction(VXAction2* action)
{
    withPeerOf<QtAction2>(action, [&](QtAction2* peer) {
        if (peer)
            SideAction::remove(*this, *peer);
    });
}

/// Qt sets the text anew for it, which forgets what could be undone. Pasting more than fits takes
/// it a time that grows with the square of what fits.
void QtEdit2::doSetMaximumLength(int length)
{
    const QtProgramScope scope;
    const int most = length < 0 ? VXEdit2::GreatestLength : qMin(length, VXEdit2::GreatestLength);
    if (most != maxLength())
        setMaxLength(most);
}

int QtEdit2::doGetMaximumLength()
{
    return maxLength() == VXEdit2::GreatestLength ? -1 : maxLength();
}

void QtEdit2::doSetInputMask(const std::wstring& mask)
{
    const QtProgramScope scope;
    setInputMask(toQString(mask));
}

std::wstring QtEdit2::doGetInputMask() { return toStdWString(inputMask()); }

void QtEdit2::doSetValidator(const TextValidator& validator)
{
    m_validator = validator;
    // The one that was there may be asking the application at this moment.
    const auto* const former = this->validator();
    setValidator(makeValidator(*this, validator));
    if (former)
        const_cast<QValidator*>(former)->deleteLater();
}

TextValidator QtEdit2::doGetValidator() { return m_validator; }
bool QtEdit2::doIsAcceptable() { return hasAcceptableInput(); }

/// There is one completer for good: it may be the one that calls.
void QtEdit2::doSetCompletion(const TextCompletion& completion)
{
    m_completion = completion;
    if (!completer()) {
        if (completion.texts.empty())
            return;
        auto* const made = new QCompleter(this);
        made->setModel(new QStringListModel(made));
        setCompleter(made);
    }
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(completion.texts.size()));
    for (const std::wstring& text : completion.texts)
        texts.push_back(toQString(text));
    completer()->setFilterMode(completion.anywhere ? Qt::MatchContains : Qt::MatchStartsWith);
    completer()->setCaseSensitivity(completion.caseSensitive ? Qt::CaseSensitive
                                                             : Qt::CaseInsensitive);
    static_cast<QStringListModel*>(completer()->model())->setStringList(texts);
}

TextCompletion QtEdit2::doGetCompletion() { return m_completion; }

void QtEdit2::doimPressReturn()
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QCoreApplication::sendEvent(this, &press);
}

// Reports -----------------------------------------------------------------------------------------

/// Signals are not blocked for what the program does, as in other kinds: the clear button listens
/// to them.
void QtEdit2::connectSignals()
{
    connect(this, &QLineEdit::textChanged, this, &QtEdit2::slotTextChanged);
    connect(this, &QLineEdit::returnPressed, this, &QtEdit2::slotReturnPressed);
    connect(this, &QLineEdit::editingFinished, this, &QtEdit2::slotEditingFinished);
    connect(this, &QLineEdit::cursorPositionChanged, this, &QtEdit2::slotCursorPositionChanged);
    connect(this, &QLineEdit::selectionChanged, this, &QtEdit2::slotSelectionChanged);
}

/// `textEdited` leaves out what is chosen from the suggestions.
void QtEdit2::slotTextChanged(const QString& text)
{
    if (!QtProgramScope::isActive())
        report(&E::textEdited, toStdWString(text));
}

void QtEdit2::slotReturnPressed() { report(&E::returnPressed); }

void QtEdit2::slotEditingFinished()
{
    if (!QtProgramScope::isActive())
        report(&E::editingFinished);
}

void QtEdit2::slotCursorPositionChanged() { reportCursor(); }
void QtEdit2::slotSelectionChanged() { reportSelection(); }

// Helpers -----------------------------------------------------------------------------------------

void QtEdit2::change(const QString& text)
{
    const QtProgramScope scope;
    if (text != this->text())
        setText(text);
}

QString QtEdit2::wholeText() const { return text(); }

} // namespace VOXI
