#pragma once

#include "Connection.h"
#include "FreedesktopSession.h"

#include <QtCore/QHash>

namespace corvane::x11 {

class X11Session final : public freedesktop::FreedesktopSession
{
    Q_OBJECT

public:
    explicit X11Session(Connection &connection);

    bool isPointerButtonDown() override;
    /// Returns once a window that is shown next will be shown that way.
    void setListed(quint64 window, bool isListed) override;

private:
    [[nodiscard]] bool isManaged(xcb_window_t window);
    void changeProperty(xcb_window_t window, bool isListed);
    void askWindowManager(xcb_window_t window, bool isListed);

    Connection &m_connection;
    QHash<quint64, bool> m_missed; ///< what was asked for while nothing answered
};

} // namespace corvane::x11
