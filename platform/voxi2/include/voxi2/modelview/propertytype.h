#pragma once

#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/any.h"
#include "voxi_util/typeinfo.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace VOXI {

/// What a property's value is.
enum class PropertyKind {
    Group,         ///< no value: a heading for others
    Bool,          ///< `bool`
    Integer,       ///< `long long`, in a range
    Double,        ///< `double`, in a range
    Text,          ///< `std::wstring` of one line
    MultilineText, ///< `std::wstring`; shown and edited with `\n` for a line break
    Enumeration,   ///< `long long`: the value of one choice
    Flags,         ///< `long long`: the values of some choices, joined
    Color,         ///< `Color`
    Font,          ///< `VXFont`
    File,          ///< `std::filesystem::path`
    Date,          ///< `std::chrono::year_month_day`
    User           ///< of a type that is registered with `TypeInfo`
};

/// What an enumeration or a set of flags consists of.
struct PropertyChoice
{
    std::wstring name;
    long long value = 0; ///< of a flag: one bit, or several that go together
};

/// Which values a property may have, and how they read as text. A value: copies are cheap, and mean
/// the same. Any thread may use it.
///
/// Texts are the same in every locale: "true", "-12", "0.25", "#rrggbbaa", "2026-11-22",
/// "Sans Serif, 9, bold", names of flags with " | " between them.
class VOXI2_EXPORT PropertyType
{
public:
    /// A group.
    PropertyType();

    static PropertyType group() { return {}; }
    static PropertyType boolean();
    /// Bounds the wrong way round are exchanged; a step below 1 counts as 1.
    static PropertyType integer(long long least = std::numeric_limits<long long>::min(),
                                long long greatest = std::numeric_limits<long long>::max(),
                                long long step = 1);
    /// `decimals` behind the point are shown, as many as the value has with -1. What is no number
    /// is never a value.
    static PropertyType decimal(double least = std::numeric_limits<double>::lowest(),
                                double greatest = std::numeric_limits<double>::max(),
                                double step = 1, int decimals = -1);
    static PropertyType text();
    static PropertyType multilineText();
    static PropertyType enumeration(std::vector<PropertyChoice> choices);
    static PropertyType flags(std::vector<PropertyChoice> choices);
    static PropertyType color();
    static PropertyType font();
    /// What the user is helped to choose; any name is a value.
    static PropertyType file(FileDialogMode mode = FileDialogMode::OpenFile,
                             std::vector<FileFilter> filters = {});
    static PropertyType date();
    /// A group where the type is not known.
    static PropertyType user(TypeInfo type);

    /// The type that fits a value of any of the C++ types above, or of one that converts to one of
    /// them (`int`, `float`, `const char*` ...); a group for others.
    static PropertyType of(const any& value);

    PropertyKind kind() const noexcept;
    /// Of an integer.
    long long leastInteger() const noexcept;
    long long greatestInteger() const noexcept;
    long long integerStep() const noexcept;
    /// Of a double.
    double leastDouble() const noexcept;
    double greatestDouble() const noexcept;
    double doubleStep() const noexcept;
    /// Of an enumeration or of flags.
    const std::vector<PropertyChoice>& choices() const noexcept;
    /// Of a file.
    FileDialogMode fileMode() const noexcept;
    const std::vector<FileFilter>& fileFilters() const noexcept;

    /// What a property of this type begins with: false, the number next to 0, an empty text, the
    /// first choice, no flags, opaque black, a font without wishes, no file, 1970-01-01. Empty for
    /// groups and types of the user's.
    any initialValue() const;

    /// The value as this type keeps it, converted where that loses nothing; empty where it is none.
    any accepted(const any& value) const;

    /// The text of a value; empty where it is none of this type.
    std::wstring textOf(const any& value) const { return textOfKept(accepted(value)); }
    /// The same for what `accepted` gave, or an empty value; it is not looked at again.
    std::wstring textOfKept(const any& kept) const;
    /// The value that the text stands for; empty where it stands for none.
    any valueOf(const std::wstring& text) const;

    /// Whether two values that this type keeps are the same; those of a user's type by their texts.
    bool areEqual(const any& a, const any& b) const;

    /// Tells a user what can be entered, in a sentence; empty where that is anything.
    std::wstring wish() const;

private:
    struct Data;
    explicit PropertyType(Data data);

    std::shared_ptr<const Data> m_data;
};

} // namespace VOXI
