#include "EmbeddingTray.h"

#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <memory>

namespace corvane {

namespace {

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

xcb_intern_atom_cookie_t ask(xcb_connection_t *connection, QByteArrayView name)
{
    return xcb_intern_atom(connection, 0, static_cast<quint16>(name.size()), name.data());
}

xcb_atom_t atom(xcb_connection_t *connection, xcb_intern_atom_cookie_t cookie)
{
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

EmbeddingTray::EmbeddingTray(QObject *parent) : QObject(parent)
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection)
        return;
    const auto selection = ask(m_connection, "_NET_SYSTEM_TRAY_S0");
    const auto manager = ask(m_connection, "MANAGER");
    m_selection = atom(m_connection, selection);
    m_manager = atom(m_connection, manager);
    qGuiApp->installNativeEventFilter(this);
    look();
}

bool EmbeddingTray::nativeEventFilter(const QByteArray &, void *message, qintptr *)
{
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int kind = event->response_type & 0x7f;
    if (kind == XCB_CLIENT_MESSAGE) {
        const auto *told = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if (told->type == m_manager && told->data.data32[1] == m_selection)
            look();
    } else if (kind == XCB_DESTROY_NOTIFY && m_window != XCB_WINDOW_NONE) {
        if (reinterpret_cast<const xcb_destroy_notify_event_t *>(event)->window == m_window)
            look();
    }
    return false;
}

void EmbeddingTray::look()
{
    const auto cookie = xcb_get_selection_owner(m_connection, m_selection);
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    m_window = reply ? reply->owner : xcb_window_t(XCB_WINDOW_NONE);
    if (isThere()) {
        // The same events as Qt selects there on this connection once it shows an icon.
        const quint32 events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_window, XCB_CW_EVENT_MASK, &events);
    }
    Q_EMIT changed();
}

} // namespace corvane
