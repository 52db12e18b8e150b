#pragma once

#include "voxi2_qt/controls/qtrange2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"

namespace VOXI {

/// Joins `QtRange2` with a Qt class that has a value, a range and a single step.
template <class Object, class Emitters, class Q>
class QtRange2Shim : public QtWidget2Shim<Object, Emitters, QtRange2, Q>
{
public:
    void doSetValue(int value) override
    {
        const QtSignalBlocker blocker(this);
        this->setValue(value);
    }
    int doGetValue() override { return this->value(); }

    void doSetRange(VXPoint<int> range) override
    {
        const QtSignalBlocker blocker(this);
        this->setRange(range.x, range.y);
    }
    VXPoint<int> doGetRange() override { return {this->minimum(), this->maximum()}; }

    void doSetSingleStep(int step) override { this->setSingleStep(step); }
    int doGetSingleStep() override { return this->singleStep(); }

protected:
    using QtWidget2Shim<Object, Emitters, QtRange2, Q>::QtWidget2Shim;
};

} // namespace VOXI
