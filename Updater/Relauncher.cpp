#include "Relauncher.h"

#include "BusCall.h"
#include "Identity.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusReply>

namespace corvane {

using namespace Qt::StringLiterals;
using freedesktop::ProcessHandle;

namespace {

QDBusMessage versionQuestion()
{
    auto call = QDBusMessage::createMethodCall(Identity::bundleIdentifier,
        u"/app/corvane/Corvane"_s, u"app.corvane.Corvane.Instance"_s, u"Run"_s);
    // The bus must not start what is being watched here.
    call.setAutoStartService(false);
    call << QStringList{u"--version"_s};
    return call;
}

} // namespace

Relauncher::Relauncher(
    InstallFolder &folder, QDBusConnection bus, QString stateFolder, const Patience &patience)
    : m_folder(folder)
    , m_bus(std::move(bus))
    , m_stateFolder(std::move(stateFolder))
    , m_patience(patience)
{
}

void Relauncher::start(const Step &step, std::function<void(const End &)> onEnd)
{
    m_step = step;
    m_onEnd = std::move(onEnd);
    m_deadline.setRemainingTime(m_patience.quit);
    after({}, &Relauncher::awaitQuit);
}

void Relauncher::awaitQuit()
{
    if (!isRunning())
        return launch();
    // It runs on as it is; the link already leads to the new version, for the next start.
    if (m_deadline.hasExpired())
        return finish(installFailure(InstallProblem::stillRuns));
    after(m_patience.pause, &Relauncher::awaitQuit);
}

void Relauncher::launch()
{
    m_process = startCurrent();
    if (!m_process)
        return goBack();
    m_deadline.setRemainingTime(m_patience.answer);
    ask();
}

void Relauncher::ask()
{
    if (m_deadline.hasExpired())
        return goBack();
    const auto left = static_cast<int>(m_deadline.remainingTime());
    const auto onAnswer = [this](const QDBusMessage &answer) { hear(answer); };
    if (!freedesktop::callLater(m_bus, versionQuestion(), qMax(left, 1), this, onAnswer))
        goBack();
}

void Relauncher::hear(const QDBusMessage &answer)
{
    if (answer.type() == QDBusMessage::ReplyMessage) {
        const QString said = answer.arguments().value(1).toString();
        if (said.split(u' ').last().trimmed() == m_step.version && isRightBuild())
            return finish({});
        m_failure.detail = said.trimmed();
    }
    // One that has ended may have found another that had just been started.
    if (m_process->isValid() && m_process->hasEnded() && !isRunning())
        return goBack();
    after(m_patience.pause, &Relauncher::ask);
}

void Relauncher::goBack()
{
    if (m_process)
        m_process->kill();
    // The bus or the user may have started the same version besides.
    if (isRunning() && isRightBuild())
        ProcessHandle(static_cast<pid_t>(ownerNumber())).kill();
    if (m_step.previous) {
        if (auto changed = m_folder.makeCurrent(*m_step.previous); !changed)
            return finish(changed);
    }
    UpdateState state = UpdateState::load(m_stateFolder);
    state.noteFailed(m_step.build);
    state.wentBack = m_step.previous.has_value();
    if (const auto saved = state.save(m_stateFolder); !saved)
        m_failure.detail = saved.error();
    m_deadline.setRemainingTime(m_patience.quit);
    after({}, &Relauncher::startPrevious);
}

void Relauncher::startPrevious()
{
    // Until the name is free, the version before would take the one that fails for itself.
    if (isRunning() && !m_deadline.hasExpired())
        return after(m_patience.pause, &Relauncher::startPrevious);
    if (m_step.previous && !isRunning())
        startCurrent();
    finish(unexpected<InstallFailure>(m_failure));
}

void Relauncher::finish(const End &end)
{
    const auto onEnd = std::exchange(m_onEnd, nullptr);
    onEnd(end);
}

bool Relauncher::isRunning() const
{
    return m_bus.isConnected()
        && m_bus.interface()->isServiceRegistered(Identity::bundleIdentifier).value();
}

uint Relauncher::ownerNumber() const
{
    return m_bus.interface()->servicePid(Identity::bundleIdentifier).value();
}

bool Relauncher::isRightBuild() const
{
    const QFileInfo program(u"/proc/%1/exe"_s.arg(ownerNumber()));
    const QString version = QFileInfo(m_folder.versionPath(m_step.build)).canonicalFilePath();
    return !version.isEmpty() && program.symLinkTarget().startsWith(version + u'/');
}

std::unique_ptr<ProcessHandle> Relauncher::startCurrent() const
{
    QProcess process;
    process.setProgram(m_folder.currentProgram());
    process.setWorkingDirectory(QDir::homePath());
    // This process answers on its own output; the program must not write between.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 number = 0;
    if (!process.startDetached(&number))
        return nullptr;
    return std::make_unique<ProcessHandle>(static_cast<pid_t>(number));
}

void Relauncher::after(std::chrono::milliseconds pause, void (Relauncher::*next)()) const
{
    QTimer::singleShot(pause, this, next);
}

} // namespace corvane
