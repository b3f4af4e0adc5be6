#include "ReleaseSite.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr Milliseconds packingPatience{300000};
const QString scripts = QStringLiteral(CORVANE_DESKTOP_SCRIPTS);

} // namespace

expected<std::unique_ptr<ReleaseSite>, QString> ReleaseSite::publish(
    PrivateSession &session, Libraries libraries)
{
    std::unique_ptr<ReleaseSite> site(new ReleaseSite(session));
    if (!site->makeCertificate())
        return unexpected<QString>(u"there is no certificate: "_s + session.logs());
    site->m_server = session.launch(scripts + u"/serve-releases"_s,
        {site->path(u"site"_s), site->path(u"certificate"_s), site->path(u"key"_s)},
        ChildProcess::Channel::pipes);
    site->m_port = QString::fromLatin1(site->m_server->readLine().value_or(QByteArray()));
    if (!site->runPublisher(u"pack"_s, libraries == Libraries::packed ? u"yes"_s : QString()))
        return unexpected<QString>(u"nothing was packed: "_s + session.logs());
    site->tellSession();
    if (!site->installFirst())
        return unexpected<QString>(u"nothing was installed: "_s + session.logs());
    return site;
}

ReleaseSite::~ReleaseSite()
{
    m_session.setVariable(u"CORVANE_UPDATE_TEST_FEED"_s, {});
    QDir(installation()).removeRecursively();
}

bool ReleaseSite::makeCertificate()
{
    QDir(m_folder.path()).mkpath(u"site"_s);
    const QString options =
        u"req -x509 -newkey rsa:2048 -nodes -days 1 -subj /CN=127.0.0.1 -addext "
        "subjectAltName=IP:127.0.0.1 -keyout %1/key -out %1/certificate"_s;
    return m_session.run(u"openssl"_s, options.arg(m_folder.path()).split(u' '));
}

bool ReleaseSite::runPublisher(const QString &what, const QString &value)
{
    const auto publisher = m_session.launch(scripts + u"/publish-releases"_s,
        {QStringLiteral(CORVANE_BUILD), m_folder.path(), QStringLiteral(CORVANE_TEST_UPDATER),
            m_port, what, value});
    return publisher->waitForExit(packingPatience) == 0;
}

void ReleaseSite::tellSession()
{
    m_session.setVariable(
        u"CORVANE_UPDATE_TEST_FEED"_s, u"https://127.0.0.1:%1/updates/stable.json"_s.arg(m_port));
    m_session.setVariable(u"CORVANE_TEST_CERTIFICATE"_s, path(u"certificate"_s));
    for (const QString &role : {u"release"_s, u"feed"_s}) {
        QFile key(path(role + u".public"_s));
        if (key.open(QFile::ReadOnly))
            m_session.setVariable(u"CORVANE_TEST_%1_KEYS"_s.arg(role.toUpper()),
                QString::fromLatin1(key.readAll().trimmed()));
    }
}

bool ReleaseSite::offer(int release)
{
    return runPublisher(u"offer"_s, QString::number(release));
}

bool ReleaseSite::installFirst()
{
    return m_session.run(path(u"one/libexec/corvane/corvane-updater"_s), {u"--install-here"_s});
}

QString ReleaseSite::installation() const
{
    return m_session.home() + u"/.local/lib/corvane"_s;
}

QString ReleaseSite::program() const
{
    return m_session.home() + u"/.local/bin/corvane"_s;
}

QString ReleaseSite::updater() const
{
    return installation() + u"/current/libexec/corvane/corvane-updater"_s;
}

int ReleaseSite::current() const
{
    const QFileInfo link(installation() + u"/current"_s);
    return QFileInfo(link.symLinkTarget()).fileName().toInt();
}

} // namespace corvane::desktop
