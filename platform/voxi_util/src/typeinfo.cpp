#include "voxi_util/typeinfo.h"

#include "voxi_util/color.h"
#include "voxi_util/readwritelock.h"
#include "voxi_util/stringid.h"
#include "voxi_util/textencoding.h"
#include "voxi_util/vxstringlist.h"

#include <charconv>
#include <memory>
#include <system_error>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace VOXI {
namespace {

std::string toText(bool value) { return value ? "true" : "false"; }

std::optional<bool> parse(const std::string& text, const bool*)
{
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

template <class Number>
std::string toText(Number value)
{
    char text[64]; // the longest double in its shortest exact form has 24 characters
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

template <class Number>
std::optional<Number> parse(const std::string& text, const Number*)
{
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return value;
}

/// Items with ';' between them and '\' before a ';' or '\' that belongs to an item. An empty last
/// item gets a ';' of its own, to tell {""} from {}.
std::string listText(const std::vector<std::string>& list)
{
    std::string text;
    for (const std::string& item : list) {
        if (&item != &list.front())
            text += ';';
        for (const char c : item) {
            if (c == ';' || c == '\\')
                text += '\\';
            text += c;
        }
    }
    if (!list.empty() && list.back().empty())
        text += ';';
    return text;
}

template <class List>
std::optional<List> parseList(const std::string& text)
{
    List list;
    std::string item;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ';') {
            list.push_back(std::exchange(item, {}));
            continue;
        }
        if (text[i] == '\\') {
            ++i;
            if (i == text.size() || (text[i] != ';' && text[i] != '\\'))
                return std::nullopt;
        }
        item += text[i];
    }
    if (!item.empty())
        list.push_back(item);
    return list;
}

} // namespace

struct TypeInfo::Entry
{
    std::string name;
    TypeFamily family;
    std::type_index type;
    ToString toString;
    FromString fromString;
};

/// The entries are never freed: a TypeInfo is a pointer to one.
struct TypeInfo::Registry
{
    Registry();

    const Entry* insert(const Entry& entry)
    {
        WriteLocker writing(lock);
        if (const auto known = byType.find(entry.type); known != byType.end())
            return known->second;
        if (byName.contains(entry.name))
            return nullptr;
        const Entry* const stored = entries.emplace_back(std::make_unique<Entry>(entry)).get();
        byType.emplace(stored->type, stored);
        byName.emplace(stored->name, stored);
        return stored;
    }

    template <class T, class Write, class Read>
    void insert(const char* name, TypeFamily family, Write write, Read read)
    {
        insert(
            {name, family, typeid(T),
             [write](const any& value) -> std::string { return write(*std::any_cast<T>(&value)); },
             [read](const std::string& text) {
                 std::optional<T> value = read(text);
                 return value ? any(std::move(*value)) : any();
             }});
    }

    template <class T>
    void insertNumber(const char* name, TypeFamily family)
    {
        insert<T>(
            name, family, [](T value) { return toText(value); },
            [](const std::string& text) { return parse(text, static_cast<const T*>(nullptr)); });
    }

    template <class List>
    void insertList(const char* name)
    {
        insert<List>(
            name, TypeFamily::StringList, [](const List& list) { return listText(list); },
            [](const std::string& text) { return parseList<List>(text); });
    }

    ReadWriteLock lock;
    std::vector<std::unique_ptr<Entry>> entries;
    std::unordered_map<std::type_index, const Entry*> byType;
    std::unordered_map<std::string, const Entry*> byName;
};

TypeInfo::Registry::Registry()
{
    insertNumber<bool>("bool", TypeFamily::Bool);
    insertNumber<char>("char", TypeFamily::Integer);
    insertNumber<signed char>("signed char", TypeFamily::Integer);
    insertNumber<unsigned char>("unsigned char", TypeFamily::Integer);
    insertNumber<short>("short", TypeFamily::Integer);
    insertNumber<unsigned short>("unsigned short", TypeFamily::Integer);
    insertNumber<int>("int", TypeFamily::Integer);
    insertNumber<unsigned>("unsigned int", TypeFamily::Integer);
    insertNumber<long>("long", TypeFamily::Integer);
    insertNumber<unsigned long>("unsigned long", TypeFamily::Integer);
    insertNumber<long long>("long long", TypeFamily::Integer);
    insertNumber<unsigned long long>("unsigned long long", TypeFamily::Integer);
    insertNumber<float>("float", TypeFamily::Double);
    insertNumber<double>("double", TypeFamily::Double);
    insertList<VXStringList>("stringlist");
    insertList<std::vector<std::string>>("stringvector");
    insert<std::string>(
        "string", TypeFamily::String, [](const std::string& text) { return text; },
        [](const std::string& text) { return std::optional(text); });
    insert<std::wstring>(
        "wstring", TypeFamily::WString, narrowFromWide,
        [](const std::string& text) { return std::optional(wideFromNarrow(text)); });
    insert<StringID>(
        "stringid", TypeFamily::StringId, [](StringID id) { return id.getString(); },
        [](const std::string& text) { return std::optional(StringID(text)); });
    insert<Color>(
        "color", TypeFamily::Color, [](Color color) { return color.toText(); },
        [](const std::string& text) { return Color::fromText(text); });
}

TypeInfo::Registry& TypeInfo::registry()
{
    static Registry& theRegistry = *new Registry;
    return theRegistry;
}

TypeInfo TypeInfo::of(std::type_index type)
{
    Registry& types = registry();
    ReadLocker reading(types.lock);
    const auto found = types.byType.find(type);
    return TypeInfo(found == types.byType.end() ? nullptr : found->second);
}

TypeInfo TypeInfo::byName(const std::string& name)
{
    Registry& types = registry();
    ReadLocker reading(types.lock);
    const auto found = types.byName.find(name);
    return TypeInfo(found == types.byName.end() ? nullptr : found->second);
}

TypeInfo TypeInfo::add(const std::string& name, std::type_index type, ToString toString,
                       FromString fromString)
{
    return TypeInfo(registry().insert(
        {name, TypeFamily::User, type, std::move(toString), std::move(fromString)}));
}

const std::string& TypeInfo::name() const noexcept
{
    static const std::string& none = *new std::string;
    return m_entry ? m_entry->name : none;
}

TypeFamily TypeInfo::family() const noexcept
{
    return m_entry ? m_entry->family : TypeFamily::None;
}

/// Null when the value is of no known type.
const TypeInfo::Entry* TypeInfo::entryFor(const any& value) const
{
    return m_entry && m_entry->type == value.type() ? m_entry : of(value).m_entry;
}

std::string TypeInfo::convertToString(const any& value) const
{
    const Entry* const entry = entryFor(value);
    return entry ? entry->toString(value) : std::string();
}

std::wstring TypeInfo::convertToUString(const any& value) const
{
    // The way through a narrow text would lose what that cannot hold.
    if (const auto* const wide = std::any_cast<std::wstring>(&value))
        return *wide;
    return wideFromNarrow(convertToString(value));
}

any TypeInfo::convertFromString(const std::string& text) const
{
    return m_entry ? m_entry->fromString(text) : any();
}

any TypeInfo::convertFromUString(const std::wstring& text) const
{
    if (family() == TypeFamily::WString)
        return text;
    return convertFromString(narrowFromWide(text));
}

} // namespace VOXI
