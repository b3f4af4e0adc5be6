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
    FlagRow{"--json"_L1, ""_L1, "with --place: say it as one JSON object"_L1},
    FlagRow{"--verbose"_L1, ""_L1, "log what happens on standard error, a line each"_L1},
    FlagRow{"--help"_L1, ""_L1, "show this text"_L1},
    FlagRow{"--version"_L1, ""_L1, "show the version"_L1},
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

} // namespace

expected<CommandLine, QString> CommandLine::parse(const QStringList &arguments)
{
    CommandLine line;
    for (auto at = arguments.cbegin(); at != arguments.cend(); ++at) {
        if (*at == "--json"_L1) {
            line.json = true;
        } else if (*at == "--verbose"_L1) {
            line.verbose = true;
        } else if (*at == "--help"_L1) {
            line.help = true;
        } else if (*at == "--version"_L1) {
            line.version = true;
        } else if (*at == "--place"_L1) {
            const QString name = std::next(at) == arguments.cend() ? QString() : *++at;
            line.place = placementNamed(name);
            if (!line.place)
                return unexpected<QString>(
                    u"There is no placement \"%1\"; the placements are: %2."_s.arg(
                        name, placementNames()));
        } else {
            return unexpected<QString>(
                u"There is no flag \"%1\"; the flags are: %2."_s.arg(*at, flagNames()));
        }
    }
    return line;
}

QString CommandLine::helpText()
{
    QString text = u"Usage: corvane [flags]\n\n"
                   "Puts the focused window exactly where you want it, on a key press. Without\n"
                   "--place it stays, unless it runs already, and listens for its shortcuts.\n\n"_s;
    for (const FlagRow &row : flagTable)
        text += u"  %1  %2\n"_s.arg(row.name + u' ' + row.value, -18).arg(row.help);
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
