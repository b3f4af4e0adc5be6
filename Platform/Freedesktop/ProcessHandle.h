#pragma once

#include <QtCore/QObject>

#include <memory>
#include <sys/types.h>

class QSocketNotifier;

namespace corvane::freedesktop {

/// One process, and never another one that gets its number later (pidfd, Linux 5.3).
class ProcessHandle final : public QObject
{
    Q_OBJECT

public:
    explicit ProcessHandle(pid_t pid);
    ~ProcessHandle() override;
    Q_DISABLE_COPY_MOVE(ProcessHandle)

    /// False where there was no such process, or the kernel gives out no handles.
    [[nodiscard]] bool isValid() const { return m_descriptor >= 0; }
    [[nodiscard]] bool hasEnded() const;
    /// Asks it to end, as a session does that ends.
    void terminate() const;
    /// Ends it, whatever it is doing.
    void kill() const;

Q_SIGNALS:
    /// The process has ended. Sent once; nothing polls for it.
    void ended();

private:
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace corvane::freedesktop
