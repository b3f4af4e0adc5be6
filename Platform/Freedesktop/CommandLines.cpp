#include "CommandLines.h"

#include "ProcessFiles.h"

#include <glib.h>

#include <array>

namespace corvane::freedesktop {

namespace {

QByteArrayList words(const QByteArray &line)
{
    int count = 0;
    char **vector = nullptr;
    if (!g_shell_parse_argv(line.constData(), &count, &vector, nullptr))
        return {};
    const QByteArrayList list(vector, vector + count);
    g_strfreev(vector);
    return list;
}

QByteArray fieldText(char code, const DesktopEntry &entry)
{
    switch (code) {
    case '%':
        return "%";
    case 'c':
        return entry.name.toLocal8Bit();
    case 'k':
        return entry.path.toLocal8Bit();
    default: // for files and addresses, of which there are none, and what older versions had
        return {};
    }
}

QByteArray withFields(const QByteArray &word, const DesktopEntry &entry)
{
    QByteArray text;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] != '%')
            text += word[i];
        else if (++i < word.size())
            text += fieldText(word[i], entry);
    }
    return text;
}

/// What makes a terminal take the rest of its command line as the command to run.
QByteArray commandFlag(const QByteArray &terminal)
{
    struct Row {
        const char *name;
        const char *flag;
    };
    constexpr std::array rows{Row{"gnome-terminal", "--"}, Row{"kgx", "--"}, Row{"ptyxis", "--"},
        Row{"mate-terminal", "-x"}, Row{"terminator", "-x"}, Row{"xfce4-terminal", "-x"}};
    const QByteArray name = terminal.mid(terminal.lastIndexOf('/') + 1);
    for (const Row &row : rows) {
        if (name == row.name)
            return row.flag;
    }
    return "-e";
}

} // namespace

QByteArrayList commandLine(const DesktopEntry &entry)
{
    QByteArrayList command;
    for (const QByteArray &word : words(entry.exec)) {
        if (word == "%i") {
            if (!entry.icon.isEmpty())
                command << "--icon" << entry.icon;
            continue;
        }
        const QByteArray text = withFields(word, entry);
        if (!text.isEmpty() || word.isEmpty())
            command << text;
    }
    return command;
}

QByteArray quotedWord(const QByteArray &word)
{
    QByteArray quoted = "\"";
    for (const char byte : word) {
        if (QByteArrayView("\"`$\\").contains(byte))
            quoted += '\\';
        quoted += byte;
    }
    quoted += '"';
    return quoted.replace('\\', "\\\\").replace('\n', "\\n");
}

QByteArray execValue(const QByteArray &program)
{
    // GLib looks for the first word as it stands, with its percent signs still doubled.
    const QByteArray prefix = program.contains('%') ? "env " : "";
    return prefix + quotedWord(QByteArray(program).replace('%', "%%"));
}

QByteArrayList terminalCommandLine(const QByteArrayList &command)
{
    for (const QByteArray &terminal :
        {qgetenv("TERMINAL"), QByteArray("x-terminal-emulator"), QByteArray("xterm")}) {
        if (!terminal.isEmpty() && !programPath(terminal).isEmpty())
            return QByteArrayList{terminal, commandFlag(terminal)} + command;
    }
    return {};
}

QByteArrayList ownPrograms(const DesktopEntry &entry)
{
    QByteArrayList command = commandLine(entry);
    if (command.value(0) == "env") {
        command.removeFirst();
        while (command.value(0).contains('='))
            command.removeFirst();
    }
    QByteArrayList programs{command.value(0), entry.tryExec};
    if (isJava(QString::fromLocal8Bit(command.value(0))))
        programs << javaProgram(command.mid(1)).toLocal8Bit();
    programs.removeIf([](const QByteArray &program) {
        return program.isEmpty() || runsOthers(QString::fromLocal8Bit(program));
    });
    return programs;
}

QByteArray programPath(const QByteArray &program)
{
    if (program.isEmpty())
        return {};
    char *path = g_find_program_in_path(program.constData());
    const QByteArray found(path);
    g_free(path);
    return found;
}

} // namespace corvane::freedesktop
