#pragma once

#include "EnumTable.h"
#include "Expected.h"

#include <QtCore/QString>

namespace corvane {

/// Why an update was not installed.
enum class InstallProblem {
    isRoot, ///< what root installs, root has to update
    folderNotOurs, ///< somebody else owns it or may write to it
    busy, ///< another process is installing
    noSpace,
    cannotWrite,
    notAsSigned, ///< what was received is not the file that the release names
    archiveNotUnderstood,
    entryRefused, ///< nothing of the kind, the name or the mode is unpacked
    tooMuch, ///< more entries or more bytes than the release promised
    manifestNotUnderstood,
    treeDiffers, ///< from its manifest
    doesNotRun, ///< it failed the test of itself
    stillRuns, ///< the version before has not quit
    doesNotAnswer, ///< it was started, and never said on the bus that it is there
};

/// What the problems are called between processes and in the diagnostics.
inline constexpr EnumTable<InstallProblem::doesNotAnswer, NamedCase<InstallProblem>>
    installProblems({{
        {InstallProblem::isRoot, QLatin1StringView("isRoot")},
        {InstallProblem::folderNotOurs, QLatin1StringView("folderNotOurs")},
        {InstallProblem::busy, QLatin1StringView("busy")},
        {InstallProblem::noSpace, QLatin1StringView("noSpace")},
        {InstallProblem::cannotWrite, QLatin1StringView("cannotWrite")},
        {InstallProblem::notAsSigned, QLatin1StringView("notAsSigned")},
        {InstallProblem::archiveNotUnderstood, QLatin1StringView("archiveNotUnderstood")},
        {InstallProblem::entryRefused, QLatin1StringView("entryRefused")},
        {InstallProblem::tooMuch, QLatin1StringView("tooMuch")},
        {InstallProblem::manifestNotUnderstood, QLatin1StringView("manifestNotUnderstood")},
        {InstallProblem::treeDiffers, QLatin1StringView("treeDiffers")},
        {InstallProblem::doesNotRun, QLatin1StringView("doesNotRun")},
        {InstallProblem::stillRuns, QLatin1StringView("stillRuns")},
        {InstallProblem::doesNotAnswer, QLatin1StringView("doesNotAnswer")},
    }});

struct InstallFailure {
    InstallProblem problem{};
    QString detail{}; ///< the name or the system's sentence that it is about, where there is one

    bool operator==(const InstallFailure &) const = default;
};

template <typename T>
using InstallResult = expected<T, InstallFailure>;

[[nodiscard]] inline unexpected<InstallFailure> installFailure(
    InstallProblem problem, const QString &detail = {})
{
    return unexpected<InstallFailure>(InstallFailure{problem, detail});
}

/// What the system's error number means for an installation.
[[nodiscard]] unexpected<InstallFailure> installError(int number);
/// The same of the system call that has just failed.
[[nodiscard]] unexpected<InstallFailure> lastInstallError();

} // namespace corvane
