#include "TimedStart.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace corvane::bench {

using namespace desktop;

namespace {

/// A list of strings as exec takes it; valid as long as the bytes are.
std::vector<char *> pointers(QByteArrayList &strings)
{
    std::vector<char *> result;
    for (QByteArray &string : strings)
        result.push_back(string.data());
    result.push_back(nullptr);
    return result;
}

QByteArrayList bytes(const QStringList &strings)
{
    QByteArrayList result;
    for (const QString &string : strings)
        result << string.toLocal8Bit();
    return result;
}

pid_t spawn(const QStringList &command, const QProcessEnvironment &environment, int standardError)
{
    QByteArrayList arguments = bytes(command);
    QByteArrayList variables = bytes(environment.toStringList());
    const std::vector<char *> argumentList = pointers(arguments);
    const std::vector<char *> variableList = pointers(variables);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, standardError, STDERR_FILENO);
    pid_t pid = 0;
    const int error = posix_spawn(
        &pid, argumentList[0], &actions, nullptr, argumentList.data(), variableList.data());
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? pid : 0;
}

} // namespace

TimedStart::TimedStart(
    const QString &program, const QStringList &arguments, const QProcessEnvironment &environment)
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    m_output = ends[0];
    const auto start = std::chrono::steady_clock::now();
    m_pid = spawn(QStringList(program) + arguments, environment, ends[1]);
    close(ends[1]);
    if (m_pid && waitForReadyLine(patience))
        m_untilReady =
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count();
}

TimedStart::~TimedStart()
{
    if (m_pid) {
        kill(m_pid, SIGTERM);
        waitpid(m_pid, nullptr, 0);
    }
    if (m_output >= 0)
        close(m_output);
}

bool TimedStart::waitForReadyLine(Milliseconds patience)
{
    QByteArray text("\n");
    std::array<char, 4096> buffer{};
    pollfd readable{m_output, POLLIN, 0};
    while (poll(&readable, 1, static_cast<int>(patience.count())) > 0) {
        const ssize_t count = read(m_output, buffer.data(), buffer.size());
        if (count <= 0)
            return false;
        text.append(buffer.data(), count);
        if (text.contains("\nready"))
            return true;
    }
    return false;
}

} // namespace corvane::bench
