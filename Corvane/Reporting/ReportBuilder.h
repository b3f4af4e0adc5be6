#pragma once

#include "ProblemReport.h"

#include <QtCore/QFuture>

/// Gathers what goes with a report.
namespace corvane {

class Platform;

/// What is known of this program and of the desktop, which is asked at once; `desktop` is null where
/// there is none.
[[nodiscard]] QList<ProblemReport::Fact> reportFacts(Platform *desktop);
[[nodiscard]] QList<ProblemReport::Fact> reportFacts();

/// A report that lacks the user's words. The facts are asked for at once; the events are read, and made
/// fit to be shown to others, on another thread.
[[nodiscard]] QFuture<ProblemReport> buildReport(Platform *desktop);
[[nodiscard]] QFuture<ProblemReport> buildReport();

/// The events of thirty days of a recorder's file, at most `limit` bytes of them in the document.
void addEvents(ProblemReport &report, const FlightRecorder &recorder,
    qsizetype limit = ProblemReport::eventsLimit);

} // namespace corvane
