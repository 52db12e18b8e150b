#include "voxi2_qt/controls/qtslider2.h"

#include <QStyleOptionSlider>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXSlider2Emitters;
using P = QtSlider2;
using Ticks = VXSlider2::eTickPosition; // Qt has one of its name

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setPageStep, &P::doSetPageStep>(),
    TROV::row<&E::getPageStep, &P::doGetPageStep>(),
    TROV::row<&E::setOrientation, &P::doSetOrientation>(),
    TROV::row<&E::getOrientation, &P::doGetOrientation>(),
    TROV::row<&E::setTickInterval, &P::doSetTickInterval>(),
    TROV::row<&E::getTickInterval, &P::doGetTickInterval>(),
    TROV::row<&E::setTickPosition, &P::doSetTickPosition>(),
    TROV::row<&E::getTickPosition, &P::doGetTickPosition>());
// clang-format on

} // namespace

QtSlider2::QtSlider2(VXSlider2* object, VXSlider2Emitters* emitters, QWidget* parent)
    : QtRange2Shim(object, emitters, s_requests, parent)
{
    setOrientation(Qt::Horizontal);
    setTracking(false);
}

// Requests ----------------------------------------------------------------------------------------

void QtSlider2::doSetPageStep(int step) { setPageStep(step); }
int QtSlider2::doGetPageStep() { return pageStep(); }
void QtSlider2::doSetOrientation(Orientation orientation) { setOrientation(VX2Qt(orientation)); }
Orientation QtSlider2::doGetOrientation() { return Qt2VX(orientation()); }
void QtSlider2::doSetTickInterval(int interval) { setTickInterval(interval); }
int QtSlider2::doGetTickInterval() { return tickInterval(); }

void QtSlider2::doSetTickPosition(VXSlider2::eTickPosition position)
{
    setTickPosition(SliderVX2Qt(position));
}

VXSlider2::eTickPosition QtSlider2::doGetTickPosition() { return SliderQt2VX(tickPosition()); }

// Reports -----------------------------------------------------------------------------------------

void QtSlider2::connectSignals()
{
    connect(this, &QSlider::valueChanged, this, &QtSlider2::slotSliderValueChanged);
}

void QtSlider2::slotSliderValueChanged(int value) { report(&E::valueChanged, value); }

// Helpers -----------------------------------------------------------------------------------------

QSlider::TickPosition QtSlider2::SliderVX2Qt(VXSlider2::eTickPosition position) noexcept
{
    switch (position) {
    case Ticks::BothSides:
        return TicksBothSides;
    case Ticks::Above:
    case Ticks::Left:
        return TicksAbove;
    case Ticks::Below:
    case Ticks::Right:
        return TicksBelow;
    case Ticks::None:
        break;
    }
    return NoTicks;
}

VXSlider2::eTickPosition QtSlider2::SliderQt2VX(QSlider::TickPosition position) noexcept
{
    switch (position) {
    case TicksBothSides:
        return Ticks::BothSides;
    case TicksAbove:
        return Ticks::Above;
    case TicksBelow:
        return Ticks::Below;
    case NoTicks:
        break;
    }
    return Ticks::None;
}

/// Styles draw tick after tick from the minimum on. A range may have billions, so no more than one
/// at a pixel are drawn; and it may end where the sums leave int, so it begins at 0 for them.
void QtSlider2::initStyleOption(QStyleOptionSlider* option) const
{
    QSlider::initStyleOption(option);
    if (tickPosition() == NoTicks)
        return;
    const qint64 values = qint64(maximum()) - minimum();
    const qint64 unit = (values >> 28) + 1;
    const auto scaled = [unit](qint64 value) { return static_cast<int>(value / unit); };
    option->sliderPosition = scaled(qint64(option->sliderPosition) - minimum());
    option->sliderValue = scaled(qint64(option->sliderValue) - minimum());
    option->minimum = 0;
    option->maximum = scaled(values);
    const int length = std::max(1, orientation() == Qt::Horizontal ? width() : height());
    const qint64 least = values / length;
    const int interval =
        tickInterval() > 0 ? tickInterval() : pageStep(); // what styles fall back on
    if (unit > 1 || interval < least)
        option->tickInterval = scaled(std::max<qint64>(interval, least));
}

} // namespace VOXI
