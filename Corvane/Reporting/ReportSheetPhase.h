#pragma once

#include <QtCore/QString>

#include <variant>

namespace corvane {

/// How far a report has come.
struct ReportSheetPhase {
    /// The user is writing.
    struct Writing {
        bool operator==(const Writing &) const = default;
    };
    struct Sending {
        bool operator==(const Sending &) const = default;
    };
    struct Sent {
        QString id; ///< the report number

        bool operator==(const Sent &) const = default;
    };
    /// Not sent, but written to a file.
    struct Saved {
        QString fileName;
        QString why; ///< it was not sent
        bool isOnDesktop = true;

        bool operator==(const Saved &) const = default;
    };
    /// Neither sent nor saved.
    struct Failed {
        QString why;

        bool operator==(const Failed &) const = default;
    };

    std::variant<Writing, Sending, Sent, Saved, Failed> value;
    bool operator==(const ReportSheetPhase &) const = default;
};

} // namespace corvane
