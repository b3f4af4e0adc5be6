#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QTimeZone>

#include <optional>
#include <variant>

namespace corvane {

/// Whether the feed offers a newer version than this one.
struct UpdateAvailability {
    struct Unknown {
        bool operator==(const Unknown &) const = default;
    };
    struct UpToDate {
        bool operator==(const UpToDate &) const = default;
    };
    struct Available {
        QString version;
        bool operator==(const Available &) const = default;
    };

    std::variant<Unknown, UpToDate, Available> value;
    bool operator==(const UpdateAvailability &) const = default;

    /// `failed`: the last check could not reach the server. `checkedBefore`: one was made in an earlier
    /// run.
    [[nodiscard]] QString statusLine(bool checking, bool failed, bool checkedBefore) const;
};

struct UpdateStatus {
    UpdateAvailability availability;
    bool checking = false;
    bool failed = false; ///< the last check could not reach the server
    std::optional<QDateTime> lastChecked; ///< in this run or an earlier one
    bool canUpdate = false; ///< the updater is ready

    bool operator==(const UpdateStatus &) const = default;

    [[nodiscard]] QString statusLine() const;
    /// When the last check was, as somebody there reads it. Nothing when there was none.
    [[nodiscard]] std::optional<QString> lastCheckLine(
        const QDateTime &now, const QTimeZone &zone, const QLocale &locale = QLocale()) const;
};

} // namespace corvane
