#include "PopupGrab.h"

#include "QtX11.h"

#include <QtGui/QWindow>
#include <QtWidgets/QMenu>

namespace corvane {

using namespace std::chrono_literals;

namespace {

// Qt takes any answer of the server for consent, a refusal too.
bool isPointerFree(const QWindow &window)
{
    xcb_connection_t *connection = QtX11::connection();
    if (!connection)
        return true;
    const auto cookie = xcb_grab_pointer(connection, 0, static_cast<xcb_window_t>(window.winId()),
        XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE,
        XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const QtX11::Reply<xcb_grab_pointer_reply_t> reply(
        xcb_grab_pointer_reply(connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

} // namespace

PopupGrab::PopupGrab(QObject *parent) : QObject(parent)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(15ms);
    connect(&m_retry, &QTimer::timeout, this, &PopupGrab::attempt);
}

void PopupGrab::hold(QMenu &menu)
{
    m_menu = &menu;
    m_deadline.setRemainingTime(3s);
    attempt();
}

void PopupGrab::attempt()
{
    if (!m_menu->isVisible())
        return;
    QWindow *window = m_menu->windowHandle();
    if (window->setKeyboardGrabEnabled(true) && isPointerFree(*window)
        && window->setMouseGrabEnabled(true))
        return;
    if (m_deadline.hasExpired())
        m_menu->close();
    else
        m_retry.start();
}

} // namespace corvane
