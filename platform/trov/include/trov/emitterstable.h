#pragma once

#include "trov/binding.h"
#include "trov/event.h"
#include "trov/request.h"
#include "trov/tableemitter.h"
#include "trov/trov_export.h"

namespace TROV {

/// An emitters table: first the pointer to the table of the base class, then the requests in their
/// fixed order, then `RequestsEnd`, then the events. Every emitter is declared `name{*this}`.
template <class Base>
struct EmittersTable : detail::TableHead
{
    /// How many tables stand above it.
    static constexpr int Level = Base::Level + 1;

    explicit EmittersTable(Base& base) noexcept : TableHead(base.m_binding, &base) {}
    ~EmittersTable() { m_binding->removeTable(m_base); }

    /// The table of the base class.
    Base* base() const noexcept { return static_cast<Base*>(m_base); }
};

/// The table at the root of an object's tables; it owns the object's binding.
template <>
struct TROV_EXPORT EmittersTable<void> : detail::TableHead
{
    static constexpr int Level = 0;

    EmittersTable() : TableHead(detail::Binding::allocate(), nullptr) {}
    ~EmittersTable() { detail::Binding::free(m_binding); }
};

/// Marks the end of the requests of a table; what follows are events.
class RequestsEnd : public detail::TableEmitter
{
public:
    explicit RequestsEnd(const detail::TableHead& head) noexcept : TableEmitter(head) {}
};

} // namespace TROV
