#pragma once

#include "trov/connectionsite.h"

#include <cstdint>

namespace TROV::detail {

/// Changes the connections of a site, under the global connection lock. In sum adding and removing
/// take the same time however many there are.
struct SiteWriter
{
    static void add(ConnectionSite& site, Connection* connection);

    /// Its reference is set aside until no emission can come upon it.
    static void remove(Connection* connection);

private:
    static void append(ConnectionBlock& block, Connection* connection);
    static ConnectionBlock* copyOf(const ConnectionBlock* block, std::uint32_t capacity);
};

} // namespace TROV::detail
