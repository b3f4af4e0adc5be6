#pragma once

#include "EnumTable.h"

#include <QtCore/QString>

namespace corvane {

/// Why a server did not take a report, or did not give what it was asked for.
enum class SendProblem {
    noAddress, ///< where to, this build does not know
    unreachable,
    timedOut,
    untrusted, ///< the server's certificate
    redirected, ///< to another address
    documentTooLarge,
    tooMany, ///< requests, lately
    serverFailed,
    refused, ///< for another reason, of which only the server's status number is known
    answerNotUnderstood,
    answerTooLong,
};

/// What the problems are called between processes.
inline constexpr EnumTable<SendProblem::answerTooLong, NamedCase<SendProblem>> sendProblems({{
    {SendProblem::noAddress, QLatin1StringView("noAddress")},
    {SendProblem::unreachable, QLatin1StringView("unreachable")},
    {SendProblem::timedOut, QLatin1StringView("timedOut")},
    {SendProblem::untrusted, QLatin1StringView("untrusted")},
    {SendProblem::redirected, QLatin1StringView("redirected")},
    {SendProblem::documentTooLarge, QLatin1StringView("documentTooLarge")},
    {SendProblem::tooMany, QLatin1StringView("tooMany")},
    {SendProblem::serverFailed, QLatin1StringView("serverFailed")},
    {SendProblem::refused, QLatin1StringView("refused")},
    {SendProblem::answerNotUnderstood, QLatin1StringView("answerNotUnderstood")},
    {SendProblem::answerTooLong, QLatin1StringView("answerTooLong")},
}});

struct SendFailure {
    SendProblem problem = SendProblem::unreachable;
    /// What the system or the server said of it, in no particular language; may be empty.
    QString detail{};

    bool operator==(const SendFailure &) const = default;
};

} // namespace corvane
