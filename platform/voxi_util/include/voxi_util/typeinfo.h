#pragma once

#include "voxi_util/any.h"
#include "voxi_util/voxi_util_export.h"

#include <functional>
#include <optional>
#include <string>
#include <typeindex>
#include <typeinfo>
#include <utility>

namespace VOXI {

/// What kind of value a type holds. None is the family of no type.
enum class TypeFamily {
    None,
    Bool,
    Integer,
    Double,
    String,
    WString,
    StringList,
    StringId,
    Color,
    User
};

/// A type of values that have a name and a form as text. Any thread.
///
/// Known from the start: bool, char and every integer from signed char to unsigned long long,
/// float and double, std::string, std::wstring, VXStringList and std::vector<std::string>,
/// StringID, Color. registerType adds more. Narrow texts are in the process's narrow encoding.
class VOXI_UTIL_EXPORT TypeInfo
{
public:
    /// No type.
    TypeInfo() noexcept = default;

    /// Invalid unless the type is known.
    template <class T>
    static TypeInfo of()
    {
        return of(std::type_index(typeid(T)));
    }
    /// Of the value's type; invalid for an empty value.
    static TypeInfo of(const any& value) { return of(std::type_index(value.type())); }
    /// Invalid unless the type is known.
    static TypeInfo of(std::type_index type);
    /// Invalid unless a type of the name is known.
    static TypeInfo byName(const std::string& name);

    /// Adds a type of family User. Both functions are called by any thread, without a lock held;
    /// `fromString` gives nothing for a text that is no such value. A type that is known keeps
    /// what it had; the result is invalid when another type has the name.
    template <class T>
    static TypeInfo registerType(const std::string& name,
                                 std::function<std::string(const T&)> toString,
                                 std::function<std::optional<T>(const std::string&)> fromString)
    {
        return add(
            name, typeid(T),
            [convert = std::move(toString)](const any& value) {
                return convert(*std::any_cast<T>(&value));
            },
            [convert = std::move(fromString)](const std::string& text) {
                std::optional<T> value = convert(text);
                return value ? any(std::move(*value)) : any();
            });
    }

    bool isValid() const noexcept { return m_entry != nullptr; }
    /// Empty when invalid.
    const std::string& name() const noexcept;
    TypeFamily family() const noexcept;

    /// The text of a value of this or any other known type; empty for a value of no known type.
    std::string convertToString(const any& value) const;
    std::wstring convertToUString(const any& value) const;

    /// The value that the whole text stands for; empty when it stands for none: blanks around a
    /// number are refused, and so is a number that the type cannot hold. A bool is "true", "false",
    /// "1" or "0". Numbers are written and read alike in every locale.
    any convertFromString(const std::string& text) const;
    any convertFromUString(const std::wstring& text) const;

    friend bool operator==(TypeInfo, TypeInfo) noexcept = default;

private:
    using ToString = std::function<std::string(const any&)>;
    using FromString = std::function<any(const std::string&)>;
    struct Entry;
    struct Registry;

    explicit TypeInfo(const Entry* entry) noexcept : m_entry(entry) {}
    static Registry& registry();
    static TypeInfo add(const std::string& name, std::type_index type, ToString toString,
                        FromString fromString);
    const Entry* entryFor(const any& value) const;

    const Entry* m_entry = nullptr;
};

} // namespace VOXI
