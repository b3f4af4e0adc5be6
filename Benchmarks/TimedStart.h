#pragma once

#include "Waiting.h"

#include <QtCore/QProcessEnvironment>

#include <optional>
#include <sys/types.h>

namespace corvane::bench {

/// A program started for the time that it takes to say "ready" on standard error. It ends with this
/// object.
class TimedStart
{
public:
    TimedStart(const QString &program, const QStringList &arguments,
        const QProcessEnvironment &environment);
    ~TimedStart();
    Q_DISABLE_COPY_MOVE(TimedStart)

    /// Milliseconds; nothing when the program did not get that far.
    [[nodiscard]] std::optional<double> untilReady() const { return m_untilReady; }

private:
    [[nodiscard]] bool waitForReadyLine(desktop::Milliseconds patience);

    pid_t m_pid = 0;
    int m_output = -1;
    std::optional<double> m_untilReady;
};

} // namespace corvane::bench
