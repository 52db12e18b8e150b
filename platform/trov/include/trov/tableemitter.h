#pragma once

#include "trov/binding.h"
#include "trov/emitter.h"
#include "trov/packet.h"
#include "trov/trov_export.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace TROV::detail {

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

    /// The listeners' site, or null while nobody ever listened.
    TableSite* listeners() const noexcept
    {
        const TableSites* sites = head().m_binding->m_sites.load(std::memory_order_acquire);
        return sites ? sites->find(this) : nullptr;
    }

protected:
    explicit TableEmitter(const TableHead& head) noexcept
        : EmitterBase(static_cast<std::uint8_t>(reinterpret_cast<const char*>(this)
                                                - reinterpret_cast<const char*>(&head + 1)))
    {}
    ~TableEmitter() = default;
};

} // namespace TROV::detail
