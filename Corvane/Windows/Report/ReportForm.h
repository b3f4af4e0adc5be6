#pragma once

#include "ProblemReport.h"

#include <QtWidgets/QPlainTextEdit>

#include <optional>

namespace corvane {

class BoardText;
class Disclosure;
class ReportContentsList;

/// What becomes of a report once it is written.
enum class ReportGoal {
    server,
    file, ///< for want of a server's address
};

/// Asks what happened, and says what goes with the answer.
class ReportForm final : public QWidget
{
    Q_OBJECT

public:
    explicit ReportForm(ReportGoal goal, QWidget *parent = nullptr);

    [[nodiscard]] QPlainTextEdit &field() { return *m_field; }
    /// Nothing while it is read.
    void setReport(const std::optional<ProblemReport> &report);
    /// Why the text is not on the disk; may be empty.
    void setProblem(const QString &problem);

private:
    void addField();
    void addContents(ReportGoal goal);
    void showContents();

    QPlainTextEdit *m_field;
    BoardText *m_problem;
    Disclosure *m_disclosure;
    BoardText *m_reading;
    ReportContentsList *m_list;
    QWidget *m_well; ///< of the list
    bool m_isRead = false;
};

} // namespace corvane
