#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <array>
#include <cstdlib>
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
    explicit XConnection(const QString &displayName);
    ~XConnection() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(XConnection)

    [[nodiscard]] bool isValid() const { return !xcb_connection_has_error(m_connection); }
    [[nodiscard]] xcb_connection_t *raw() const { return m_connection; }
    [[nodiscard]] const xcb_screen_t &screen() const { return *m_screen; }
    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }

    [[nodiscard]] xcb_atom_t atom(const QByteArray &name);
    /// The property's bytes, whatever its type; empty when it is absent.
    [[nodiscard]] QByteArray property(xcb_window_t window, const QByteArray &name);
    [[nodiscard]] QList<quint32> numbers(xcb_window_t window, const QByteArray &name);
    void setNumbers(xcb_window_t window, const QByteArray &name, const QByteArray &type,
        const QList<quint32> &values);
    void setBytes(xcb_window_t window, const QByteArray &name, const QByteArray &type,
        const QByteArray &bytes);
    /// A client message about `window` to the root window, as task bars send them.
    void sendToRoot(
        xcb_window_t window, const QByteArray &type, const std::array<quint32, 5> &data);
    /// Returns once the server has dealt with every request so far.
    void sync();

private:
    xcb_connection_t *m_connection;
    const xcb_screen_t *m_screen = nullptr;
    QHash<QByteArray, xcb_atom_t> m_atoms;
};

} // namespace corvane::desktop
