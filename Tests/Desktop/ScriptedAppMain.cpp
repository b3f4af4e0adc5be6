#include "ScriptedApp.h"

#include <QtCore/QFile>

#include <poll.h>
#include <unistd.h>

using namespace corvane::desktop;

/// An application as a desktop entry starts it: corvane-test-app JOURNAL CLASS [STEP...]. The journal
/// gets a line for every start: the process.
int main(int argc, char *argv[])
{
    if (argc < 3)
        return 2;
    QFile journal(QFile::decodeName(argv[1]));
    if (!journal.open(QIODevice::WriteOnly | QIODevice::Append)
        || journal.write(QByteArray::number(::getpid()) + '\n') < 0)
        return 1;
    journal.close();
    XConnection connection(qEnvironmentVariable("DISPLAY"));
    ScriptedApp application(connection, argv[2], QByteArrayList(argv + 3, argv + argc));
    constexpr int pause = 20; // ms
    while (connection.isValid() && application.advance()) {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection.raw())})
            continue;
        xcb_flush(connection.raw());
        ::poll(nullptr, 0, pause);
    }
    return 0;
}
