#pragma once

#include "Feed.h"

#include <QtCore/QVersionNumber>

namespace corvane {

/// The copy of the program that asks whether there is a newer one, and the computer that it runs on.
struct RunningCopy {
    qint64 build = 0;
    QString os, arch;
    QVersionNumber glibc;
    QList<qint64> failedBuilds; ///< that did not work on this computer
    int seed = 0; ///< which group of the rollouts this computer is in; not negative
};

struct ReleaseChoice {
    FeedEntry entry;
    Artefact artefact;
};

/// Over how many intervals a rollout reaches everybody.
inline constexpr int rolloutGroups = 7;

enum class Asker { schedule, user };

/// The highest build that this copy can become at this time, however versions are written. A user who
/// asks waits for no rollout.
[[nodiscard]] std::optional<ReleaseChoice> chooseRelease(
    const QList<FeedEntry> &entries, const RunningCopy &running, const QDateTime &now, Asker asker);

} // namespace corvane
