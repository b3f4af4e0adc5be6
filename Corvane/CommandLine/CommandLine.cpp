#include "CommandLine.h"

#include "Address.h"
#include "FlagTable.h"
#include "OneLine.h"

#include <QtCore/QDir>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

unexpected<QString> noSuchFlag(const QString &argument)
{
    QStringList names;
    for (const FlagRow &row : commandFlags())
        names << row.name;
    for (const FlagRow &row : screenFlags())
        names << row.name;
    return unexpected<QString>(u"There is no flag \"%1\"; the flags are: %2."_s.arg(
        oneLine(argument), names.join(u", "_s)));
}

/// Takes back the last command where that is --history, which a number may still follow, as in
/// "--history --json 50".
bool takeHistory(CommandLine &line)
{
    const bool isHistory = line.isCommand()
        && std::holds_alternative<Command::ShowHistory>(line.commands.last().value);
    if (isHistory)
        line.commands.removeLast();
    return isHistory;
}

/// Reads an argument that is neither a flag nor a flag's value.
expected<void, QString> readBare(CommandLine &line, const QString &argument)
{
    if (Address::isOurs(argument))
        return Address::pane(argument).map(
            [&line](SettingsPane pane) { line.screens.pane = pane; });
    if (takeHistory(line) && flagNamed(u"--history"_s)->set(line, argument))
        return {};
    return noSuchFlag(argument);
}

expected<void, QString> readFlag(CommandLine &line, const FlagRow &row, const QString &value)
{
    if (row.set(line, value))
        return {};
    const QString problem = value.isEmpty()
        ? u"%1 needs a value; %2."_s.arg(row.name, row.offer())
        : u"%1 knows no \"%2\"; %3."_s.arg(row.name, oneLine(value), row.offer());
    return unexpected<QString>(problem);
}

/// A report that is to be saved is a command, and no sheet.
expected<void, QString> settleReport(CommandLine &line)
{
    const auto file = std::exchange(line.save, std::nullopt);
    if (!file)
        return {};
    const auto text = std::exchange(line.screens.report, std::nullopt);
    if (!text)
        return unexpected<QString>(u"--save says where a report goes; it needs --report."_s);
    line.commands << Command{Command::SaveReport{*text, *file}};
    return {};
}

QString helpRows(std::span<const FlagRow> table, int width)
{
    QString text;
    for (const FlagRow &row : table)
        text += u"  %1  %2\n"_s.arg(row.name + u' ' + row.value, -width).arg(row.help);
    return text;
}

} // namespace

expected<CommandLine, QString> CommandLine::parse(const QStringList &arguments)
{
    CommandLine line;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        const FlagRow *row = flagNamed(arguments[at]);
        if (!row) {
            if (const auto read = readBare(line, arguments[at]); !read)
                return unexpected<QString>(read.error());
            continue;
        }
        const bool hasValue = !row->value.isEmpty() && at + 1 < arguments.size()
            && !arguments[at + 1].startsWith("--"_L1);
        if (const auto read = readFlag(line, *row, hasValue ? arguments[++at] : QString()); !read)
            return unexpected<QString>(read.error());
    }
    if (const auto settled = settleReport(line); !settled)
        return unexpected<QString>(settled.error());
    return line;
}

QStringList CommandLine::withAbsolutePaths(QStringList arguments)
{
    for (qsizetype at = 1; at < arguments.size(); ++at) {
        const FlagRow *row = flagNamed(arguments[at - 1]);
        const bool isStream = arguments[at - 1] == "--save"_L1 && arguments[at] == "-"_L1;
        if (row && row->value == "FILE"_L1 && !arguments[at].isEmpty() && !isStream)
            arguments[at] = QDir::current().absoluteFilePath(arguments[at]);
    }
    return arguments;
}

QString CommandLine::helpText()
{
    constexpr int commandWidth = 25;
    constexpr int screenWidth = 34;
    QString text = u"Usage: corvane [flags] [address]\n\n"
                   "Puts the focused window exactly where you want it, on a key press. Started\n"
                   "with no flag but --verbose it stays and listens for its shortcuts; if it runs\n"
                   "already, it opens its settings.\n\n"_s;
    text += helpRows(commandFlags(), commandWidth);
    text += u"\nWhat the running program shows; with none running, it starts and stays:\n"_s;
    text += helpRows(screenFlags(), screenWidth);
    text += u"\nPlacements:\n"_s;
    for (const PlacementGroup group : placementGroups()) {
        QStringList names;
        for (const Placement placement : inGroup(group))
            names << rawValue(placement);
        text += u"  %1  %2\n"_s.arg(title(group), -9).arg(names.join(u' '));
    }
    text += u"\nPanes:\n  "_s;
    for (const SettingsPane pane : settingsPanes)
        text += rawValue(pane) + u' ';
    text.back() = u'\n';
    text += u"The address corvane://settings/PANE opens one, too.\n"_s;
    text += u"\nSeveral commands are carried out in the order given.\n"
            "Exit status: 0 when the window moved, 1 when it did not, 2 for a flag or a placement "
            "that does not exist; of several commands, the worst.\n"_s;
    return text;
}

QString CommandLine::versionText()
{
    return u"corvane " CORVANE_VERSION "\n"_s;
}

} // namespace corvane
