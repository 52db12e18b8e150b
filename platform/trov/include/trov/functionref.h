#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace TROV::detail {

/// Refers to something callable for as long as a call lasts: what takes one is compiled once,
/// whatever the type.
template <class Signature>
class FunctionRef;

template <class R, class... A>
class FunctionRef<R(A...)>
{
public:
    constexpr FunctionRef() = default;
    template <
        class Function,
        std::enable_if_t<!std::is_same_v<std::remove_cvref_t<Function>, FunctionRef>, int> = 0>
    FunctionRef(Function&& function) noexcept
        : m_function(const_cast<void*>(static_cast<const void*>(std::addressof(function)))),
          m_call([](void* called, A... arguments) -> R {
              return static_cast<R>((*static_cast<std::remove_reference_t<Function>*>(called))(
                  std::forward<A>(arguments)...));
          })
    {}

    R operator()(A... arguments) const { return m_call(m_function, std::forward<A>(arguments)...); }

private:
    void* m_function = nullptr;
    R (*m_call)(void*, A...) = nullptr;
};

} // namespace TROV::detail
