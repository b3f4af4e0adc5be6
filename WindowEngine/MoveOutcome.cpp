#include "MoveOutcome.h"

#include "Match.h"

#include <QtCore/QCoreApplication>

#include <array>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array caseNames{
    "moved",
    "refused",
    "noWindow",
    "notTrusted",
    "nothingToSnapBack",
    "noOriginal",
    "singleDisplay",
};
static_assert(caseNames.size() == std::variant_size_v<decltype(MoveOutcome::value)>);

} // namespace

QString outcomeName(const MoveOutcome &outcome)
{
    return QLatin1StringView(caseNames[outcome.value.index()]);
}

QString refusalText(const MoveOutcome &outcome, const std::optional<QString> &frontmostName)
{
    return match(
        outcome.value, [](const MoveOutcome::Moved &) { return QString(); },
        [](const MoveOutcome::Refused &refused) { return refused.reason; },
        [&frontmostName](MoveOutcome::NoWindow) {
            return u"no focused window (%1)"_s.arg(frontmostName.value_or(u"?"_s));
        },
        [](MoveOutcome::NotTrusted) { return u"accessibility not granted"_s; },
        [](MoveOutcome::NothingToSnapBack) { return u"nothing to snap back"_s; },
        [](MoveOutcome::NoOriginal) {
            return u"original orientation: this window was not seen opening"_s;
        },
        [](MoveOutcome::SingleDisplay) { return u"only one display"_s; });
}

QString activityText(const QString &refusedReason)
{
    if (refusedReason.contains(u"full screen"))
        return QCoreApplication::translate("ActivityEntry", "is in full screen");
    if (refusedReason.contains(u"answer"))
        return QCoreApplication::translate("ActivityEntry", "did not answer (it may be busy)");
    return QCoreApplication::translate("ActivityEntry", "would not let its window move");
}

} // namespace corvane
