#pragma once

#include "ReportContents.h"

#include <QtWidgets/QListView>

namespace corvane {

/// Lets the user read all that goes with a report, and copy lines of it.
class ReportContentsList final : public QListView
{
    Q_OBJECT

public:
    explicit ReportContentsList(QWidget *parent = nullptr);

    void setReport(const ProblemReport &report);

public Q_SLOTS:
    /// The selected lines.
    void copy() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    ReportContents m_contents;
};

} // namespace corvane
