#pragma once

#include "CommandResult.h"
#include "MoveOutcome.h"
#include "TerminalText.h"

#include <QtCore/QJsonObject>

namespace corvane {

/// How one placement went, and what the desktop knows besides that the user should be told.
struct OutcomeReport {
    Placement pressed; ///< what was asked for; a repeated press may have done the next of its cycle
    MoveOutcome outcome;
    std::optional<QString> frontmostName; ///< the application's that was to be moved
    QString distrustReason; ///< one sentence, while windows cannot be moved

    /// The report as one line, without a line break.
    [[nodiscard]] QString line(Titles titles = Titles::shown) const;
    /// Why nothing moved, for the user.
    [[nodiscard]] QString sentence() const;
    /// The report with rectangles as [x, y, width, height] in accessibility coordinates, and dates in
    /// ISO 8601.
    [[nodiscard]] QJsonObject json() const;
    [[nodiscard]] CommandResult result(ReportForm form) const;
};

} // namespace corvane
