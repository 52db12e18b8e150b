#include "voxi_util/stringid.h"

#include "voxi_util/readwritelock.h"

#include <string_view>
#include <unordered_map>

namespace VOXI {

struct StringID::Entry
{
    std::string text;
    std::uint64_t number;
};

StringID::StringID(const std::string& text) : m_entry(text.empty() ? nullptr : intern(text)) {}
StringID::StringID(const char* text) : StringID(text ? std::string(text) : std::string()) {}

const StringID::Entry* StringID::intern(const std::string& text)
{
    struct Table
    {
        ReadWriteLock lock;
        // The keys view the texts inside the entries.
        std::unordered_map<std::string_view, const Entry*> entries;
    };
    // Never destroyed: objects that are destroyed at exit may still read their names.
    static Table& table = *new Table;

    {
        ReadLocker reading(table.lock);
        const auto found = table.entries.find(text);
        if (found != table.entries.end())
            return found->second;
    }
    WriteLocker writing(table.lock);
    const auto found = table.entries.find(text);
    if (found != table.entries.end())
        return found->second;
    const Entry* const entry = new Entry{text, table.entries.size() + 1};
    table.entries.emplace(entry->text, entry);
    return entry;
}

const std::string& StringID::getString() const noexcept
{
    static const std::string& empty = *new std::string;
    return m_entry ? m_entry->text : empty;
}

std::uint64_t StringID::number() const noexcept { return m_entry ? m_entry->number : 0; }

} // namespace VOXI
