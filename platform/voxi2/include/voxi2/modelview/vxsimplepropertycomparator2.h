#pragma once

#include "voxi2/voxi2_export.h"

#include <memory>

namespace VOXI {

class VXSimpleProperty2;

/// The order in which a property browser shows what stands side by side.
class VOXI2_EXPORT VXSimplePropertyComparator2
{
public:
    VXSimplePropertyComparator2() = default;
    VXSimplePropertyComparator2(const VXSimplePropertyComparator2&) = delete;
    VXSimplePropertyComparator2& operator=(const VXSimplePropertyComparator2&) = delete;
    virtual ~VXSimplePropertyComparator2();

    /// Whether `a` stands before `b`. Called on the toolkit's thread under the object lock; it may
    /// end anything. What it throws goes to the thread's exception handler, and the order stays.
    /// One that contradicts itself gives some order.
    virtual bool isLess(const VXSimpleProperty2& a, const VXSimpleProperty2& b) const = 0;

    /// By the names as they are shown, upper and lower case being different.
    static std::shared_ptr<VXSimplePropertyComparator2> byName();
};

} // namespace VOXI
