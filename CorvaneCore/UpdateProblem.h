#pragma once

#include "EnumTable.h"

namespace corvane {

/// Why what a feed says is not believed.
enum class UpdateProblem {
    noKeys, ///< this build trusts nobody, so it has no updater
    envelopeNotUnderstood, ///< too long, or no signed envelope of the kind that was asked for
    feedNotSigned, ///< by a key that this build trusts for feeds
    releaseNotSigned, ///< none of the feed's, by a key that this build trusts for releases
    feedNotUnderstood,
    releaseNotUnderstood,
    wrongProduct, ///< of the feed, or of a release in it
    wrongChannel,
    lifetimeTooLong,
    clockBehind, ///< the feed was issued in what this computer takes for the future
    olderThanRemembered, ///< a newer feed was believed here before
    expired,
};

/// What the problems are called between processes and in the diagnostics.
inline constexpr EnumTable<UpdateProblem::expired, NamedCase<UpdateProblem>> updateProblems({{
    {UpdateProblem::noKeys, QLatin1StringView("noKeys")},
    {UpdateProblem::envelopeNotUnderstood, QLatin1StringView("envelopeNotUnderstood")},
    {UpdateProblem::feedNotSigned, QLatin1StringView("feedNotSigned")},
    {UpdateProblem::releaseNotSigned, QLatin1StringView("releaseNotSigned")},
    {UpdateProblem::feedNotUnderstood, QLatin1StringView("feedNotUnderstood")},
    {UpdateProblem::releaseNotUnderstood, QLatin1StringView("releaseNotUnderstood")},
    {UpdateProblem::wrongProduct, QLatin1StringView("wrongProduct")},
    {UpdateProblem::wrongChannel, QLatin1StringView("wrongChannel")},
    {UpdateProblem::lifetimeTooLong, QLatin1StringView("lifetimeTooLong")},
    {UpdateProblem::clockBehind, QLatin1StringView("clockBehind")},
    {UpdateProblem::olderThanRemembered, QLatin1StringView("olderThanRemembered")},
    {UpdateProblem::expired, QLatin1StringView("expired")},
}});

} // namespace corvane
