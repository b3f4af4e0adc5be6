#pragma once

#include "CommandLine.h"

#include <span>

namespace corvane {

struct FlagRow {
    QLatin1StringView name;
    QLatin1StringView value; ///< as the help shows it, in brackets where it may be left out
    QLatin1StringView help;
    /// False when there is no such value; an empty one when none was given.
    bool (*set)(CommandLine &line, const QString &value);
    QString (*offer)() = nullptr; ///< the values that exist
};

/// Flags that are answered at once, or that say how.
[[nodiscard]] std::span<const FlagRow> commandFlags();
/// Flags that have the running program show something.
[[nodiscard]] std::span<const FlagRow> screenFlags();
[[nodiscard]] const FlagRow *flagNamed(const QString &name);

} // namespace corvane
