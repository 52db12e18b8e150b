#include "voxi2_qt/controls/qttext2.h"

#include "qtaccessibletext.h"
#include "voxi2_qt/kernel/qtconvert.h"

namespace VOXI {

namespace {

using E = VXText2Emitters;
using P = QtText2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setText, &P::doSetText>(),
    TROV::row<&E::setTextU, &P::doSetTextU>(),
    TROV::row<&E::setAlignment, &P::doSetAlignment>(),
    TROV::row<&E::setWordWrap, &P::doSetWordWrap>(),
    TROV::row<&E::setBuddy, &P::doSetBuddy>(),
    TROV::row<&E::setSelectable, &P::doSetSelectable>(),
    TROV::row<&E::setRichText, &P::doSetRichText>(),
    TROV::row<&E::getText, &P::doGetText>(),
    TROV::row<&E::getTextU, &P::doGetTextU>(),
    TROV::row<&E::getAlignment, &P::doGetAlignment>(),
    TROV::row<&E::getWordWrap, &P::doGetWordWrap>(),
    TROV::row<&E::getBuddy, &P::doGetBuddy>(),
    TROV::row<&E::isSelectable, &P::doIsSelectable>(),
    TROV::row<&E::isRichText, &P::doIsRichText>(),
    TROV::row<&E::setElideMode, &P::doSetElideMode>(),
    TROV::row<&E::getElideMode, &P::doGetElideMode>());
// clang-format on

} // namespace

QtText2::QtText2(VXText2* object, VXText2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    QtAccessibleText::install();
    setTextFormat(Qt::PlainText);
}

// Requests ----------------------------------------------------------------------------------------

void QtText2::doSetText(const std::string& text) { change(toQString(text)); }
void QtText2::doSetTextU(const std::wstring& text) { change(toQString(text)); }
void QtText2::doSetAlignment(Alignment alignment) { setAlignment(VX2Qt(alignment)); }
void QtText2::doSetWordWrap(bool wrap) { setWordWrap(wrap); }

void QtText2::doSetBuddy(VXWidget2* buddy)
{
    if (!buddy)
        setBuddy(nullptr);
    else
        withWidgetOf(buddy, [this](QWidget* widget) { setBuddy(widget); });
}

void QtText2::doSetSelectable(bool selectable) { chooseInteraction(selectable); }

void QtText2::doSetRichText(bool rich)
{
    setTextFormat(rich ? Qt::RichText : Qt::PlainText);
    chooseInteraction(doIsSelectable());
}

std::string QtText2::doGetText() { return toStdString(text()); }
std::wstring QtText2::doGetTextU() { return toStdWString(text()); }
Alignment QtText2::doGetAlignment() { return Qt2VX(alignment()); }
bool QtText2::doGetWordWrap() { return wordWrap(); }
VXWidget2* QtText2::doGetBuddy() { return abstractObjectOf<VXWidget2>(buddy()); }

bool QtText2::doIsSelectable()
{
    return textInteractionFlags().testFlag(Qt::TextSelectableByMouse);
}

bool QtText2::doIsRichText() { return textFormat() == Qt::RichText; }
void QtText2::doSetElideMode(TextElideMode mode) { setElideMode(VX2Qt(mode)); }
TextElideMode QtText2::doGetElideMode() { return Qt2VX(elideMode()); }

// Reports -----------------------------------------------------------------------------------------

void QtText2::connectSignals()
{
    connect(this, &QLabel::linkActivated, this, &QtText2::slotLinkActivated);
}

void QtText2::slotLinkActivated(const QString& target)
{
    report(&E::linkActivated, toStdWString(target));
}

// Helpers -----------------------------------------------------------------------------------------

void QtText2::change(const QString& text)
{
    const QString former = QtAccessibleText::heard(*this);
    setText(text);
    if (doIsRichText())
        chooseInteraction(doIsSelectable());
    QtAccessibleText::tellChange(*this, former);
}

} // namespace VOXI
