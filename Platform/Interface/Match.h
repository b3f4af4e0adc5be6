#pragma once

#include <utility>
#include <variant>

namespace corvane {

template <typename... Arms>
struct MatchArms : Arms... {
    using Arms::operator()...;
};

/// Runs the arm that takes the variant's current alternative. A forgotten alternative does not compile.
template <typename Variant, typename... Arms>
decltype(auto) match(Variant &&variant, Arms &&...arms)
{
    return std::visit(MatchArms<std::decay_t<Arms>...>{std::forward<Arms>(arms)...},
        std::forward<Variant>(variant));
}

} // namespace corvane
