#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace corvane::desktop {

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// A connection of the tests' own, apart from anything under test.
class XConnection
{
public:
    explicit XConnection(const QString &displayName)
        : m_connection(xcb_connect(displayName.toLatin1().constData(), nullptr))
    {
        if (isValid())
            m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    }
    ~XConnection() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(XConnection)

    [[nodiscard]] bool isValid() const { return !xcb_connection_has_error(m_connection); }
    [[nodiscard]] xcb_connection_t *raw() const { return m_connection; }
    [[nodiscard]] const xcb_screen_t &screen() const { return *m_screen; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }

    /// What `take` (such as `xcb_get_geometry_reply`) fetches; nothing when the server refused.
    template <auto take, typename Cookie>
    [[nodiscard]] auto reply(Cookie cookie) const
    {
        auto *answer = take(m_connection, cookie, nullptr);
        return Reply<std::remove_pointer_t<decltype(answer)>>(answer);
    }

    [[nodiscard]] xcb_atom_t atom(const QByteArray &name)
    {
        if (const auto known = m_atoms.constFind(name); known != m_atoms.constEnd())
            return *known;
        const auto answer = reply<xcb_intern_atom_reply>(
            xcb_intern_atom(m_connection, 0, static_cast<quint16>(name.size()), name.constData()));
        return answer ? *m_atoms.insert(name, answer->atom) : 0u;
    }
    /// The property's bytes, whatever its type; empty when it is absent.
    [[nodiscard]] QByteArray property(xcb_window_t window, const QByteArray &name)
    {
        const auto answer = reply<xcb_get_property_reply>(xcb_get_property(
            m_connection, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 20));
        if (!answer)
            return {};
        return {static_cast<const char *>(xcb_get_property_value(answer.get())),
            xcb_get_property_value_length(answer.get())};
    }
    [[nodiscard]] QList<quint32> numbers(xcb_window_t window, const QByteArray &name)
    {
        const QByteArray bytes = property(window, name);
        QList<quint32> values(bytes.size() / 4);
        if (!values.isEmpty())
            std::memcpy(values.data(), bytes.constData(), static_cast<size_t>(values.size()) * 4);
        return values;
    }
    void setNumbers(xcb_window_t window, const QByteArray &name, const QByteArray &type,
        const QList<quint32> &values)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 32,
            static_cast<quint32>(values.size()), values.constData());
    }
    void setBytes(xcb_window_t window, const QByteArray &name, const QByteArray &type,
        const QByteArray &bytes)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 8,
            static_cast<quint32>(bytes.size()), bytes.constData());
    }
    /// A client message about `window` to the root window, as task bars send them.
    void sendToRoot(xcb_window_t window, const QByteArray &type, const std::array<quint32, 5> &data)
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
    /// Returns once the server has dealt with every request so far.
    void sync()
    {
        static_cast<void>(reply<xcb_get_input_focus_reply>(xcb_get_input_focus(m_connection)));
    }

private:
    xcb_connection_t *m_connection;
    const xcb_screen_t *m_screen = nullptr;
    QHash<QByteArray, xcb_atom_t> m_atoms;
};

} // namespace corvane::desktop
