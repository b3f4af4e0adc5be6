#include "CorvaneProcess.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

void endTour(const PrivateSession &session)
{
    QDir(session.dataFolder()).mkpath(u"Corvane"_s);
    QFile file(session.dataFolder() + u"/Corvane/settings.json"_s);
    if (!file.open(QIODevice::ReadWrite))
        return;
    const QByteArray text = file.readAll();
    QJsonObject settings = QJsonDocument::fromJson(text).object();
    if (!text.isEmpty() && settings.isEmpty())
        return; // a test wants it to be broken
    settings.insert(u"onboardingCompleted"_s, true);
    file.seek(0);
    file.write(QJsonDocument(settings).toJson());
    file.resize(file.pos());
}

bool CorvaneProcess::start(Tour tour)
{
    if (tour == Tour::seen)
        endTour(m_session);
    const QString name = QFileInfo(m_program).fileName();
    m_logStart = QFileInfo(u"%1/%2.log"_s.arg(m_session.folder(), name)).size();
    m_process = m_session.launch(m_program, {u"--verbose"_s});
    return waitUntil([this] { return !readyLine().isEmpty() || !isRunning(); }, Milliseconds{30000})
        && isRunning();
}

CorvaneProcess::Answer CorvaneProcess::ask(const QStringList &arguments, Milliseconds deadline)
{
    const QString logPath = m_session.folder() + u"/caller.log"_s;
    const qint64 logStart = QFileInfo(logPath).size();
    ChildProcess caller(
        {m_program, arguments, m_session.environment(), logPath, ChildProcess::Channel::pipes});
    Answer answer;
    answer.exitStatus = caller.waitForExit(deadline);
    while (const auto line = caller.readLine(Milliseconds{0}))
        answer.output += *line + '\n';
    answer.errors = caller.log().mid(logStart);
    answer.outcome = QJsonDocument::fromJson(answer.output).object();
    return answer;
}

QStringList CorvaneProcess::log() const
{
    const QByteArray text = m_process ? m_process->log().mid(m_logStart) : QByteArray();
    return QString::fromUtf8(text.left(text.lastIndexOf('\n') + 1))
        .split(u'\n', Qt::SkipEmptyParts);
}

QString CorvaneProcess::readyLine() const
{
    return log().filter(QRegularExpression(u"^ready"_s)).value(0);
}

bool CorvaneProcess::waitForLog(const QString &text, qsizetype seen, Milliseconds deadline) const
{
    return waitUntil([&] { return !log().mid(seen).filter(text).isEmpty(); }, deadline);
}

qint64 CorvaneProcess::residentKilobytes() const
{
    QFile file(u"/proc/%1/status"_s.arg(pid()));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    return text.mid(text.indexOf("VmRSS:") + 6).split('k').first().trimmed().toLongLong();
}

qsizetype CorvaneProcess::openFiles() const
{
    return QDir(u"/proc/%1/fd"_s.arg(pid())).entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace corvane::desktop
