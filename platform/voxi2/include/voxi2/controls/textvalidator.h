#pragma once

#include "voxi2/voxi2_export.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>

namespace VOXI {

/// What a validator says of a text.
enum class TextValidity {
    No,     ///< it cannot become acceptable: the key that would lead to it does nothing
    NotYet, ///< it may be typed, but not committed
    Acceptable
};

/// Which texts a user may enter. A value: copies are cheap, and mean the same.
class VOXI2_EXPORT TextValidator
{
public:
    /// Called on the toolkit's thread at each change, a program's too; what it throws goes to the
    /// thread's exception handler, and the text counts as acceptable then.
    using Function = std::function<TextValidity(const std::wstring& text)>;

    struct IntegerRange
    {
        int least;
        int greatest;

        friend bool operator==(const IntegerRange&, const IntegerRange&) = default;
    };
    struct DecimalRange
    {
        double least;
        double greatest;
        int decimals; ///< at most so many behind the point; -1 for any number

        friend bool operator==(const DecimalRange&, const DecimalRange&) = default;
    };
    struct Pattern
    {
        std::wstring expression;

        friend bool operator==(const Pattern&, const Pattern&) = default;
    };
    using SharedFunction = std::shared_ptr<const Function>;
    using Rule = std::variant<std::monostate, IntegerRange, DecimalRange, Pattern, SharedFunction>;

    /// Any text.
    TextValidator() = default;

    /// Whole numbers, as the user's locale writes them; none when the bounds are the wrong way
    /// round.
    static TextValidator integer(int least, int greatest);
    /// Numbers without an exponent, as the user's locale writes them.
    static TextValidator decimal(double least, double greatest, int decimals = -1);
    /// Texts that match as a whole, a Perl-compatible regular expression. One that is malformed
    /// lets any text pass.
    static TextValidator matching(std::wstring expression);
    /// What the function says; an empty one lets any text pass.
    static TextValidator function(Function function);

    bool isEmpty() const noexcept { return m_rule.index() == 0; }
    /// For back ends.
    const Rule& rule() const noexcept { return m_rule; }

    /// Functions are the same when one validator is a copy of the other.
    friend bool operator==(const TextValidator&, const TextValidator&) = default;

private:
    explicit TextValidator(Rule rule) noexcept : m_rule(std::move(rule)) {}

    Rule m_rule;
};

} // namespace VOXI
