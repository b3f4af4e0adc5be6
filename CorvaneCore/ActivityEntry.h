#pragma once

#include "MoveOutcome.h"

#include <QtCore/QJsonObject>
#include <QtCore/QList>

namespace corvane {

/// One line of the move history.
struct ActivityEntry {
    QDateTime date;
    QString action; ///< the placement's raw name, or one of the two below
    QString title; ///< of the placement, or the layout's name
    QString app;
    QString window; ///< its title; of a refusal, what the application did instead
    QString display;
    /// Frames before and after: x, y, width, height in accessibility coordinates; empty for a refusal.
    QList<double> from;
    QList<double> to;

    static constexpr QLatin1StringView layoutAction{"layout"};
    static constexpr QLatin1StringView refusedAction{"refused"};

    [[nodiscard]] static ActivityEntry moved(const MoveRecord &record);
    [[nodiscard]] static ActivityEntry placedByLayout(const QString &layout, const QString &app,
        const QString &window, const QString &display, const Rect &from, const Rect &to,
        const QDateTime &date);
    /// `reason` follows the application's name, such as "is in full screen".
    [[nodiscard]] static ActivityEntry refused(Placement placement, const QString &app,
        const QString &reason, const QString &display, const QDateTime &date);

    /// An id that is the same for equal entries, and for no others.
    [[nodiscard]] QString id() const;
    [[nodiscard]] bool isRefusal() const { return action == refusedAction; }

    [[nodiscard]] QJsonObject toJson() const;
    /// Every field or nothing.
    [[nodiscard]] static std::optional<ActivityEntry> fromJson(const QJsonValue &json);

    bool operator==(const ActivityEntry &) const = default;
};

} // namespace corvane
