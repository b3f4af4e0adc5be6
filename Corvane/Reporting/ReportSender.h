#pragma once

#include "Expected.h"

#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <functional>
#include <memory>

namespace corvane {

/// Hands a report to the helper program that sends it. The program itself never opens a network
/// connection.
class ReportSender final : public QObject
{
    Q_OBJECT

public:
    /// The report's number, or why it was not sent: one sentence.
    using Outcome = expected<QString, QString>;
    using OnEnd = std::function<void(const Outcome &)>;

    /// Whether this build knows where to send reports.
    [[nodiscard]] static bool hasAddress();

    /// Unless told, the helper is looked for beside this program and where it is installed.
    explicit ReportSender(QString helper = {});
    ~ReportSender() override;

    /// Calls `onEnd` once, later. Nothing is sent twice at a time: what is under way is cancelled.
    void send(const QByteArray &document, OnEnd onEnd);
    /// Ends the helper; `onEnd` is not called any more. The report may have arrived all the same.
    void cancel();

private:
    /// Tells what the helper has said so far.
    void end();

    QString m_helper;
    std::unique_ptr<QProcess> m_process;
    QByteArray m_answer;
    QTimer m_patience;
    OnEnd m_onEnd;
};

} // namespace corvane
