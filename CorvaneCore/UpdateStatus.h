#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

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
};

struct UpdateStatus {
    UpdateAvailability availability;
    bool checking = false;
    bool failed = false; ///< the last check could not reach the server
    std::optional<QDateTime> lastChecked;
    bool canUpdate = false; ///< the updater is ready

    bool operator==(const UpdateStatus &) const = default;
};

} // namespace corvane
