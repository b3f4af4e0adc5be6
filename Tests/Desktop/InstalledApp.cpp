#include "InstalledApp.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <csignal>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

QString entryPath(const PrivateSession &session, const QString &id)
{
    return u"%1/applications/%2.desktop"_s.arg(session.dataFolder(), id);
}

QString journalPath(const PrivateSession &session, const QString &id)
{
    return u"%1/%2.starts"_s.arg(session.folder(), id);
}

} // namespace

InstalledApp::InstalledApp(PrivateSession &session, QString id, const QStringList &command)
    : m_session(session), m_id(std::move(id)), m_command(command)
{
    QDir().mkpath(session.dataFolder() + u"/applications"_s);
    QFile entry(entryPath(session, m_id));
    // Nothing in our commands needs more than quotes.
    const QString quoted = u'"' + command.join(u"\" \""_s) + u'"';
    if (entry.open(QIODevice::WriteOnly))
        entry.write(u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nStartupWMClass=%1\n"_s
                        .arg(m_id, quoted)
                        .toUtf8());
}

std::unique_ptr<InstalledApp> InstalledApp::scripted(
    PrivateSession &session, const QString &id, const QStringList &steps)
{
    // A program of its own, as every application is.
    const QString program = u"%1/%2"_s.arg(session.folder(), id);
    QFile::copy(QStringLiteral(CORVANE_TEST_CLIENT), program);
    const QStringList command{program, u"journal="_s + journalPath(session, id), u"class="_s + id};
    return std::make_unique<InstalledApp>(session, id, command + steps);
}

InstalledApp::~InstalledApp()
{
    for (const pid_t pid : copies()) {
        if (QFileInfo(u"/proc/%1/exe"_s.arg(pid)).symLinkTarget() == m_command.first())
            ::kill(pid, SIGTERM);
    }
    QFile::remove(entryPath(m_session, m_id));
    QFile::remove(journalPath(m_session, m_id));
}

QList<pid_t> InstalledApp::copies() const
{
    QFile file(journalPath(m_session, m_id));
    QList<pid_t> pids;
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd())
            pids << file.readLine().trimmed().toInt();
    }
    return pids;
}

} // namespace corvane::desktop
