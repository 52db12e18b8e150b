#pragma once

#include "trov/connectionsite.h"

#include <cstdint>

namespace TROV::detail {

/// Changes the connections of a site, under the global connection lock. In sum adding and removing
/// take the same time however many there are.
struct SiteWriter
{
    static void add(ConnectionSite& site, Connection* connection);

    /// Leaves a reference to the caller, to be given back when the lock is undone.
    static void remove(Connection* connection);

private:
    static void append(ConnectionBlock& block, Connection* connection);
    static ConnectionBlock* copyOf(const ConnectionBlock* block, std::uint32_t capacity);
};

/// Takes connections from both their ends while the global connection lock is held. To be made
/// before the lock is taken: what they leave behind goes when it is undone.
class CutConnections
{
public:
    CutConnections() = default;
    ~CutConnections();
    CutConnections(const CutConnections&) = delete;
    CutConnections& operator=(const CutConnections&) = delete;

    void add(Connection* connection);

private:
    Connection* m_first = nullptr; // linked by their places in listeners' lists
    Connection** m_end = &m_first;
};

} // namespace TROV::detail
