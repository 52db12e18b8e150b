#pragma once

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"

namespace VOXI {

/// What the peers of slider, dial and spin box are asked alike. The Qt classes have no base in
/// common that has it.
template <class Object, class Emitters, class Q>
class QtRange2Shim : public QtWidget2Shim<Object, Emitters, QtWidget2, Q>
{
public:
    virtual void doSetValue(int value)
    {
        const QtSignalBlocker blocker(this);
        this->setValue(value);
    }
    virtual int doGetValue() { return this->value(); }

    virtual void doSetRange(VXPoint<int> range)
    {
        const QtSignalBlocker blocker(this);
        this->setRange(range.x, range.y);
    }
    virtual VXPoint<int> doGetRange() { return {this->minimum(), this->maximum()}; }

    virtual void doSetSingleStep(int step) { this->setSingleStep(step); }
    virtual int doGetSingleStep() { return this->singleStep(); }

protected:
    using QtWidget2Shim<Object, Emitters, QtWidget2, Q>::QtWidget2Shim;
};

} // namespace VOXI
