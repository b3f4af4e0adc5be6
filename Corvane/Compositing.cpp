#include "Compositing.h"

#include <QtCore/QByteArray>
#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace corvane {

namespace {

template <typename Reply>
using Answer = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Answer<Reply> answer(Reply *reply)
{
    return {reply, &std::free};
}

} // namespace

// A compositing manager owns the selection made for that, one per X screen.
bool showsTranslucency()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return true;
    xcb_connection_t *connection = x11->connection();
    const QByteArray name("_NET_WM_CM_S0");
    const auto atom = answer(xcb_intern_atom_reply(connection,
        xcb_intern_atom(connection, 0, static_cast<quint16>(name.size()), name.constData()),
        nullptr));
    if (!atom)
        return false;
    const auto owner = answer(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace corvane
