#pragma once

#include "DesktopEntries.h"
#include "ProcessFiles.h"

namespace corvane::freedesktop {

/// What a window says of the application that it belongs to.
struct ApplicationTraces {
    pid_t pid = 0;
    QString publishedId; ///< by the toolkit; an entry's id, file name or path
    QString className; ///< both parts of WM_CLASS
    QString instanceName;

    bool operator==(const ApplicationTraces &) const = default;
};

/// The installed application behind a window. The surest sign decides: what the toolkit publishes, the
/// sandbox, the class that an entry announces, an id like the class, the program that runs. A Java
/// program is named by the last part of its class.
[[nodiscard]] std::optional<DesktopEntry> findApplication(DesktopEntries &entries,
    const ApplicationTraces &traces, const ProcessFiles &processes = ProcessFiles());

/// What an application without an entry is called: its windows' class, else the program that runs.
[[nodiscard]] QString plainName(
    const ApplicationTraces &traces, const ProcessFiles &processes = ProcessFiles());

} // namespace corvane::freedesktop
