#pragma once

#include <QtCore/QString>

namespace corvane {

/// Whether a command answers the user or a script.
enum class ReportForm {
    text,
    json, ///< in one line
};

/// What a command line comes to: what goes to standard output and standard error, and the exit status.
struct CommandResult {
    enum Status : int {
        done = 0,
        refused = 1, ///< the desktop refused, or there was nothing to do
        misused = 2, ///< the command line names what does not exist
    };

    int status = done;
    QString output;
    QString error;

    /// Both results, one after the other, with the worse status.
    CommandResult &operator+=(const CommandResult &next);
    bool operator==(const CommandResult &) const = default;
};

/// The result of a failure: the sentence on standard error, where it stays one line whatever it quotes.
[[nodiscard]] CommandResult failure(int status, const QString &sentence);
/// The result of asking for a window that the program does not have yet.
[[nodiscard]] CommandResult later(const QString &window);

} // namespace corvane
