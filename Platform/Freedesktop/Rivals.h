#pragma once

#include "Applications.h"
#include "ProcessFiles.h"
#include "ProcessHandle.h"

#include <map>

namespace corvane::freedesktop {

/// The programs of Linux desktops that move windows by shortcuts or rules. Most have no window, so
/// they are found among the user's processes, and only while somebody asks.
class Rivals final : public QObject
{
    Q_OBJECT

public:
    /// The programs of this kind that run in this session, in the order of the table, each with its
    /// first process.
    [[nodiscard]] QList<RunningApplication> running();
    /// Asks one of the last ones found to end; any other process stays untouched.
    void terminate(pid_t pid);

Q_SIGNALS:
    /// One of the last ones found is gone.
    void ended(pid_t pid);

private:
    [[nodiscard]] bool hold(pid_t pid, QLatin1StringView program);

    ProcessFiles m_files;
    std::map<pid_t, std::unique_ptr<ProcessHandle>> m_held;
};

} // namespace corvane::freedesktop
