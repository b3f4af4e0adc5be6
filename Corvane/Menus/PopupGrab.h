#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>

class QMenu;

namespace corvane {

/// Has an open menu hold the pointer and the keyboard. Another program may still have one of them when
/// the menu opens: a panel until the mouse button is up, a window manager until the keys of its
/// shortcut are.
class PopupGrab final : public QObject
{
    Q_OBJECT

public:
    PopupGrab();

    /// Tries, from when the menu has opened. A menu that gets nothing for three seconds closes, since
    /// neither a click elsewhere nor Escape could close it.
    void hold(QMenu &menu);

private:
    void attempt();

    QMenu *m_menu = nullptr;
    QTimer m_retry;
    QDeadlineTimer m_deadline;
};

} // namespace corvane
