// Loads what Corvane is made of, connects to the X server and to the session bus, says so and ends:
// the part of a start that no code of ours can shorten.

#include <QtDBus/QDBusConnection>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <xcb/xcb.h>

int main(int argc, char **argv)
{
    QApplication::setDesktopSettingsAware(false);
    QApplication application(argc, argv);
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool isConnected =
        !xcb_connection_has_error(connection) && QDBusConnection::sessionBus().isConnected();
    if (isConnected)
        std::fputs("ready\n", stderr);
    xcb_disconnect(connection);
    return isConnected ? 0 : 1;
}
