#pragma once

#include <QtCore/QString>

namespace corvane {

/// What a command line comes to: what goes to standard output and standard error, and how it exits.
struct CommandResult {
    enum Status : int {
        done = 0,
        refused = 1, ///< or there was nothing to do
        misused = 2,
    };

    int status = done;
    QString output;
    QString error;

    /// Both, one after the other.
    CommandResult &operator+=(const CommandResult &next);
    bool operator==(const CommandResult &) const = default;
};

/// One sentence on standard error, where it stays one line whatever it quotes.
[[nodiscard]] CommandResult failure(int status, const QString &sentence);
/// Says that there is no such window yet.
[[nodiscard]] CommandResult later(const QString &window);

} // namespace corvane
