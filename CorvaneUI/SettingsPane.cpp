#include "SettingsPane.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {
constexpr std::array identifiers{
    "general"_L1, "shortcuts"_L1, "layouts"_L1, "tremorLog"_L1, "about"_L1};
static_assert(identifiers.size() == settingsPanes.size());
} // namespace

QString rawValue(SettingsPane pane)
{
    return identifiers[static_cast<std::size_t>(pane)];
}

std::optional<SettingsPane> settingsPaneNamed(const QString &identifier)
{
    const auto *const pane = std::ranges::find(
        settingsPanes, identifier, [](SettingsPane each) { return rawValue(each); });
    return pane == settingsPanes.end() ? std::nullopt : std::optional(*pane);
}

} // namespace corvane
