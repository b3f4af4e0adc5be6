#pragma once

#include "VirtualDesktop.h"
#include "WindowRequest.h"

namespace corvane::desktop {

/// An application of ours, a process of its own, which opens any kind of window on request.
class WindowClient : public ChildProcess
{
public:
    explicit WindowClient(const PrivateSession &session);
    virtual ~WindowClient() = default;

    /// Returns once the desktop shows the window and has put it at rest. The number is that by which the
    /// desktop's hand knows the window; 0 when the desktop does not show it.
    [[nodiscard]] virtual quint32 show(const WindowRequest &request) = 0;
    virtual void close(quint32 window) = 0;
    /// What the desktop may not list among the windows; the client's own number.
    virtual quint32 showPanel(const WindowRequest &request) = 0;

    /// The client's own number of the new window, once the desktop has been told; 0 when the client did
    /// not answer.
    [[nodiscard]] quint32 open(const WindowRequest &request)
    {
        return ask("window=" + request.toBytes().toHex());
    }

protected:
    /// By the client's own number.
    void closeOwn(quint32 window) { ask("close=" + QByteArray::number(window)); }
    quint32 ask(const QByteArray &step)
    {
        writeLine(step);
        return readLine().value_or(QByteArray()).toUInt();
    }
};

/// The application on an X server, whose numbers its windows go by.
class TestClient final : public WindowClient
{
public:
    explicit TestClient(VirtualDesktop &desktop)
        : WindowClient(desktop), m_connection(desktop.connection())
    {
    }

    [[nodiscard]] xcb_window_t show(const WindowRequest &request) override;
    void close(xcb_window_t window) override { closeOwn(window); }
    xcb_window_t showPanel(const WindowRequest &request) override { return show(request); }

private:
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
