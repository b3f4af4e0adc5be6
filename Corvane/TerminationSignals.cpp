#include "TerminationSignals.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace corvane {

namespace {

constexpr std::array signalNumbers{SIGHUP, SIGINT, SIGTERM};

/// Of a pipe from the handler, which may do next to nothing, to the event loop.
std::array<int, 2> ends{-1, -1};

extern "C" void tellEventLoop(int)
{
    const int kept = errno;
    [[maybe_unused]] const ssize_t written = ::write(ends[1], "", 1);
    errno = kept;
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action = {};
    action.sa_handler = tellEventLoop;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int number : signalNumbers) {
        struct sigaction previous = {};
        // Who started it may have had a signal ignored, as nohup does.
        if (::sigaction(number, nullptr, &previous) == 0 && previous.sa_handler == SIG_DFL)
            ::sigaction(number, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (const int number : signalNumbers)
        ::signal(number, SIG_DFL);
    for (int &end : ends)
        ::close(std::exchange(end, -1));
}

} // namespace corvane
