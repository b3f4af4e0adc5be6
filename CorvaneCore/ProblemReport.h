#pragma once

#include "FlightRecorder.h"

namespace corvane {

/// What a user tells of a problem, and all that goes with it. Every text but the user's own is without
/// window titles, names of users, home folders and hosts.
struct ProblemReport {
    struct Fact {
        QString key; ///< in the document that is sent
        QString title; ///< for people, in English
        QString value;

        bool operator==(const Fact &) const = default;
    };

    /// The most that the events may take in the document, in bytes: the whole of it stays below 4 MiB
    /// unless the user writes a book.
    static constexpr qsizetype eventsLimit = 4LL * 1024 * 1024 - 128LL * 1024;

    QDateTime date;
    QString text; ///< the user's words
    QList<Fact> facts;
    QList<FlightRecorder::Event> events; ///< of thirty days, the oldest first
    bool isShortened =
        false; ///< the oldest events were left out to keep the document below its limit

    /// The document that is sent: one line.
    [[nodiscard]] QByteArray toJson() const;
    /// The same for people: of a file or the clipboard.
    [[nodiscard]] QString toText() const;
    /// One event as a line for people.
    [[nodiscard]] static QString line(const FlightRecorder::Event &event);

    bool operator==(const ProblemReport &) const = default;
};

} // namespace corvane
