#pragma once

#include "trov/packet.h"
#include "trov/request.h"
#include "trov/tableemitter.h"
#include "trov/thread.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <typeinfo>

namespace TROV {

namespace detail {

template <class Member>
struct FieldTraits;

template <class Table, class R, class... A>
struct FieldTraits<Request<R(A...)> Table::*>
{
    using Emitters = Table;

    template <class Class, class Result, class... B>
    static constexpr bool matches(Result (Class::*)(B...))
    {
        return std::is_same_v<
                   R,
                   Result> && std::is_same_v<std::tuple<A...>, std::tuple<std::remove_cvref_t<B>...>>;
    }
    template <class Class, class Result, class... B>
    static constexpr bool matches(Result (Class::*)(B...) const)
    {
        return matches(static_cast<Result (Class::*)(B...)>(nullptr));
    }

    template <auto Operation, class Peer, class Scope>
    static R call(Listener* peer, Param<A>... arguments)
    {
        if constexpr (!std::is_base_of_v<EventErrors, Scope>) {
            [[maybe_unused]] const Scope scope{};
            return (static_cast<Peer*>(peer)->*Operation)(arguments...);
        } else {
            static_assert(std::is_void_v<R>);
            Scope scope;
            (static_cast<Peer*>(peer)->*Operation)(arguments...);
            scope.rethrow();
        }
    }

    static const std::type_info& signature() noexcept { return typeid(R(A...)); }
};

template <class Member>
struct OperationTraits;
template <class Class, class R, class... A>
struct OperationTraits<R (Class::*)(A...)>
{
    using Peer = Class;
};
template <class Class, class R, class... A>
struct OperationTraits<R (Class::*)(A...) const>
{
    using Peer = Class;
};

/// Which request a row is for.
struct RowRequest
{
    std::size_t (*m_place)(const TableHead& emitters);
    const char* m_name; ///< the compiler's, of the function that made the row
};

struct NoScope
{};

/// What a peer class wants around all its operations, if it says so.
template <class Peer>
auto servingScope()
{
    if constexpr (requires { typename Peer::ServingScope; })
        return std::type_identity<typename Peer::ServingScope>();
    else
        return std::type_identity<NoScope>();
}
template <auto Function>
using ServingScope =
    typename decltype(servingScope<typename OperationTraits<decltype(Function)>::Peer>())::type;

/// One row of an operations table: a request and the operation that serves it.
template <class Emitters>
struct Row
{
    Operation m_operation;
    RowRequest m_request;
};

template <auto Field, auto Function, class Scope>
Row<typename FieldTraits<decltype(Field)>::Emitters> makeRow()
{
    using Traits = FieldTraits<decltype(Field)>;
    using Peer = typename OperationTraits<decltype(Function)>::Peer;
    using Emitters = typename Traits::Emitters;
    static_assert(Traits::matches(decltype(Function)(nullptr)),
                  "the operation's signature must be the request's");
    return {Operation{reinterpret_cast<void (*)()>(&Traits::template call<Function, Peer, Scope>),
                      &Traits::signature()},
            {[](const TableHead& table) {
                 return (static_cast<const Emitters&>(table).*Field).place();
             },
             __PRETTY_FUNCTION__}};
}

/// Ends the program with a message unless the rows are the requests of the table, in order.
TROV_EXPORT void checkRows(const TableHead& table, const std::type_info& emitters,
                           const RowRequest* rows, std::size_t count, std::size_t requests);

} // namespace detail

/// A row of an operations table: `TROV::row<&VXThing2Emitters::setSize, &QtThing2::doSetSize>()`.
/// The operation is called virtually where it is virtual. A `Scope` stands around each call, one of
/// the peer class's own `ServingScope` if there is none other; a kind of `EventErrors` rethrows at
/// its end.
template <auto Field, auto Function, class Scope = detail::ServingScope<Function>>
auto row()
{
    return detail::makeRow<Field, Function, Scope>();
}

/// The operations of one peer class, in the order of the requests of one emitters table. Made once
/// per class; every peer of the class refers to it.
template <class Emitters, std::size_t Count>
class Operations
{
public:
    template <class... Rows>
    explicit Operations(Rows... rows)
        : m_table{{Count}, {rows.m_operation...}},
          m_requests{rows.m_request...}
    {}

    /// Ends the program with a message if the rows are not exactly the requests of `table`, each
    /// once and in order: a request bound to nothing, or to its neighbour's operation, must not
    /// survive the first test run.
    void check(const Emitters& table) const
    {
        if (m_isChecked.load(std::memory_order_relaxed))
            return;
        detail::checkRows(table, typeid(Emitters), m_requests, Count, table.requestsEnd.place());
        m_isChecked.store(true, std::memory_order_relaxed);
    }

    const detail::OperationsHead* head() const noexcept { return &m_table.m_head; }

private:
    struct Table
    {
        detail::OperationsHead m_head;
        detail::Operation m_rows[Count ? Count : 1];
    };
    static_assert(offsetof(Table, m_rows) == sizeof(detail::OperationsHead));
    static_assert(sizeof(Emitters) < sizeof(detail::TableHead) + 0xff,
                  "an emitter's place in its table is one byte");

    Table m_table;
    detail::RowRequest m_requests[Count ? Count : 1];
    mutable std::atomic<bool> m_isChecked{false};
};

/// Makes the operations table of a peer class from its rows.
template <class Emitters, class... Rows>
Operations<Emitters, sizeof...(Rows) + 1> operations(detail::Row<Emitters> first, Rows... rest)
{
    return Operations<Emitters, sizeof...(Rows) + 1>(first, rest...);
}

/// The same for a table without requests.
template <class Emitters>
Operations<Emitters, 0> operations()
{
    return Operations<Emitters, 0>();
}

} // namespace TROV
