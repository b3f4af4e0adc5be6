#pragma once

#include "ProblemReport.h"

#include <QtCore/QFuture>

namespace corvane {

class Platform;
class Redaction;

/// A report that lacks the user's words. This program and the desktop are asked at once, the latter
/// unless it is null; the events are read, and all of it made fit to be shown to others, on another
/// thread.
[[nodiscard]] QFuture<ProblemReport> buildReport(Platform *desktop);
/// On the desktop that this program runs on.
[[nodiscard]] QFuture<ProblemReport> buildReport();

/// Adds the events of thirty days, the newest where they would take more than `limit` bytes of the
/// document.
void addEvents(ProblemReport &report, const FlightRecorder &recorder, const Redaction &redaction,
    qsizetype limit = ProblemReport::eventsLimit);

} // namespace corvane
