#pragma once

#include "AXError.h"
#include "Placement.h"

#include <QtCore/QStringList>

#include <optional>

namespace corvane {

/// What the user asked for on the command line.
struct CommandLine {
    static constexpr int usualHistory = 20;

    std::optional<Placement> place;
    std::optional<QString> capture; ///< the new layout's name
    std::optional<QString> applyLayout; ///< a layout's name or id
    bool layouts = false;
    std::optional<int> history; ///< how many of the newest moves to show
    bool printSettings = false;
    bool json = false;
    bool verbose = false;
    bool help = false;
    bool version = false;

    bool operator==(const CommandLine &) const = default;

    /// The error is one sentence that names what exists.
    [[nodiscard]] static expected<CommandLine, QString> parse(const QStringList &arguments);
    [[nodiscard]] static QString helpText();
    [[nodiscard]] static QString versionText();
};

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

    bool operator==(const CommandResult &) const = default;
};

} // namespace corvane
