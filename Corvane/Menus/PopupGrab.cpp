#include "PopupGrab.h"

#include "Platform.h"

#include <QtGui/QWindow>
#include <QtWidgets/QMenu>

namespace corvane {

using namespace std::chrono_literals;

PopupGrab::PopupGrab()
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(15ms);
    connect(&m_retry, &QTimer::timeout, this, &PopupGrab::attempt);
}

void PopupGrab::hold(QMenu &menu)
{
    if (!Platform::current().ownWindows().knowsPlaces())
        return;
    m_menu = &menu;
    m_deadline.setRemainingTime(3s);
    attempt();
}

void PopupGrab::attempt()
{
    if (!m_menu->isVisible())
        return;
    QWindow *window = m_menu->windowHandle();
    if (window->setKeyboardGrabEnabled(true)
        && Platform::current().ownWindows().takePointer(window->winId())
        && window->setMouseGrabEnabled(true))
        return;
    if (m_deadline.hasExpired())
        m_menu->close();
    else
        m_retry.start();
}

} // namespace corvane
