#include "XConnection.h"

#include <cstring>

namespace corvane::desktop {

XConnection::XConnection(const QString &displayName)
    : m_connection(xcb_connect(displayName.toLatin1().constData(), nullptr))
{
    if (isValid())
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
}

xcb_atom_t XConnection::atom(const QByteArray &name)
{
    if (const auto known = m_atoms.constFind(name); known != m_atoms.constEnd())
        return *known;
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<quint16>(name.size()), name.constData());
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? *m_atoms.insert(name, reply->atom) : 0u;
}

QByteArray XConnection::property(xcb_window_t window, const QByteArray &name)
{
    const auto cookie = xcb_get_property(
        m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 20);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get())};
}

QList<quint32> XConnection::numbers(xcb_window_t window, const QByteArray &name)
{
    const QByteArray bytes = property(window, name);
    QList<quint32> values(bytes.size() / 4);
    if (!values.isEmpty())
        std::memcpy(values.data(), bytes.constData(), static_cast<size_t>(values.size()) * 4);
    return values;
}

void XConnection::setNumbers(xcb_window_t window, const QByteArray &name, const QByteArray &type,
    const QList<quint32> &values)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 32,
        static_cast<quint32>(values.size()), values.constData());
}

void XConnection::setBytes(
    xcb_window_t window, const QByteArray &name, const QByteArray &type, const QByteArray &bytes)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 8,
        static_cast<quint32>(bytes.size()), bytes.constData());
}

void XConnection::sendToRoot(
    xcb_window_t window, const QByteArray &type, const std::array<quint32, 5> &data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(m_connection, 0, root(),
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
        reinterpret_cast<const char *>(&event));
    sync();
}

void XConnection::sync()
{
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace corvane::desktop
