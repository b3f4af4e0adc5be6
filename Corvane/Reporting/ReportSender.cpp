#include "ReportSender.h"

#include "ReportAddress.h"
#include "ReportAnswer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The helper gives up within a minute by itself.
constexpr auto patience = 75s;
constexpr qsizetype longestAnswer = 64LL * 1024;

/// In a build tree it is beside this program.
QString installedHelper()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + u"/corvane-reporter"_s;
    return QFileInfo::exists(beside) ? beside : folder + u"/../libexec/corvane/corvane-reporter"_s;
}

QString sentence(const SendFailure &failure)
{
    switch (failure.problem) {
    case SendProblem::noAddress:
        return ReportSender::tr("This copy of Corvane does not know where to send reports.");
    case SendProblem::unreachable:
        return ReportSender::tr("The report server could not be reached.");
    case SendProblem::timedOut:
        return ReportSender::tr("The report server took too long to answer.");
    case SendProblem::untrusted:
        return ReportSender::tr("The report server’s certificate is not trusted.");
    case SendProblem::redirected:
        return ReportSender::tr("The report server has moved to another address.");
    case SendProblem::documentTooLarge:
        return ReportSender::tr("The report is too large for the report server.");
    case SendProblem::tooMany:
        return ReportSender::tr(
            "The report server has got too many reports lately. Try again later.");
    case SendProblem::serverFailed:
        return ReportSender::tr("The report server has a problem of its own. Try again later.");
    case SendProblem::refused:
        return ReportSender::tr("The report server refused the report (%1).").arg(failure.detail);
    case SendProblem::answerNotUnderstood:
        return ReportSender::tr("The report server’s answer was not understood.");
    case SendProblem::answerTooLong:
        return ReportSender::tr("The report server’s answer was too long.");
    }
    Q_UNREACHABLE();
}

QString helperFailed()
{
    return ReportSender::tr("The part of Corvane that sends reports did not work.");
}

} // namespace

bool ReportSender::hasAddress()
{
    return !reportAddress().isEmpty();
}

ReportSender::~ReportSender()
{
    cancel();
}

void ReportSender::send(const QByteArray &document, OnEnd onEnd)
{
    cancel();
    m_onEnd = std::move(onEnd);
    m_process = std::make_unique<QProcess>();
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &ReportSender::read);
    const auto fail = [this] { end(unexpected<QString>(helperFailed())); };
    connect(m_process.get(), &QProcess::finished, this, [this, fail] {
        read();
        fail();
    });
    connect(
        m_process.get(), &QProcess::errorOccurred, this,
        [fail](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                fail();
        },
        // It may be told from within the start.
        Qt::QueuedConnection);
    m_patience.setSingleShot(true);
    m_patience.callOnTimeout(this, fail);
    m_patience.start(patience);
    m_process->start(m_helper.isEmpty() ? installedHelper() : m_helper, {});
    // The helper sends once it has the whole line, and ends when the pipe is closed.
    m_process->write(document + '\n');
}

void ReportSender::cancel()
{
    m_onEnd = nullptr;
    end(unexpected<QString>(QString()));
}

/// The first line is the answer.
void ReportSender::read()
{
    if (!m_process)
        return;
    m_answer += m_process->readAllStandardOutput();
    const qsizetype end = m_answer.indexOf('\n');
    if (end < 0 && m_answer.size() <= longestAnswer)
        return;
    const auto answer = ReportAnswer::fromLine(m_answer.left(end));
    if (!answer)
        this->end(unexpected<QString>(helperFailed()));
    else if (!answer->value)
        this->end(unexpected<QString>(sentence(answer->value.error())));
    else
        this->end(*answer->value);
}

void ReportSender::end(const Outcome &outcome)
{
    m_patience.stop();
    m_answer.clear();
    if (auto *process = m_process.release()) {
        // It is told to end by the pipe, too, but a program that has gone wrong may not listen.
        process->disconnect(this);
        connect(process, &QProcess::finished, process, &QObject::deleteLater);
        process->setParent(QCoreApplication::instance());
        process->kill();
        if (process->state() == QProcess::NotRunning)
            process->deleteLater();
    }
    if (const OnEnd onEnd = std::exchange(m_onEnd, nullptr))
        onEnd(outcome);
}

} // namespace corvane
