#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace corvane {

/// A file that could not be read, or not whole.
struct StoreProblem {
    QString file; ///< its name, without the folder
    std::optional<QUrl> kept; ///< the copy of it; none when it could not be kept
    QString reason; ///< one sentence

    /// What counts in place of what could not be read.
    enum class Instead { defaults, present };

    /// Keeps a copy of the file beside it, under its name and the time. A copy of the same second
    /// is not made again.
    [[nodiscard]] static StoreProblem keep(const QUrl &url, const QString &reason,
        const QDateTime &now = QDateTime::currentDateTime());

    bool operator==(const StoreProblem &) const = default;
};

/// For the user, in one or two sentences.
[[nodiscard]] QString sentence(
    const StoreProblem &problem, StoreProblem::Instead instead = StoreProblem::Instead::defaults);
/// For the diagnostics.
[[nodiscard]] QString detail(const StoreProblem &problem);

} // namespace corvane
