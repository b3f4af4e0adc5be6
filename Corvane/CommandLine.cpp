#include "CommandLine.h"

#include <algorithm>
#include <array>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct FlagRow {
    QLatin1StringView name;
    QLatin1StringView value;
    QLatin1StringView help;
};

constexpr std::array flagTable{
    FlagRow{"--place"_L1, "PLACEMENT"_L1, "place the focused window and say what happened"_L1},
    FlagRow{"--capture"_L1, "[NAME]"_L1, "save the windows as they stand as a new layout"_L1},
    FlagRow{"--apply-layout"_L1, "NAME"_L1, "put the windows back into a layout, by name or id"_L1},
    FlagRow{"--layouts"_L1, ""_L1, "list the layouts; * marks those for these displays"_L1},
    FlagRow{"--history"_L1, "[N]"_L1, "show the newest moves, 20 unless told"_L1},
    FlagRow{"--json"_L1, ""_L1, "with all of the above: answer in JSON, in one line"_L1},
    FlagRow{"--print-settings"_L1, ""_L1, "show the settings in force, as JSON"_L1},
    FlagRow{"--verbose"_L1, ""_L1, "log what happens on standard error, a line each"_L1},
    FlagRow{"--help"_L1, ""_L1, "show this text"_L1},
    FlagRow{"--version"_L1, ""_L1, "show the version"_L1},
};

/// The flags that are on or off.
constexpr std::array switchTable{
    std::pair{"--layouts"_L1, &CommandLine::layouts},
    std::pair{"--print-settings"_L1, &CommandLine::printSettings},
    std::pair{"--json"_L1, &CommandLine::json},
    std::pair{"--verbose"_L1, &CommandLine::verbose},
    std::pair{"--help"_L1, &CommandLine::help},
    std::pair{"--version"_L1, &CommandLine::version},
};

QString placementNames()
{
    QStringList names;
    for (const Placement placement : allPlacements())
        names << rawValue(placement);
    return names.join(u", "_s);
}

QString flagNames()
{
    QStringList names;
    for (const FlagRow &row : flagTable)
        names << row.name;
    return names.join(u", "_s);
}

unexpected<QString> noSuchFlag(const QString &argument)
{
    return unexpected<QString>(
        u"There is no flag \"%1\"; the flags are: %2."_s.arg(argument, flagNames()));
}

QString usualLayoutName()
{
    return u"Layout"_s;
}

std::optional<int> count(const QString &argument)
{
    bool isNumber = false;
    const int number = argument.toInt(&isNumber);
    return isNumber && number > 0 ? std::optional(number) : std::nullopt;
}

} // namespace

expected<CommandLine, QString> CommandLine::parse(const QStringList &arguments)
{
    CommandLine line;
    for (auto at = arguments.cbegin(); at != arguments.cend(); ++at) {
        const auto *const onOff =
            std::ranges::find(switchTable, *at, [](const auto &row) { return QString(row.first); });
        if (onOff != switchTable.end()) {
            line.*onOff->second = true;
        } else if (*at == "--place"_L1) {
            const QString name = std::next(at) == arguments.cend() ? QString() : *++at;
            line.place = placementNamed(name);
            if (!line.place)
                return unexpected<QString>(
                    u"There is no placement \"%1\"; the placements are: %2."_s.arg(
                        name, placementNames()));
        } else if (*at == "--capture"_L1) {
            const bool isNamed =
                std::next(at) != arguments.cend() && !std::next(at)->startsWith(u"--");
            line.capture = isNamed ? *++at : usualLayoutName();
        } else if (*at == "--apply-layout"_L1) {
            if (std::next(at) == arguments.cend())
                return unexpected<QString>(
                    u"--apply-layout needs a layout's name; corvane --layouts lists them."_s);
            line.applyLayout = *++at;
        } else if (*at == "--history"_L1) {
            line.history = line.history.value_or(usualHistory);
        } else if (const auto number = count(*at); number && line.history) {
            line.history = number;
        } else {
            return noSuchFlag(*at);
        }
    }
    return line;
}

QString CommandLine::helpText()
{
    QString text = u"Usage: corvane [flags]\n\n"
                   "Puts the focused window exactly where you want it, on a key press. Started\n"
                   "with no flag but --verbose it stays, unless it runs already, and listens for\n"
                   "its shortcuts.\n\n"_s;
    for (const FlagRow &row : flagTable)
        text += u"  %1  %2\n"_s.arg(row.name + u' ' + row.value, -20).arg(row.help);
    text += u"\nPlacements:\n"_s;
    for (const PlacementGroup group : placementGroups()) {
        QStringList names;
        for (const Placement placement : inGroup(group))
            names << rawValue(placement);
        text += u"  %1  %2\n"_s.arg(title(group), -9).arg(names.join(u' '));
    }
    text +=
        u"\nExit status: 0 when the window moved, 1 when it did not, 2 for a flag or a placement "
        "that does not exist.\n"_s;
    return text;
}

QString CommandLine::versionText()
{
    return u"corvane " CORVANE_VERSION "\n"_s;
}

} // namespace corvane
