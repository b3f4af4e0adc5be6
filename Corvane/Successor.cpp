#include "Successor.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcessEnvironment>

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *succeeds = "CORVANE_SUCCEEDS";
constexpr int goneWithin = 2'000; // milliseconds from the program's end to its compositor's
constexpr int answersWithin = 5'000;
constexpr timespec pause{.tv_sec = 0, .tv_nsec = 500'000'000};
constexpr int mostTries = 120;

std::optional<sockaddr_un> displayAddress()
{
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    const QByteArray path = QFile::encodeName(
        QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).filePath(QFile::decodeName(name)));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.isEmpty() || size_t(path.size()) >= sizeof(address.sun_path))
        return std::nullopt;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    return address;
}

// From here on nothing may allocate or lock: it runs in a copy of one thread of the program.

int connectTo(const sockaddr_un &address)
{
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file >= 0
        && connect(file, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0)
        return file;
    close(file);
    return -1;
}

/// The socket may be held open for a compositor that is yet to come, so it is asked for its globals.
bool answers(const sockaddr_un &address)
{
    const int file = connectTo(address);
    if (file < 0)
        return false;
    constexpr uint32_t displayObject = 1;
    constexpr uint32_t getRegistry = 12 << 16 | 1; // its size in bytes and its number
    constexpr uint32_t newObject = 2;
    constexpr std::array request{displayObject, getRegistry, newObject};
    pollfd answer{file, POLLIN, 0};
    const bool isServed = send(file, request.data(), sizeof(request), MSG_NOSIGNAL) > 0
        && poll(&answer, 1, answersWithin) > 0 && !(answer.revents & POLLHUP);
    close(file);
    return isServed;
}

struct Start {
    sockaddr_un address;
    const char *program;
    char *const *arguments;
    char *const *variables;
};

[[noreturn]] void waitAndStart(int life, int display, const Start &start)
{
    char farewell = 0;
    ssize_t count = 0;
    do
        count = read(life, &farewell, 1);
    while (count < 0 && errno == EINTR);
    pollfd gone{display, 0, 0};
    if (count != 0 || poll(&gone, 1, goneWithin) <= 0)
        _exit(0);
    for (int tries = 0; tries < mostTries; ++tries) {
        nanosleep(&pause, nullptr);
        if (answers(start.address))
            execve(start.program, start.arguments, start.variables);
    }
    _exit(1);
}

void keepOnly(int first, int second)
{
    const auto [low, high] = std::minmax(first, second);
    // The standard ones stay: the next program's log goes where this one's did.
    close_range(3, unsigned(low) - 1, 0);
    if (low + 1 < high)
        close_range(unsigned(low) + 1, unsigned(high) - 1, 0);
    close_range(unsigned(high) + 1, ~0U, 0);
}

} // namespace

Successor::Successor(const QByteArray &backEnd)
{
    const auto address = displayAddress();
    std::array<int, 2> life{};
    const FileDescriptor display(address ? connectTo(*address) : -1);
    if (!display.isOpen() || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, life.data()) != 0)
        return;
    m_life = FileDescriptor(life[0]);
    const FileDescriptor others(life[1]);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(succeeds), u"1"_s);
    environment.insert(u"CORVANE_BACKEND"_s, QString::fromLatin1(backEnd));
    QByteArrayList texts;
    for (const QString &each : environment.toStringList())
        texts << each.toLocal8Bit();
    std::vector<char *> variables;
    for (QByteArray &each : texts)
        variables.push_back(each.data());
    variables.push_back(nullptr);
    QByteArray program = QFile::encodeName(QFile::symLinkTarget(u"/proc/self/exe"_s));
    std::array<char *, 3> arguments{program.data(), nullptr, nullptr};

    if (fork() != 0)
        return;
    setsid();
    keepOnly(others.number(), display.number());
    waitAndStart(others.number(), display.number(),
        {*address, program.constData(), arguments.data(), variables.data()});
}

Successor::~Successor()
{
    if (m_life.isOpen())
        std::ignore = m_life.write("q");
}

bool Successor::isOne()
{
    static const bool isOne = qEnvironmentVariableIsSet(succeeds);
    // What it starts itself is none.
    qunsetenv(succeeds);
    return isOne;
}

} // namespace corvane
