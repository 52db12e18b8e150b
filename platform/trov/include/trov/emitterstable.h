#pragma once

#include "trov/binding.h"
#include "trov/emitter.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace TROV {

namespace detail {

/// The operations of one peer class for one emitters table; the operations themselves follow.
struct OperationsHead
{
    std::size_t m_count;

    const Operation* rows() const noexcept { return reinterpret_cast<const Operation*>(this + 1); }
};

/// The head of an emitters table. The table's emitters, one byte each, follow it.
struct TableHead
{
    Binding* m_binding;
    std::atomic<const OperationsHead*> m_operations{nullptr};
    TableHead* m_base;

    TableHead(Binding* binding, TableHead* base) noexcept : m_binding(binding), m_base(base)
    {
        m_binding->addTable(this);
    }
    TableHead(const TableHead&) = delete;
    TableHead& operator=(const TableHead&) = delete;
};

/// An emitter that is a byte in a table.
class TableEmitter : public EmitterBase
{
public:
    const TableHead& head() const noexcept
    {
        return *reinterpret_cast<const TableHead*>(reinterpret_cast<std::uintptr_t>(this) - index()
                                                   - sizeof(TableHead));
    }

    /// Its place among the emitters of its table, counted from 0.
    std::size_t place() const noexcept { return index(); }

protected:
    explicit TableEmitter(const TableHead& head) noexcept
        : EmitterBase(static_cast<std::uint8_t>(reinterpret_cast<std::uintptr_t>(this)
                                                - reinterpret_cast<std::uintptr_t>(&head)
                                                - sizeof(TableHead)))
    {}
    ~TableEmitter() = default;

    /// The listeners' site, or null while nobody ever listened.
    TableSite* listeners() const noexcept
    {
        const TableSites* sites = head().m_binding->m_sites.load(std::memory_order_acquire);
        return sites ? sites->find(this) : nullptr;
    }
};

/// A request on its way to a peer on another thread.
template <class... A>
struct QueuedRequest
{
    Binding* m_binding;
    const EmitterBase* m_emitter; ///< compared, never followed
    void (*m_call)(Listener*, Param<A>...);
    std::uint32_t m_generation;
    std::tuple<Kept<A>...> m_arguments;

    void deliver()
    {
        if (Listener* peer = m_binding->peerFor(m_generation, m_emitter))
            std::apply([&](auto&... a) { m_call(peer, a...); }, m_arguments);
    }
};

} // namespace detail

/// An emitters table: first the pointer to the table of the base class, then the requests in their
/// fixed order, then `RequestsEnd`, then the events. Every emitter is declared `name{*this}`.
template <class Base>
struct EmittersTable : detail::TableHead
{
    explicit EmittersTable(Base& base) noexcept : TableHead(base.m_binding, &base) {}
    ~EmittersTable() { m_binding->removeTable(m_base); }

    /// The table of the base class.
    Base* base() const noexcept { return static_cast<Base*>(m_base); }
};

/// The table at the root of an object's tables; it owns the object's binding.
template <>
struct TROV_EXPORT EmittersTable<void> : detail::TableHead
{
    EmittersTable() : TableHead(detail::Binding::allocate(), nullptr) {}
    ~EmittersTable() { detail::Binding::free(m_binding); }
};

/// A request: an emitter that a peer's operation answers. Unanswered it does nothing and results
/// are default ones.
template <class Signature>
class Request;

template <class R, class... A>
class Request<R(A...)> : public detail::TableEmitter
{
    static_assert(sizeof...(A) <= 5, "requests carry up to five arguments");

public:
    explicit Request(const detail::TableHead& head) noexcept : TableEmitter(head) {}

    /// Sends the request: a plain call on the peer's own thread, otherwise through its queue; a
    /// result is waited for.
    R operator()(Param<A>... arguments) const
    {
        const detail::TableHead& table = head();
        const detail::Binding& binding = *table.m_binding;
        if (binding.m_thread.load(std::memory_order_relaxed) == Thread::getCurrentThread())
            [[likely]] {
            if (const auto* operations = table.m_operations.load(std::memory_order_relaxed))
                return call(operations)(binding.m_peer.load(std::memory_order_relaxed),
                                        arguments...);
        }
        return sendElsewhere(arguments...);
    }

    /// For listeners beside the bound operation.
    Signal<R(A...)> signal() const noexcept { return Signal<R(A...)>(*this, true); }

private:
    using Call = R (*)(Listener*, Param<A>...);

    Call call(const detail::OperationsHead* operations) const noexcept
    {
        return reinterpret_cast<Call>(operations->rows()[index()].m_call);
    }

    R sendElsewhere(Param<A>... arguments) const
    {
        detail::Binding& binding = *head().m_binding;
        const std::uint32_t object = binding.m_object.load(std::memory_order_acquire);
        const std::uint32_t generation = binding.m_generation.load(std::memory_order_acquire);
        const detail::TableSite* others = listeners();
        const auto* operations = head().m_operations.load(std::memory_order_acquire);
        Thread* thread = binding.servingThread();
        const bool bound = operations && thread && !(others && others->m_boundCut.load());
        // The operation may end the object, and its emitters with it.
        const auto hasOthers = [&] {
            return others && binding.isOf(object)
                   && detail::numberOfConnections(others->m_site) > 0;
        };
        if constexpr (std::is_void_v<R>) {
            if (bound)
                sendBound(binding, generation, call(operations), *thread, arguments...);
            if (hasOthers())
                detail::emitTo<R, A...>(const_cast<detail::TableSite*>(others)->m_site, false,
                                        arguments...);
        } else {
            R result = R();
            if (bound)
                result = sendBound(binding, generation, call(operations), *thread, arguments...);
            if (hasOthers())
                result = detail::emitTo<R, A...>(const_cast<detail::TableSite*>(others)->m_site,
                                                 false, arguments...);
            return result;
        }
    }

    R sendBound(detail::Binding& binding, std::uint32_t generation, Call operation, Thread& thread,
                Param<A>... arguments) const
    {
        const EmitterBase* const emitter = this;
        const auto serve = [&]() -> R {
            if (Listener* peer = binding.peerFor(generation, emitter))
                return operation(peer, arguments...);
            return detail::defaultResult<R>();
        };
        if (&thread == Thread::getCurrentThread())
            return serve();
        if constexpr (std::is_void_v<R>) {
            thread.enqueue(detail::QueuedRequest<A...>{
                &binding, emitter, operation, generation, {arguments...}});
            // The object may end meanwhile: nothing of it is looked at from here on.
            thread.waitForRoom();
        } else {
            return thread.callAndWait<R>(
                &binding, emitter, [&] { return binding.serves(generation, emitter); }, serve);
        }
    }
};

/// Marks the end of the requests of a table; what follows are events.
class RequestsEnd : public detail::TableEmitter
{
public:
    explicit RequestsEnd(const detail::TableHead& head) noexcept : TableEmitter(head) {}
};

/// An event of an abstract object: its peer reports, the application listens.
template <class Signature>
class Event;

template <class... A>
class Event<void(A...)> : public detail::TableEmitter
{
public:
    explicit Event(const detail::TableHead& head) noexcept : TableEmitter(head) {}

    /// Calls the listeners; without any it costs a load and a branch. What one of them throws goes
    /// to the thread's exception handler, or to the program where that acts as the user: see
    /// `Thread::reportEventError`. The others are called all the same.
    void operator()(Param<A>... arguments) const
    {
        if (detail::TableSite* site = listeners())
            detail::reportTo<A...>(site->m_site, false, arguments...);
    }

    /// The last emission of an object that ends: on other threads, too, it reaches those who
    /// listen, behind all that was sent to them before.
    void emitLast(Param<A>... arguments) const
    {
        if (detail::TableSite* site = listeners())
            detail::reportTo<A...>(site->m_site, true, arguments...);
    }

    /// Whether an emission would reach anybody; cheaper than counting.
    bool isHeard() const noexcept
    {
        const detail::TableSite* site = listeners();
        return site && site->m_site.load(std::memory_order_acquire);
    }

    int numberOfConnections() const noexcept
    {
        const detail::TableSite* site = listeners();
        return site ? detail::numberOfConnections(site->m_site) : 0;
    }

    Signal<void(A...)> signal() const noexcept { return Signal<void(A...)>(*this); }
};

// Binding -----------------------------------------------------------------------------------------

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
    std::size_t (*m_place)(const Emitters&);
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
            [](const Emitters& table) { return (table.*Field).place(); }};
}

[[noreturn]] TROV_EXPORT void reportMisplacedRow(const std::type_info& emitters, std::size_t row);

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
          m_places{rows.m_place...}
    {}

    /// Ends the program with a message if the rows are not exactly the requests of `table`, each
    /// once and in order: a request bound to nothing, or to its neighbour's operation, must not
    /// survive the first test run.
    void check(const Emitters& table) const
    {
        if (m_isChecked.load(std::memory_order_relaxed))
            return;
        for (std::size_t i = 0; i < Count; ++i) {
            if (m_places[i](table) != i)
                detail::reportMisplacedRow(typeid(Emitters), i);
        }
        if (table.requestsEnd.place() != Count)
            detail::reportMisplacedRow(typeid(Emitters), Count);
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
    std::size_t (*m_places[Count ? Count : 1])(const Emitters&);
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

/// A peer's hold on the requests of its abstract object.
///
/// From outside it looks like one connection per request: counted, ordered, bound to the thread of
/// the first `bind`, cut by `unbind` or with the object.
class TROV_EXPORT RequestBinding
{
public:
    RequestBinding() = default;
    RequestBinding(const RequestBinding&) = delete;
    RequestBinding& operator=(const RequestBinding&) = delete;
    ~RequestBinding() { unbind(); }

    /// Lets `operations` of `peer` serve the requests of `table`, on the calling thread. Called
    /// once per table of the object, all on one thread. A former peer of the object, or a former
    /// object of this peer, is unbound. The operations must outlive every peer of theirs.
    template <class Emitters, std::size_t Count>
    void bind(Emitters& table, Listener* peer, const Operations<Emitters, Count>& operations)
    {
        operations.check(table);
        bindTable(table, peer, operations.head());
    }

    /// Ends serving: requests on their way are dropped, waiting senders get default answers. On the
    /// thread of `bind`, or after that thread has ended.
    void unbind() noexcept;

    bool isBound() const noexcept { return m_binding != nullptr; }

    /// False if it is bound and nobody has ever listened to any emitter of the object: a quick look
    /// before it is made sure that the object still lives. On the thread of `bind`.
    bool mayBeHeard() const noexcept
    {
        return !m_binding || m_binding->m_sites.load(std::memory_order_acquire);
    }

private:
    void bindTable(detail::TableHead& table, Listener* peer,
                   const detail::OperationsHead* operations);

    detail::Binding* m_binding = nullptr;
    std::uint32_t m_generation = 0;
};

} // namespace TROV
