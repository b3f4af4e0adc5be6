#include "PaneResult.h"

#include "Match.h"

#include <QtCore/QCoreApplication>

#include <array>

namespace corvane {

namespace {

constexpr std::array caseNames{
    "placed",
    "refused",
    "empty",
    "displayMissing",
    "notInstalled",
    "notRunning",
    "launched",
    "noWindow",
};
static_assert(caseNames.size() == std::variant_size_v<decltype(PaneStatus::value)>);

} // namespace

QString PaneResult::appName() const
{
    return pane.app ? pane.app->name : QString();
}

bool needsNothing(const PaneStatus &status)
{
    return std::holds_alternative<PaneStatus::Placed>(status.value)
        || std::holds_alternative<PaneStatus::Empty>(status.value);
}

QString statusName(const PaneStatus &status)
{
    return QLatin1StringView(caseNames[status.value.index()]);
}

QString statusText(const PaneStatus &status)
{
    return match(
        status.value, [](const PaneStatus::Placed &) { return QString(); },
        [](const PaneStatus::Refused &refused) { return refused.reason; },
        [](PaneStatus::Empty) { return QString(); },
        [](PaneStatus::DisplayMissing) {
            return QCoreApplication::translate("PaneResult", "its display is not connected");
        },
        [](PaneStatus::NotInstalled) {
            return QCoreApplication::translate("PaneResult", "is not installed on this Mac");
        },
        [](PaneStatus::NotRunning) {
            return QCoreApplication::translate(
                "PaneResult", "is not running (opening it is off for this pane)");
        },
        [](PaneStatus::Launched launched) {
            return launched.showsAnother
                ? QCoreApplication::translate(
                    "PaneResult", "was opened, and its window is not the one named")
                : QCoreApplication::translate(
                    "PaneResult", "was opened, and still had no window after 20 seconds");
        },
        [](PaneStatus::NoWindow) {
            return QCoreApplication::translate(
                "PaneResult", "is running but has no window to place");
        });
}

} // namespace corvane
