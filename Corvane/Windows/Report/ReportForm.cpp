#include "ReportForm.h"

#include "BoardText.h"
#include "Disclosure.h"
#include "ReportContentsList.h"
#include "Sheet.h"
#include "Well.h"

#include <QtWidgets/QVBoxLayout>

namespace corvane {

namespace {

QString whatGoes(ReportGoal goal)
{
    return goal == ReportGoal::server
        ? ReportForm::tr("Sent with it: Corvane's version, your macOS version, your Mac's model, a "
                         "random install id, and Corvane's own log of which apps it moved, never "
                         "what was in their windows.")
        : ReportForm::tr(
            "Saved with it: Corvane's version, your macOS version, your Mac's model, a "
            "random install id, and Corvane's own log of which apps it moved, never "
            "what was in their windows.");
}

} // namespace

ReportForm::ReportForm(ReportGoal goal, QWidget *parent)
    : QWidget(parent)
    , m_field(new QPlainTextEdit)
    , m_problem(new BoardText({}, Board::Type::secondary, &Board::Palette::attention))
    , m_disclosure(new Disclosure(
          goal == ReportGoal::server ? tr("Show what is sent") : tr("Show what is saved")))
    , m_reading(new BoardText(
          tr("Corvane's log is being read…"), Board::Type::secondary, &Board::Palette::muted))
    , m_list(new ReportContentsList)
    , m_well(new Well(m_list, 160))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(6));
    column->addWidget(Sheet::headline(tr("What happened?")));
    column->addSpacing(Board::length(4));
    addField();
    addContents(goal);
    setProblem({});
    showContents();
}

void ReportForm::addField()
{
    auto &column = static_cast<QVBoxLayout &>(*layout());
    auto *label = new BoardText(tr("What you saw"), Board::Type::secondary);
    QFont font = label->font();
    font.setWeight(QFont::Medium);
    label->setFont(font);
    column.addWidget(label);
    const QString hint =
        tr("What you were doing, what you expected, and what Corvane did instead.");
    column.addWidget(new BoardText(hint, Board::Type::secondary, &Board::Palette::muted));
    m_field->setAccessibleName(label->text());
    m_field->setAccessibleDescription(hint);
    m_field->setPlaceholderText(tr("EX: I chose Maximize and the Safari window filled only part of "
                                   "the screen."));
    m_field->setTabChangesFocus(true);
    m_field->document()->setDocumentMargin(Board::length(6));
    column.addWidget(new Well(m_field, 112));
    column.addWidget(m_problem);
}

void ReportForm::addContents(ReportGoal goal)
{
    auto &column = static_cast<QVBoxLayout &>(*layout());
    column.addSpacing(Board::length(4));
    column.addWidget(new BoardText(whatGoes(goal), Board::Type::secondary, &Board::Palette::muted));
    column.addWidget(m_disclosure);
    column.addWidget(m_reading);
    column.addWidget(m_well);
    m_list->setAccessibleName(m_disclosure->text());
    connect(m_disclosure, &Disclosure::toggled, this, &ReportForm::showContents);
}

void ReportForm::setReport(const std::optional<ProblemReport> &report)
{
    m_isRead = report.has_value();
    if (report)
        m_list->setReport(*report);
    showContents();
}

void ReportForm::setProblem(const QString &problem)
{
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
}

void ReportForm::showContents()
{
    m_reading->setVisible(m_disclosure->isChecked() && !m_isRead);
    m_well->setVisible(m_disclosure->isChecked() && m_isRead);
}

} // namespace corvane
