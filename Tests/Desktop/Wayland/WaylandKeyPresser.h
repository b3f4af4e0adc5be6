#pragma once

#include "Expected.h"
#include "Keys.h"
#include "WaylandConnection.h"

#include <memory>
#include <xkbcommon/xkbcommon.h>

namespace corvane::desktop {

/// A keyboard and a mouse that are plugged into a Wayland desktop while this object lives.
class WaylandKeyPresser : public Keys
{
public:
    /// The error is a sentence. `desk` tells how large the whole desktop is.
    [[nodiscard]] static expected<std::unique_ptr<WaylandKeyPresser>, QString> plugIn(
        const QString &displayName, const std::function<Size()> &desk);

    /// What the keys mean becomes that of "us", "de", "us,fr" ...; false where the desktop decides.
    [[nodiscard]] virtual bool setLayouts(const QByteArray &) { return false; }

protected:
    explicit WaylandKeyPresser(std::unique_ptr<WaylandConnection> connection)
        : m_connection(std::move(connection))
    {
    }

    void sync() override { m_connection->sync(); }
    [[nodiscard]] WaylandConnection &connection() { return *m_connection; }

private:
    std::unique_ptr<WaylandConnection> m_connection;
};

} // namespace corvane::desktop
