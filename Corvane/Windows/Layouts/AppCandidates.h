#pragma once

#include "Applications.h"
#include "AppRef.h"

#include <optional>

namespace corvane {

/// An application that a pane can be given.
struct AppCandidate {
    AppRef app;
    QString purpose{}; ///< may be empty
    std::optional<int> windows{}; ///< of one that runs
    bool isHidden = false; ///< shown only to who seeks it
    bool sharesName = false; ///< with another one, so that only the identifier tells them apart
    QString plainName{}; ///< without case and accents, as is what follows
    QStringList plainDetails{}; ///< what else it is found by

    /// What is told of it below its name; may be empty.
    [[nodiscard]] QString detail() const;
    bool operator==(const AppCandidate &) const = default;
};

/// How many windows the application has; nothing unless it runs.
[[nodiscard]] std::optional<int> windowCount(const QString &bundleIdentifier);
/// "Running, 2 windows", or that there is none.
[[nodiscard]] QString runningText(int windows);

/// These applications, and those that run but for this program, by name.
[[nodiscard]] QList<AppCandidate> appCandidates(const QList<InstalledApplication> &installed);
/// Those that every word of the text fits, the best first; those that run before the others. Without
/// a word, all that are not hidden.
[[nodiscard]] QList<AppCandidate> found(const QList<AppCandidate> &candidates, const QString &text);

} // namespace corvane
