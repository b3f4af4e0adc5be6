#include "ReportSender.h"

#include "HelperProcess.h"
#include "ReportAnswer.h"
#include "ServerAddress.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The helper gives up within a minute by itself.
constexpr auto patience = 75s;
constexpr qsizetype longestAnswer = 64LL * 1024;

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

} // namespace

bool ReportSender::hasAddress()
{
    return !reportAddress().isEmpty();
}

ReportSender::ReportSender(QString helper) : m_helper(std::move(helper))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    m_patience.callOnTimeout(this, &ReportSender::end);
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
    QProcess *const process = m_process.get();
    process->setStandardErrorFile(QProcess::nullDevice());
    connect(process, &QProcess::readyReadStandardOutput, this, [this, process] {
        m_answer += process->readAllStandardOutput();
        if (m_answer.contains('\n') || m_answer.size() > longestAnswer)
            end();
    });
    connect(process, &QProcess::finished, this, &ReportSender::end);
    connect(
        process, &QProcess::errorOccurred, this,
        [this, process](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart && process == m_process.get())
                end();
        },
        // It may be told from within the start.
        Qt::QueuedConnection);
    m_patience.start();
    process->start(m_helper.isEmpty() ? HelperProcess::path(u"corvane-reporter"_s) : m_helper, {});
    // The helper sends once it has the whole line, and ends when the pipe is closed.
    process->write(document + '\n');
}

void ReportSender::cancel()
{
    m_patience.stop();
    m_answer.clear();
    m_onEnd = nullptr;
    HelperProcess::end(std::move(m_process));
}

void ReportSender::end()
{
    const auto answer = ReportAnswer::fromLine(m_answer.left(m_answer.indexOf('\n')));
    // Whoever is told may send again, or delete this object.
    const OnEnd onEnd = std::exchange(m_onEnd, nullptr);
    cancel();
    onEnd(answer ? answer->value.map_error(sentence)
                 : Outcome(unexpected<QString>(
                     tr("The part of Corvane that sends reports did not work."))));
}

} // namespace corvane
