#pragma once

#include "Expected.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace corvane {

/// Why a report was not sent.
enum class SendProblem {
    noAddress, ///< where to, this build does not know
    unreachable,
    timedOut,
    untrusted, ///< the server's certificate
    redirected, ///< to another address
    documentTooLarge,
    tooMany, ///< reports, lately
    serverFailed,
    refused, ///< for another reason, of which only the server's status number is known
    answerNotUnderstood,
    answerTooLong,
};

struct SendFailure {
    SendProblem problem = SendProblem::unreachable;
    /// What the system or the server said of it, in no particular language; may be empty.
    QString detail{};

    bool operator==(const SendFailure &) const = default;
};

/// What the program that sends reports says of one, on one line: the report's number or the failure.
struct ReportAnswer {
    expected<QString, SendFailure> value;

    [[nodiscard]] QByteArray toLine() const;
    /// Nothing for what is no such line.
    [[nodiscard]] static std::optional<ReportAnswer> fromLine(const QByteArray &line);
    /// Of what a server answered.
    [[nodiscard]] static ReportAnswer ofServer(const QByteArray &body);

    bool operator==(const ReportAnswer &) const = default;
};

} // namespace corvane
