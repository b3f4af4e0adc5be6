#include "EmbeddingTray.h"

#include "QtX11.h"

#include <QtCore/QCoreApplication>

namespace corvane::x11 {

EmbeddingTray::EmbeddingTray() : m_connection(QtX11::connection())
{
    if (!m_connection)
        return;
    m_selection = QtX11::atom(m_connection, "_NET_SYSTEM_TRAY_S0");
    m_manager = QtX11::atom(m_connection, "MANAGER");
    QCoreApplication::instance()->installNativeEventFilter(this);
    refresh();
}

bool EmbeddingTray::nativeEventFilter(const QByteArray &, void *message, qintptr *)
{
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int kind = event->response_type & 0x7f;
    if (kind == XCB_CLIENT_MESSAGE) {
        const auto *told = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if (told->type == m_manager && told->data.data32[1] == m_selection)
            refresh();
    } else if (kind == XCB_DESTROY_NOTIFY && m_window != noWindow) {
        if (reinterpret_cast<const xcb_destroy_notify_event_t *>(event)->window == m_window)
            refresh();
    }
    return false;
}

void EmbeddingTray::refresh()
{
    m_window = QtX11::selectionOwner(m_connection, m_selection);
    if (isThere()) {
        // The same events as Qt selects there on this connection once it shows an icon.
        const quint32 events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_window, XCB_CW_EVENT_MASK, &events);
    }
    Q_EMIT changed();
}

} // namespace corvane::x11
