#pragma once

#include <tl/expected.hpp>

namespace corvane {

/// The result of what may fail: a value, or the reason why there is none. These names stand for
/// `std::expected` until every compiler has it.
template <typename T, typename E>
using expected = tl::expected<T, E>;

template <typename E>
using unexpected = tl::unexpected<E>;

} // namespace corvane
