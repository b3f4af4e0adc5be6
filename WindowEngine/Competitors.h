#pragma once

#include "Applications.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <array>

namespace corvane {

/// Another application that moves windows by shortcuts.
struct Competitor {
    struct Running;

    QString bundleID;
    QString name; ///< as users know it

    /// Those of the Mac, by their bundle identifiers. Other desktops know their own.
    [[nodiscard]] static const std::array<Competitor, 12> &known();
    /// In the order of `known`, then of the desktop's own table, each with the first of its
    /// processes. Main thread only.
    [[nodiscard]] static QList<Running> running();

    bool operator==(const Competitor &) const = default;
};

struct Competitor::Running {
    Competitor competitor;
    RunningApplication application;

    bool operator==(const Running &) const = default;
};

[[nodiscard]] QStringList names(const QList<Competitor::Running> &competitors);

} // namespace corvane
