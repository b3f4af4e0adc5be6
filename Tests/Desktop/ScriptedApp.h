#pragma once

#include "ClientWindow.h"

#include <list>

namespace corvane::desktop {

/// What the test application does: it takes its steps one after another, each a verb or `verb=value`.
///
///     open=TITLE        opens a window            splash          opens a splash screen
///     demand-attention  for the newest one, as soon as it has not the focus
///     close             closes the oldest one     resize=WxH      the newest one resizes itself
///     wait=MS           lets time pass            wait-until-resized  by somebody else
///     only-one=PIPE     leaves the rest to the copy that reads the pipe; else is that copy from here on
///     quit              ends the application, which otherwise stays
class ScriptedApp
{
public:
    ScriptedApp(XConnection &connection, QByteArray className, QByteArrayList steps);

    /// Takes the steps that are due. False when the application is to end.
    [[nodiscard]] bool advance();

private:
    using Time = ClientWindow::Time;

    // Each returns whether the step is done; if not, it is taken again later.
    bool open(const QByteArray &title);
    bool splash(const QByteArray &);
    bool close(const QByteArray &);
    bool resize(const QByteArray &size);
    bool wait(const QByteArray &milliseconds);
    bool waitUntilResized(const QByteArray &);
    bool onlyOne(const QByteArray &pipe);
    bool quit(const QByteArray &);
    bool demandAttention(const QByteArray &);

    bool take(const QByteArray &step);
    void readPipe();
    void show(WindowRequest request);

    XConnection &m_connection;
    QByteArray m_className;
    QByteArrayList m_steps;
    std::list<ClientWindow> m_windows;
    Size m_ownSize; ///< of the newest window, as the application wants it
    std::optional<Time> m_waitingSince;
    int m_pipe = -1;
    bool m_isOver = false;
};

} // namespace corvane::desktop
