#include "voxi2/kernel/vxclock2.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<VXClock2*> s_replacement = nullptr;

} // namespace

VXClock2::Timer::~Timer() = default;
VXClock2::~VXClock2() = default;
void VXClock2::replace(VXClock2* clock) { s_replacement = clock; }
VXClock2* VXClock2::replacement() { return s_replacement; }

} // namespace VOXI
