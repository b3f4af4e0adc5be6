#pragma once

#include "CommandResult.h"
#include "MoveOutcome.h"
#include "TerminalText.h"

#include <QtCore/QJsonObject>

namespace corvane {

/// How one placement went, with what the desktop knows beside it.
struct OutcomeReport {
    Placement pressed;
    MoveOutcome outcome;
    std::optional<QString> frontmostName;
    QString distrustReason; ///< one sentence, while windows cannot be moved

    /// One line, without a line break.
    [[nodiscard]] QString line(Titles titles = Titles::shown) const;
    /// Why nothing moved, for the user.
    [[nodiscard]] QString sentence() const;
    /// Rectangles as [x, y, width, height] in accessibility coordinates, dates in ISO 8601.
    [[nodiscard]] QJsonObject json() const;
    [[nodiscard]] CommandResult result(bool asJson) const;
};

} // namespace corvane
