#include "FlagTable.h"

#include "Settings.h"

#include <QtCore/QVersionNumber>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Flags = CommandLine;
using Screens = ScreenFlags;

template <auto member>
auto &field(CommandLine &line)
{
    if constexpr (requires { line.*member; })
        return line.*member;
    else
        return line.screens.*member;
}

template <auto member>
bool turnOn(CommandLine &line, const QString &)
{
    return field<member>(line) = true;
}

template <auto member>
bool readText(CommandLine &line, const QString &text)
{
    field<member>(line) = text;
    return !text.isEmpty();
}

template <auto member, int lowest>
bool readNumber(CommandLine &line, const QString &text)
{
    bool isNumber = false;
    field<member>(line) = text.toInt(&isNumber);
    return isNumber && *field<member>(line) >= lowest;
}

template <auto member>
bool readVersion(CommandLine &line, const QString &text)
{
    field<member>(line) = text;
    return !QVersionNumber::fromString(text).isNull();
}

template <typename Kind>
bool add(CommandLine &line, const QString &)
{
    line.commands << Command{Kind{}};
    return true;
}

template <typename Kind>
bool addWithText(CommandLine &line, const QString &text)
{
    line.commands << Command{Kind{text}};
    return !text.isEmpty();
}

bool addPlacement(CommandLine &line, const QString &name)
{
    const auto placement = placementNamed(name);
    if (placement)
        line.commands << Command{Command::Place{*placement}};
    return placement.has_value();
}

bool addCapture(CommandLine &line, const QString &name)
{
    return addWithText<Command::Capture>(line, name.isEmpty() ? u"Layout"_s : name);
}

bool addHistory(CommandLine &line, const QString &number)
{
    Command::ShowHistory history;
    bool isNumber = number.isEmpty();
    if (!isNumber)
        history.count = number.toInt(&isNumber);
    line.commands << Command{history};
    return isNumber && history.count >= 1;
}

bool readReport(CommandLine &line, const QString &text)
{
    line.screens.report = text;
    return true;
}

bool readPane(CommandLine &line, const QString &name)
{
    const QString plain = QString(name).remove(u'-').toLower();
    const auto *const pane = std::ranges::find(
        settingsPanes, plain, [](SettingsPane each) { return rawValue(each).toLower(); });
    if (pane != settingsPanes.end())
        line.screens.pane = *pane;
    return pane != settingsPanes.end();
}

bool readAppearance(CommandLine &line, const QString &name)
{
    line.screens.appearance = name == "dark"_L1 ? Appearance::dark : Appearance::light;
    return !name.isEmpty();
}

QString placements()
{
    return u"the placements are: "_s + placementNames().join(u", "_s);
}

QString panes()
{
    QStringList names;
    for (const SettingsPane pane : settingsPanes)
        names << rawValue(pane);
    return u"the panes are: "_s + names.join(u", "_s);
}

QString layouts()
{
    return u"corvane --layouts lists the layouts"_s;
}

QString appearanceNames()
{
    return u"the appearances are: dark, light"_s;
}

QString files()
{
    return u"a file is needed"_s;
}

QString versions()
{
    return u"a version is written like 1.2.3"_s;
}

QString numbersFromZero()
{
    return u"panes are counted from 0"_s;
}

QString numbersFromOne()
{
    return u"numbers start at 1"_s;
}

constexpr std::array commandTable{
    FlagRow{"--place"_L1, "PLACEMENT"_L1, "place the focused window and say what happened"_L1,
        addPlacement, placements},
    FlagRow{"--capture"_L1, "[NAME]"_L1, "save the windows as they stand as a new layout"_L1,
        addCapture},
    FlagRow{"--apply-layout"_L1, "NAME"_L1, "put the windows back into a layout, by name or id"_L1,
        addWithText<Command::ApplyLayout>, layouts},
    FlagRow{"--layouts"_L1, ""_L1, "list the layouts; * marks those for these displays"_L1,
        add<Command::ListLayouts>},
    FlagRow{"--history"_L1, "[N]"_L1, "show the newest moves, 20 unless told"_L1, addHistory,
        numbersFromOne},
    FlagRow{"--json"_L1, ""_L1, "with all of the above: answer in JSON, in one line"_L1,
        turnOn<&Flags::json>},
    FlagRow{"--print-settings"_L1, ""_L1, "show the settings in force, as JSON"_L1,
        add<Command::PrintSettings>},
    FlagRow{"--quit-competitors"_L1, ""_L1, "ask every other window manager of its kind to quit"_L1,
        add<Command::QuitCompetitors>},
    FlagRow{"--render-status-icon"_L1, "FILE"_L1, "draw the icon of the panel to a file"_L1,
        addWithText<Command::RenderStatusIcon>, files},
    FlagRow{"--save"_L1, "FILE"_L1, "with --report: write the report to a new file, or to -"_L1,
        readText<&Flags::save>, files},
    FlagRow{"--verbose"_L1, ""_L1, "log what happens on standard error, a line each"_L1,
        turnOn<&Flags::verbose>},
    FlagRow{"--self-test"_L1, ""_L1, "open the display, show the number of this build, and end"_L1,
        turnOn<&Flags::selfTest>},
    FlagRow{"--help"_L1, ""_L1, "show this text"_L1, turnOn<&Flags::help>},
    FlagRow{"--version"_L1, ""_L1, "show the version"_L1, turnOn<&Flags::version>},
};

constexpr std::array screenTable{
    FlagRow{"--open-settings"_L1, ""_L1, "open the settings"_L1, turnOn<&Screens::openSettings>},
    FlagRow{"--pane"_L1, "PANE"_L1, "open the settings at a pane"_L1, readPane, panes},
    FlagRow{"--layout"_L1, "NAME"_L1, "open the settings at a layout, by name or id"_L1,
        readText<&Screens::layout>, layouts},
    FlagRow{"--select-pane"_L1, "N"_L1, "with --layout: select its pane, from 0"_L1,
        readNumber<&Screens::selectPane, 0>, numbersFromZero},
    FlagRow{"--open-app-picker"_L1, ""_L1, "with --layout: choose an application for the pane"_L1,
        turnOn<&Screens::openAppPicker>},
    FlagRow{"--appearance"_L1, "LOOK"_L1, "dark or light until it quits"_L1, readAppearance,
        appearanceNames},
    FlagRow{
        "--pop-menu"_L1, ""_L1, "open the menu of the panel's icon"_L1, turnOn<&Screens::popMenu>},
    FlagRow{"--show-tour"_L1, ""_L1, "show the tour"_L1, turnOn<&Screens::showTour>},
    FlagRow{"--tour-page"_L1, "N"_L1, "show the tour at a page, from 1"_L1,
        readNumber<&Screens::tourPage, 1>, numbersFromOne},
    FlagRow{"--report"_L1, "[TEXT]"_L1, "write the report of a problem, begun with the text"_L1,
        readReport},
    FlagRow{"--check-for-updates"_L1, ""_L1, "check for updates now"_L1,
        turnOn<&Screens::checkForUpdates>},
    FlagRow{"--preview-layout-edit"_L1, ""_L1, "show the layout editor with a sample layout"_L1,
        turnOn<&Screens::previewLayoutEdit>},
    FlagRow{"--preview-steal"_L1, ""_L1, "show a sample conflict of two shortcuts"_L1,
        turnOn<&Screens::previewSteal>},
    FlagRow{"--preview-update-available"_L1, "VERSION"_L1, "show that version as an update"_L1,
        readVersion<&Screens::previewUpdateAvailable>, versions},
    FlagRow{"--preview-newer"_L1, "VERSION"_L1, "and after it, that newer one"_L1,
        readVersion<&Screens::previewNewer>, versions},
    FlagRow{"--preview-update-window"_L1, "VERSION"_L1, "show the update sheet for that version"_L1,
        readVersion<&Screens::previewUpdateWindow>, versions},
    FlagRow{"--preview-notes"_L1, "FILE"_L1, "with the release notes in that file"_L1,
        readText<&Screens::previewNotes>, files},
};

const FlagRow *find(std::span<const FlagRow> table, const QString &name)
{
    const auto row =
        std::ranges::find(table, name, [](const FlagRow &each) { return QString(each.name); });
    return row == table.end() ? nullptr : &*row;
}

} // namespace

std::span<const FlagRow> commandFlags()
{
    return commandTable;
}

std::span<const FlagRow> screenFlags()
{
    return screenTable;
}

const FlagRow *flagNamed(const QString &name)
{
    const FlagRow *row = find(commandTable, name);
    return row ? row : find(screenTable, name);
}

} // namespace corvane
