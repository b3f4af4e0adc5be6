#pragma once

#include <QtCore/QHashFunctions>

#include <compare>

namespace corvane {

/// One window of another application, for as long as that window lives. Opaque above the platform
/// floor: `number` is the window system's own, `generation` tells a reused number from the window
/// that had it before.
struct WindowElement {
    quint64 number = 0;
    quint64 generation = 0;

    auto operator<=>(const WindowElement &) const = default;
};

inline size_t qHash(const WindowElement &element, size_t seed = 0) noexcept
{
    return qHashMulti(seed, element.number, element.generation);
}

} // namespace corvane
