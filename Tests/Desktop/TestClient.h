#pragma once

#include "VirtualDesktop.h"
#include "WindowRequest.h"

namespace corvane::desktop {

/// An application of ours, a process of its own, which opens any kind of window on request.
class TestClient : public ChildProcess
{
public:
    explicit TestClient(VirtualDesktop &desktop);

    /// The number of the new window, once the server knows it; 0 when the client did not answer.
    [[nodiscard]] xcb_window_t open(const WindowRequest &request)
    {
        writeLine("window=" + request.toBytes().toHex());
        return answer();
    }
    /// As `open`, and waits until the window manager shows the window and has put it at rest.
    [[nodiscard]] xcb_window_t show(const WindowRequest &request);
    void close(xcb_window_t window)
    {
        writeLine("close=" + QByteArray::number(window));
        answer();
    }

private:
    quint32 answer() { return readLine().value_or(QByteArray()).toUInt(); }

    XConnection &m_connection;
};

/// An application that a session has a desktop entry of, which ends with this object. Its windows have
/// the entry's id as their class.
class InstalledApp
{
public:
    /// One that runs this command.
    InstalledApp(PrivateSession &session, QString id, const QStringList &command);
    /// A test client that takes these steps (see ClientMain.cpp) whenever it is started.
    [[nodiscard]] static std::unique_ptr<InstalledApp> scripted(
        PrivateSession &session, const QString &id, const QStringList &steps);
    ~InstalledApp();
    Q_DISABLE_COPY_MOVE(InstalledApp)

    [[nodiscard]] const QString &id() const { return m_id; }
    /// Starts it as its entry says.
    [[nodiscard]] std::unique_ptr<ChildProcess> start() const
    {
        return m_session.launch(m_command.first(), m_command.mid(1));
    }
    /// The processes of one that takes steps, whoever started them.
    [[nodiscard]] QList<pid_t> copies() const;

private:
    PrivateSession &m_session;
    QString m_id;
    QStringList m_command;
    QString m_entryPath;
};

} // namespace corvane::desktop
