#include "ProcessHandle.h"

#include <QtCore/QSocketNotifier>

#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace corvane::freedesktop {

ProcessHandle::ProcessHandle(pid_t pid)
    : m_descriptor(static_cast<int>(syscall(SYS_pidfd_open, pid, 0)))
{
    if (!isValid())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        Q_EMIT ended();
    });
}

ProcessHandle::~ProcessHandle()
{
    m_notifier.reset();
    if (isValid())
        close(m_descriptor);
}

bool ProcessHandle::hasEnded() const
{
    pollfd state{m_descriptor, POLLIN, 0};
    return poll(&state, 1, 0) > 0;
}

void ProcessHandle::terminate() const
{
    syscall(SYS_pidfd_send_signal, m_descriptor, SIGTERM, nullptr, 0);
}

void ProcessHandle::kill() const
{
    syscall(SYS_pidfd_send_signal, m_descriptor, SIGKILL, nullptr, 0);
}

} // namespace corvane::freedesktop
