#pragma once

#include <QAccessible>

namespace VOXI {

/// While it lives, Qt asks a function for what assistive programs are told of an object. To be a
/// static object, so that it is not asked for longer than this library is loaded.
template <QAccessible::InterfaceFactory Create>
class QtAccessFactory
{
public:
    QtAccessFactory() { QAccessible::installFactory(Create); }
    ~QtAccessFactory() { QAccessible::removeFactory(Create); }
    QtAccessFactory(const QtAccessFactory&) = delete;
    QtAccessFactory& operator=(const QtAccessFactory&) = delete;
};

} // namespace VOXI
