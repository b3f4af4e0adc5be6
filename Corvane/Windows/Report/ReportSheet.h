#pragma once

#include "ReportForm.h"
#include "ReportSheetPhase.h"
#include "Sheet.h"

#include <functional>

namespace corvane {

/// Takes down what went wrong, then shows how the report of it fared. It only draws: what the user wants
/// is told to the functions, and what came of it is set here.
class ReportSheet final : public Sheet
{
    Q_OBJECT

public:
    ReportSheet(ReportGoal goal, QWidget *window);
    ~ReportSheet() override;

    std::function<void()> onSend;
    std::function<void()> onClose; ///< however it is closed
    std::function<void()> onShowFile;
    std::function<void()> onOpenPage; ///< missing where there is no such page
    std::function<void()> onCopyReport;
    std::function<void()> onTryAgain;

    [[nodiscard]] QString text() { return m_form->field().toPlainText(); }
    void setText(const QString &text);
    void setPhase(const ReportSheetPhase &phase);
    void setCanSend(bool canSend);
    [[nodiscard]] ReportForm &form() { return *m_form; }

    void done(int result) override;

Q_SIGNALS:
    void textChanged(const QString &text);

private:
    // What has the focus then.
    QWidget *showWriting();
    QWidget *showSending();
    QWidget *showSent(const ReportSheetPhase::Sent &sent);
    QWidget *showSaved(const ReportSheetPhase::Saved &saved);
    QWidget *showFailed(const ReportSheetPhase::Failed &failed);
    void addOutcome(
        const QString &symbol, BoardText::Tone tone, const QString &title, const QString &comfort);
    void addText(const QString &text, BoardText::Tone tone = &Board::Palette::fore);
    QPushButton *addDefault(const QString &title, std::function<void()> ReportSheet::*act);
    /// A button that then reads "Copied".
    void addCopy(const QString &title, const std::function<void()> &copy);
    void tellClosed();

    ReportGoal m_goal;
    ReportForm *m_form;
    QWidget *m_outcome = nullptr; ///< in place of the form
    QPushButton *m_send = nullptr; ///< while the user writes
    bool m_canSend = false;
    bool m_isClosed = false;
};

} // namespace corvane
