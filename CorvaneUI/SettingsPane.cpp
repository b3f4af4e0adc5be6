#include "SettingsPane.h"

#include "EnumTable.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr EnumTable<SettingsPane::about, NamedCase<SettingsPane>> paneTable{{{
    {SettingsPane::general, "general"_L1},
    {SettingsPane::shortcuts, "shortcuts"_L1},
    {SettingsPane::layouts, "layouts"_L1},
    {SettingsPane::tremorLog, "tremorLog"_L1},
    {SettingsPane::about, "about"_L1},
}}};
static_assert(paneTable.cases() == settingsPanes);

} // namespace

QString rawValue(SettingsPane pane)
{
    return paneTable[pane].name;
}

std::optional<SettingsPane> settingsPaneNamed(const QString &identifier)
{
    return paneTable.named(identifier);
}

} // namespace corvane
