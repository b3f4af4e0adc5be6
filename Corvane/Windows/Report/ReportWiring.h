#pragma once

class QWidget;

namespace corvane {

class ReportSession;
class ReportSheet;

/// Makes the sheet that shows the session, and tells it what the user does there.
[[nodiscard]] ReportSheet *makeReportSheet(ReportSession &session, QWidget *window);

} // namespace corvane
