#include "ChooseRelease.h"

#include <algorithm>

namespace corvane {

namespace {

bool isDue(const FeedEntry &entry, int seed, const QDateTime &now)
{
    const auto group = seed % rolloutGroups;
    return entry.critical
        || entry.rollout.start.addSecs(group * entry.rollout.interval.count()) <= now;
}

/// Of those that run here, the one for the newest system.
std::optional<Artefact> artefactFor(const RunningCopy &running, const Release &release)
{
    std::optional<Artefact> best;
    for (const Artefact &each : release.artefacts) {
        const auto glibc = QVersionNumber::fromString(each.glibc);
        if (each.os == running.os && each.arch == running.arch && glibc <= running.glibc
            && (!best || QVersionNumber::fromString(best->glibc) < glibc))
            best = each;
    }
    return best;
}

} // namespace

std::optional<ReleaseChoice> chooseRelease(
    const QList<FeedEntry> &entries, const RunningCopy &running, const QDateTime &now, Asker asker)
{
    std::optional<ReleaseChoice> best;
    for (const FeedEntry &entry : entries) {
        const qint64 build = entry.release.build;
        const bool canFollow = build > running.build && entry.release.minimumBuild <= running.build
            && !running.failedBuilds.contains(build);
        const bool isOffered = asker == Asker::user || isDue(entry, running.seed, now);
        if (!canFollow || !isOffered || (best && build < best->entry.release.build))
            continue;
        if (const auto artefact = artefactFor(running, entry.release))
            best = ReleaseChoice{entry, *artefact};
    }
    return best;
}

} // namespace corvane
