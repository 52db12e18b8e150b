#pragma once

#include <cstddef>
#include <tuple>
#include <utility>

namespace VOXI {

/// What happened to one of the toolkit's objects: a value that says whose event it is and carries
/// what else there is to know, under the names that the kind of event gives it.
///
/// The sender of what is reported is never null. In a handler on another thread than the toolkit's
/// it may be gone.
template <class Sender, class... Values>
class VXEvent2
{
public:
    explicit(sizeof...(Values) == 0) VXEvent2(Sender* sender, Values... values)
        : m_sender(sender),
          m_values(std::move(values)...)
    {}

protected:
    Sender* sender() const noexcept { return m_sender; }

    /// One of the values, counted from 0.
    template <std::size_t Which = 0>
    const auto& value() const noexcept
    {
        return std::get<Which>(m_values);
    }

private:
    Sender* m_sender;
    [[no_unique_address]] std::tuple<Values...> m_values;
};

} // namespace VOXI
