#pragma once

#include "Expected.h"
#include "WindowStopwatch.h"

namespace corvane::bench {

struct OpeningTimes {
    QList<double> first; ///< in the life of a program
    QList<double> later;
};

/// How long an empty window of this size takes: the first one of several programs, and later ones of one.
[[nodiscard]] expected<OpeningTimes, QString> timeWindowFloor(
    desktop::VirtualDesktop &desktop, const Size &size, int programs, int openings);

} // namespace corvane::bench
