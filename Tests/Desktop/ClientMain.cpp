#include "ClientWindows.h"

#include <QtCore/QJsonDocument>

#include <array>
#include <poll.h>
#include <unistd.h>

using namespace corvane::desktop;

namespace {

void answer(const QJsonObject &object)
{
    if (object.isEmpty())
        return;
    const QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    if (::write(STDOUT_FILENO, line.constData(), static_cast<size_t>(line.size())) < 0)
        ::_exit(1);
}

// False at the end of the input.
bool readRequests(QByteArray &pending, ClientWindows &windows)
{
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count <= 0)
        return false;
    pending.append(buffer.data(), count);
    for (qsizetype end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
        answer(windows.carryOut(QJsonDocument::fromJson(pending.left(end)).object()));
        pending.remove(0, end + 1);
    }
    return true;
}

} // namespace

/// Opens windows as its standard input asks, one JSON object a line, and answers line by line.
int main()
{
    XConnection connection(qEnvironmentVariable("DISPLAY"));
    if (!connection.isValid())
        return 1;
    ClientWindows windows(connection);
    QByteArray pending;
    std::array<pollfd, 2> sources{pollfd{STDIN_FILENO, POLLIN, 0},
        pollfd{xcb_get_file_descriptor(connection.raw()), POLLIN, 0}};
    while (connection.isValid()) {
        windows.readEvents();
        answer(windows.doWhatIsDue());
        xcb_flush(connection.raw());
        ::poll(sources.data(), sources.size(), windows.untilDue());
        if (sources[0].revents && !readRequests(pending, windows))
            return 0;
    }
    return 1;
}
