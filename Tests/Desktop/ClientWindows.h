#pragma once

#include "ClientWindow.h"

#include <QtCore/QJsonObject>

#include <list>

namespace corvane::desktop {

/// The test client's windows and what it has been asked to do with them.
class ClientWindows
{
public:
    explicit ClientWindows(XConnection &connection);

    /// Carries out one request; the answer goes back as one line, unless it is empty.
    [[nodiscard]] QJsonObject carryOut(const QJsonObject &request);
    /// Deals with every waiting event.
    void readEvents();
    /// Does what is due by now; returns an answer when a churn has just ended.
    [[nodiscard]] QJsonObject doWhatIsDue();
    /// Milliseconds until something is due; -1 when nothing is.
    [[nodiscard]] int untilDue() const;

private:
    using Time = ClientWindow::Time;

    QJsonObject open(const WindowRequest &request);
    void close(xcb_window_t number);
    ClientWindow *find(xcb_window_t number);
    QJsonObject churn(Time now);

    XConnection &m_connection;
    std::list<ClientWindow> m_windows;
    std::list<ClientWindow> m_churned;
    std::chrono::microseconds m_churnInterval{0};
    Time m_nextChurn;
    int m_churnLeft = 0;
    int m_churnOpened = 0;
};

} // namespace corvane::desktop
