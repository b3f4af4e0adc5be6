#include "ClientWindows.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;
using Steady = std::chrono::steady_clock;

namespace {

// Long enough for a window manager to have adopted the oldest of them.
constexpr size_t churnedAtOnce = 8;

} // namespace

ClientWindows::ClientWindows(XConnection &connection) : m_connection(connection) { }

QJsonObject ClientWindows::carryOut(const QJsonObject &request)
{
    const QString action = request["do"_L1].toString();
    if (action == "open"_L1)
        return open(WindowRequest::fromJson(request["window"_L1].toObject()));
    if (action == "close"_L1) {
        close(static_cast<xcb_window_t>(request["window"_L1].toInteger()));
        return {{u"done"_s, true}};
    }
    if (action == "hints"_L1) {
        const auto change = WindowRequest::fromJson(request["window"_L1].toObject());
        if (ClientWindow *window = find(change.number))
            window->setHints(change.hints);
        return {{u"done"_s, true}};
    }
    if (action == "churn"_L1) {
        m_churnInterval = std::chrono::microseconds(1000000 / request["perSecond"_L1].toInt(1));
        m_churnLeft = request["count"_L1].toInt();
        m_churnOpened = 0;
        m_nextChurn = Steady::now();
    }
    return {};
}

void ClientWindows::readEvents()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.raw())}) {
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY) {
            const auto &change = reinterpret_cast<xcb_property_notify_event_t &>(*event);
            ClientWindow *window = find(change.window);
            if (window && change.atom == m_connection.atom("_NET_WM_STATE"))
                window->stateChanged(Steady::now());
        } else if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
            const auto &message = reinterpret_cast<xcb_client_message_event_t &>(*event);
            if (message.type == m_connection.atom("WM_PROTOCOLS"))
                close(message.window);
        }
    }
}

QJsonObject ClientWindows::doWhatIsDue()
{
    const Time now = Steady::now();
    for (ClientWindow &window : m_windows) {
        if (window.shadowDue() && *window.shadowDue() <= now)
            window.adaptShadow();
    }
    return m_churnLeft > 0 && m_nextChurn <= now ? churn(now) : QJsonObject();
}

int ClientWindows::untilDue() const
{
    std::optional<Time> next;
    const auto consider = [&](Time time) { next = next ? std::min(*next, time) : time; };
    for (const ClientWindow &window : m_windows) {
        if (window.shadowDue())
            consider(*window.shadowDue());
    }
    if (m_churnLeft > 0)
        consider(m_nextChurn);
    if (!next)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - Steady::now());
    return static_cast<int>(std::max<qint64>(0, left.count()));
}

QJsonObject ClientWindows::open(const WindowRequest &request)
{
    m_windows.emplace_back(m_connection, request);
    return {{u"window"_s, static_cast<qint64>(m_windows.back().number())}};
}

void ClientWindows::close(xcb_window_t number)
{
    if (ClientWindow *window = find(number)) {
        window->destroy();
        m_windows.remove_if([number](const ClientWindow &each) { return each.number() == number; });
    }
}

ClientWindow *ClientWindows::find(xcb_window_t number)
{
    const auto window = std::ranges::find(m_windows, number, &ClientWindow::number);
    return window == m_windows.end() ? nullptr : &*window;
}

QJsonObject ClientWindows::churn(Time now)
{
    WindowRequest request;
    request.geometry.x += m_churnOpened % 50 * 10;
    request.title = "Window " + QByteArray::number(m_churnOpened);
    m_churned.emplace_back(m_connection, request);
    ++m_churnOpened;
    --m_churnLeft;
    m_nextChurn = std::max(m_nextChurn + m_churnInterval, now - 10 * m_churnInterval);
    while (!m_churned.empty() && (m_churned.size() > churnedAtOnce || m_churnLeft == 0)) {
        m_churned.front().destroy();
        m_churned.pop_front();
    }
    return m_churnLeft == 0 ? QJsonObject{{u"opened"_s, m_churnOpened}} : QJsonObject();
}

} // namespace corvane::desktop
