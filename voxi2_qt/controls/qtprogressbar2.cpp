#include "voxi2_qt/controls/qtprogressbar2.h"

#include "../kernel/qtignored.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QStyleOptionProgressBar>

namespace VOXI {

namespace {

using E = VXProgressBar2Emitters;
using P = QtProgressBar2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setMinimum, &P::doSetMinimum>(),
    TROV::row<&E::getMinimum, &P::doGetMinimum>(),
    TROV::row<&E::setMaximum, &P::doSetMaximum>(),
    TROV::row<&E::getMaximum, &P::doGetMaximum>(),
    TROV::row<&E::setValue, &P::doSetValue>(),
    TROV::row<&E::getValue, &P::doGetValue>(),
    TROV::row<&E::setTextVisible, &P::doSetTextVisible>(),
    TROV::row<&E::isTextVisible, &P::doIsTextVisible>(),
    TROV::row<&E::setCustomText, &P::doSetCustomText>(),
    TROV::row<&E::getCustomText, &P::doGetCustomText>());
// clang-format on

} // namespace

QtProgressBar2::QtProgressBar2(VXProgressBar2* object, VXProgressBar2Emitters* emitters,
                               QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{}

// Requests ----------------------------------------------------------------------------------------

void QtProgressBar2::doSetMinimum(int minimum) { setMinimum(minimum); }
int QtProgressBar2::doGetMinimum() { return minimum(); }
void QtProgressBar2::doSetMaximum(int maximum) { setMaximum(maximum); }
int QtProgressBar2::doGetMaximum() { return maximum(); }

void QtProgressBar2::doSetValue(int value)
{
    const bool isInRange = value >= minimum() && value <= maximum();
    if (isInRange || (minimum() == 0 && maximum() == 0))
        setValue(value);
    else
        ignored(*this, "it is out of the range");
}

int QtProgressBar2::doGetValue() { return value(); }
void QtProgressBar2::doSetTextVisible(bool visible) { setTextVisible(visible); }
bool QtProgressBar2::doIsTextVisible() { return isTextVisible(); }

void QtProgressBar2::doSetCustomText(const std::string& text)
{
    m_customText = text;
    update();
}

std::string QtProgressBar2::doGetCustomText() { return m_customText; }

// Reports -----------------------------------------------------------------------------------------

/// Qt paints with it, and remembers what it has painted last; it paints too seldom where others do.
void QtProgressBar2::initStyleOption(QStyleOptionProgressBar* option) const
{
    QProgressBar::initStyleOption(option);
    option->textAlignment = Qt::AlignCenter;
    if (!m_customText.empty() && option->textVisible)
        option->text = toQString(m_customText);
}

} // namespace VOXI
