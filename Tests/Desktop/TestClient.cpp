#include "TestClient.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

WindowClient::WindowClient(const PrivateSession &session)
    : ChildProcess(
        session.command(QStringLiteral(CORVANE_TEST_CLIENT), {u"listen"_s}, Channel::pipes))
{
}

xcb_window_t TestClient::show(const WindowRequest &request)
{
    const xcb_window_t window = open(request);
    WindowProbe probe(m_connection);
    // Panels are on no list of clients in i3.
    const bool listed = request.kind == WindowRequest::Kind::normal;
    const bool shown =
        waitUntil([&] { return listed ? probe.isManaged(window) : probe.isViewable(window); });
    if (!shown)
        return XCB_WINDOW_NONE;
    static_cast<void>(probe.settledFrame(window));
    return window;
}

InstalledApp::InstalledApp(PrivateSession &session, QString id, const QStringList &command)
    : m_session(session)
    , m_id(std::move(id))
    , m_command(command)
    , m_entryPath(u"%1/applications/%2.desktop"_s.arg(session.dataFolder(), m_id))
{
    QDir().mkpath(QFileInfo(m_entryPath).path());
    QFile entry(m_entryPath);
    const QString text =
        u"[Desktop Entry]\nType=Application\nName=%1\nExec=\"%2\"\nStartupWMClass=%1\n"_s;
    if (entry.open(QIODevice::WriteOnly))
        entry.write(text.arg(m_id, command.join(u"\" \""_s)).toUtf8());
}

std::unique_ptr<InstalledApp> InstalledApp::scripted(
    PrivateSession &session, const QString &id, const QStringList &steps)
{
    const QString program = u"%1/%2"_s.arg(session.folder(), id);
    QFile::copy(QStringLiteral(CORVANE_TEST_CLIENT), program);
    return std::make_unique<InstalledApp>(
        session, id, QStringList{program, u"class="_s + id} + steps);
}

InstalledApp::~InstalledApp()
{
    for (const pid_t pid : copies())
        ::kill(pid, SIGTERM);
    QFile::remove(m_entryPath);
}

QList<pid_t> InstalledApp::copies() const
{
    QList<pid_t> pids = m_session.processes();
    pids.removeIf([this](pid_t pid) {
        return QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(pid)) != m_command.first();
    });
    return pids;
}

} // namespace corvane::desktop
