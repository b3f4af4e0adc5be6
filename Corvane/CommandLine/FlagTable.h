#pragma once

#include "CommandLine.h"

#include <span>

namespace corvane {

/// One flag of the command line. A new flag is a row of the table in the .cpp.
struct FlagRow {
    QLatin1StringView name;
    QLatin1StringView value; ///< what the help calls it, in brackets where it may be left out
    QLatin1StringView help;
    /// Writes what the flag asks for into the command line. The value is empty where none was given.
    /// False when there is no such value.
    bool (*set)(CommandLine &line, const QString &value);
    QString (*offer)() = nullptr; ///< says which values there are
};

/// The flags that are answered at once, and those that say how.
[[nodiscard]] std::span<const FlagRow> commandFlags();
/// The flags that have the running program show something.
[[nodiscard]] std::span<const FlagRow> screenFlags();
/// Null where there is no such flag.
[[nodiscard]] const FlagRow *flagNamed(const QString &name);

} // namespace corvane
