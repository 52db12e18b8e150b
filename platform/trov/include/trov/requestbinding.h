#pragma once

#include "trov/binding.h"
#include "trov/listener.h"
#include "trov/operations.h"
#include "trov/tableemitter.h"
#include "trov/trov_export.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace TROV {

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

    /// The bound object's table of that class, one of its own or of its bases; null while unbound.
    /// Only while the object lives.
    template <class Emitters>
    const Emitters* table() const noexcept
    {
        return static_cast<const Emitters*>(tableAt(Emitters::Level));
    }

    /// False if it is bound and nobody has ever listened to any emitter of the object: a quick look
    /// before it is made sure that the object still lives. On the thread of `bind`.
    bool mayBeHeard() const noexcept
    {
        return !m_binding || m_binding->m_sites.load(std::memory_order_acquire);
    }

private:
    void bindTable(detail::TableHead& table, Listener* peer,
                   const detail::OperationsHead* operations);
    const detail::TableHead* tableAt(int level) const noexcept;

    detail::Binding* m_binding = nullptr;
    std::uint32_t m_generation = 0;
};

} // namespace TROV
