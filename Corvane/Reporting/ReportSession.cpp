#include "ReportSession.h"

#include "Platform.h"
#include "ReportBuilder.h"
#include "ReportFile.h"
#include "ReportSender.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <memory>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

bool isOnDesktop(const QString &path)
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return QFileInfo(path).dir() == QDir(desktop);
}

} // namespace

ReportSession::Steps ReportSession::realSteps()
{
    const auto sender = std::make_shared<ReportSender>();
    Steps steps{
        .build =
            [](auto onEnd) {
                buildReport().then(qApp,
                    [onEnd = std::move(onEnd)](const ProblemReport &report) { onEnd(report); });
            },
        .send = {},
        .cancel = [sender] { sender->cancel(); },
        .save = [](const ProblemReport &report) { return saveReport(report); }};
    if (ReportSender::hasAddress()) {
        steps.send = [sender](const QByteArray &document, auto onEnd) {
            sender->send(document, std::move(onEnd));
        };
    }
    return steps;
}

ReportSession::ReportSession(Steps steps, const QString &folder)
    : m_steps(std::move(steps)), m_draft(folder)
{
}

void ReportSession::begin(const QString &added)
{
    const bool isAdded = !added.trimmed().isEmpty();
    const bool isOver =
        !isSending() && !std::holds_alternative<ReportSheetPhase::Writing>(m_phase.value);
    if (!m_isOpen || (isAdded && isOver)) {
        m_draft.read();
        build();
        setPhase({ReportSheetPhase::Writing{}});
    }
    m_isOpen = true;
    if (isAdded)
        m_draft.setText(text().isEmpty() ? added : text() + u"\n\n"_s + added);
    Q_EMIT textChanged();
}

void ReportSession::end()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    ++m_round;
    if (isSending() && m_report)
        m_steps.cancel();
    m_report.reset();
    m_draft.save();
    setPhase({ReportSheetPhase::Writing{}});
}

void ReportSession::setText(const QString &text)
{
    m_draft.setText(text);
}

bool ReportSession::isSending() const
{
    return std::holds_alternative<ReportSheetPhase::Sending>(m_phase.value);
}

bool ReportSession::canSend() const
{
    return m_isOpen && !isSending() && !text().trimmed().isEmpty();
}

void ReportSession::setPhase(const ReportSheetPhase &phase)
{
    if (std::exchange(m_phase, phase) != phase)
        Q_EMIT phaseChanged();
}

void ReportSession::build()
{
    m_report.reset();
    Q_EMIT reportChanged();
    m_steps.build([this, guard = QPointer(this), round = ++m_round](const ProblemReport &report) {
        if (!guard || round != m_round)
            return;
        m_report = report;
        Q_EMIT reportChanged();
        if (isSending())
            deliver();
    });
}

void ReportSession::send()
{
    if (!canSend())
        return;
    m_draft.save();
    setPhase({ReportSheetPhase::Sending{}});
    if (m_report)
        deliver();
}

void ReportSession::deliver()
{
    m_report->text = text();
    if (!hasAddress())
        return save(tr("This copy of Corvane has no address to send reports to."));
    const auto take = [this, guard = QPointer(this), round = m_round](
                          const expected<QString, QString> &outcome) {
        if (!guard || round != m_round)
            return;
        if (!outcome)
            return save(outcome.error());
        forgetDelivered();
        setPhase({ReportSheetPhase::Sent{*outcome}});
    };
    m_steps.send(m_report->toJson(), take);
}

void ReportSession::save(const QString &why)
{
    const auto path = m_steps.save(*m_report);
    if (!path) {
        const QString unsaved = tr("It could not be saved to a file, either: %1").arg(path.error());
        return setPhase({ReportSheetPhase::Failed{why + u' ' + unsaved}});
    }
    m_path = *path;
    forgetDelivered();
    setPhase({ReportSheetPhase::Saved{QFileInfo(m_path).fileName(), why, isOnDesktop(m_path)}});
}

// What was added meanwhile stays for another report.
void ReportSession::forgetDelivered()
{
    m_draft.setText(text().mid(m_report->text.size()).trimmed());
    m_draft.save();
    Q_EMIT textChanged();
}

void ReportSession::copy() const
{
    if (m_report)
        QGuiApplication::clipboard()->setText(m_report->toText());
}

void ReportSession::showFile() const
{
    Platform::current().session().reveal(QUrl::fromLocalFile(m_path));
}

} // namespace corvane
