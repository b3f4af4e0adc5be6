#pragma once

#include "Placement.h"
#include "Rect.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <optional>
#include <variant>

namespace corvane {

/// One window moved. Rectangles in accessibility coordinates.
struct MoveRecord {
    QDateTime date;
    Placement placement = Placement::center;
    QString appName;
    QString windowTitle;
    Rect from;
    Rect to; ///< the frame that the window took, which may not be the one asked for
    QString displayName; ///< of the display that the window ended on

    bool operator==(const MoveRecord &) const = default;
};

/// What became of one placement.
struct MoveOutcome {
    struct Moved {
        MoveRecord record;
        bool operator==(const Moved &) const = default;
    };
    struct Refused {
        QString reason;
        bool operator==(const Refused &) const = default;
    };
    struct NoWindow {
        bool operator==(const NoWindow &) const = default;
    };
    struct NotTrusted {
        bool operator==(const NotTrusted &) const = default;
    };
    struct NothingToSnapBack {
        bool operator==(const NothingToSnapBack &) const = default;
    };
    struct NoOriginal {
        bool operator==(const NoOriginal &) const = default;
    };
    struct SingleDisplay {
        bool operator==(const SingleDisplay &) const = default;
    };

    std::variant<Moved, Refused, NoWindow, NotTrusted, NothingToSnapBack, NoOriginal, SingleDisplay>
        value;

    bool operator==(const MoveOutcome &) const = default;
};

/// The case's name, such as "noWindow".
[[nodiscard]] QString outcomeName(const MoveOutcome &outcome);
/// What diagnostics say of a placement that moved nothing; empty for one that did.
[[nodiscard]] QString refusalText(
    const MoveOutcome &outcome, const std::optional<QString> &frontmostName);
/// The same for the user, as a whole sentence.
[[nodiscard]] QString refusalSentence(
    const MoveOutcome &outcome, const std::optional<QString> &frontmostName);
/// What the activity log says of a refusal, after the application's name.
[[nodiscard]] QString activityText(const QString &refusedReason);

} // namespace corvane
