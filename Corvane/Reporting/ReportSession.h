#pragma once

#include "Expected.h"
#include "ProblemReport.h"
#include "ReportDraft.h"
#include "ReportSheetPhase.h"

#include <QtCore/QObject>

#include <functional>
#include <optional>

namespace corvane {

/// Takes a report from its first word to where it goes: to the server, else to a file. What the user
/// wrote is theirs until it is in one of the two.
class ReportSession final : public QObject
{
    Q_OBJECT

public:
    /// What it has others do.
    struct Steps {
        /// Gathers a report without the user's words; the function is called once, now or later.
        std::function<void(std::function<void(const ProblemReport &)>)> build;
        /// The function gets the report number, or why it was not sent. Missing in a program that has no
        /// address to send reports to.
        std::function<void(
            const QByteArray &document, std::function<void(const expected<QString, QString> &)>)>
            send;
        std::function<void()> cancel;
        /// The file's path, or why there is none.
        std::function<expected<QString, QString>(const ProblemReport &)> save;
    };
    /// Those of the program.
    [[nodiscard]] static Steps realSteps();

    /// Keeps the user's text in that folder.
    ReportSession(Steps steps, const QString &folder);

    /// Begins to write, with what was written before, or goes on. `added` is put after it.
    void begin(const QString &added);
    /// Ends the sending, too. The text is kept.
    void end();
    void setText(const QString &text);
    void send();
    /// Puts the whole report on the clipboard.
    void copy() const;
    void showFile() const;

    [[nodiscard]] const ReportSheetPhase &phase() const { return m_phase; }
    [[nodiscard]] const QString &text() const { return m_draft.text(); }
    [[nodiscard]] bool canSend() const;
    /// Whether there is an address to send reports to.
    [[nodiscard]] bool hasAddress() const { return bool(m_steps.send); }
    /// Nothing while the events are read.
    [[nodiscard]] const std::optional<ProblemReport> &report() const { return m_report; }
    [[nodiscard]] const ReportDraft &draft() const { return m_draft; }

Q_SIGNALS:
    void phaseChanged();
    void textChanged(); ///< by others than the user
    void reportChanged();

private:
    [[nodiscard]] bool isSending() const;
    void setPhase(const ReportSheetPhase &phase);
    void build();
    void deliver();
    void save(const QString &why);
    void forgetDelivered();

    Steps m_steps;
    ReportDraft m_draft;
    ReportSheetPhase m_phase;
    std::optional<ProblemReport> m_report;
    bool m_isOpen = false;
    int m_round = 0; ///< answers to what was asked in an earlier one are void
    QString m_path; ///< of the file that was saved
};

} // namespace corvane
