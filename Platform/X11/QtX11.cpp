#include "QtX11.h"

#include "Connection.h"

#include <QtGui/QGuiApplication>

namespace corvane::x11::QtX11 {

xcb_connection_t *connection()
{
    // A program that only answers a command line has an application object without windows.
    const auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    const auto *x11 =
        application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *connection, QByteArrayView name)
{
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<quint16>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : noAtom;
}

xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection)
{
    const auto cookie = xcb_get_selection_owner(connection, selection);
    const Owned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply ? reply->owner : noWindow;
}

} // namespace corvane::x11::QtX11
