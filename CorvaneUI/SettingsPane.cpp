#include "SettingsPane.h"

#include "EnumTable.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct PaneRow {
    SettingsPane value;
    QLatin1StringView name;
    const char *title;
};

constexpr EnumTable<SettingsPane::about, PaneRow> paneTable{{{
    {SettingsPane::general, "general"_L1, QT_TRANSLATE_NOOP("SettingsPane", "General")},
    {SettingsPane::shortcuts, "shortcuts"_L1, QT_TRANSLATE_NOOP("SettingsPane", "Shortcuts")},
    {SettingsPane::layouts, "layouts"_L1, QT_TRANSLATE_NOOP("SettingsPane", "Layouts")},
    {SettingsPane::tremorLog, "tremorLog"_L1, QT_TRANSLATE_NOOP("SettingsPane", "Tremor Log")},
    {SettingsPane::about, "about"_L1, QT_TRANSLATE_NOOP("SettingsPane", "About")},
}}};
static_assert(paneTable.cases() == settingsPanes);

} // namespace

QString rawValue(SettingsPane pane)
{
    return paneTable[pane].name;
}

QString title(SettingsPane pane)
{
    return QCoreApplication::translate("SettingsPane", paneTable[pane].title);
}

std::optional<SettingsPane> settingsPaneNamed(const QString &identifier)
{
    return paneTable.named(identifier);
}

} // namespace corvane
