#pragma once

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <QtCore/QString>

#include <chrono>
#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Evenly, in early runs as well, which would otherwise know small numbers only.
inline int between(int from, int to)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(from, to + 1));
}

inline bool coin()
{
    return between(0, 1) == 1;
}

template <typename List>
auto anyOf(const List &list)
{
    return list[between(0, static_cast<int>(list.size()) - 1)];
}

} // namespace corvane
