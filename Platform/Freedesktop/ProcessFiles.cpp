#include "ProcessFiles.h"

#include "KeyFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <array>
#include <unistd.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

QString fileName(const QString &path)
{
    return path.mid(path.lastIndexOf(u'/') + 1);
}

Sandbox snapSandbox(const QString &package, const QString &application)
{
    return {package + u'_' + application, package + u'_'};
}

bool isOption(const QByteArray &argument)
{
    return argument.startsWith('-') || argument.startsWith('@');
}

QString scriptAmong(const QByteArrayList &arguments)
{
    const auto script = std::ranges::find_if_not(arguments, isOption);
    return script == arguments.end() ? QString() : QString::fromLocal8Bit(*script);
}

/// Whether the option's value is the argument after it.
bool takesValue(const QByteArray &option)
{
    static constexpr std::array names{"-cp", "-classpath", "--class-path", "-p", "--module-path",
        "--upgrade-module-path", "--add-modules", "--add-exports", "--add-opens", "--add-reads",
        "--limit-modules", "--patch-module", "--enable-native-access"};
    return std::find(names.begin(), names.end(), option) != names.end();
}

} // namespace

bool isJava(const QString &program)
{
    const QString name = fileName(program);
    return name == "java"_L1 || name == "javaw"_L1;
}

QString javaProgram(const QByteArrayList &arguments)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QByteArray &argument = arguments[i];
        if (argument == "-jar") {
            const QString archive = fileName(QString::fromLocal8Bit(arguments.value(i + 1)));
            return archive.endsWith(".jar"_L1) ? archive.chopped(4) : archive;
        }
        if (argument == "-m" || argument == "--module")
            continue; // the class follows its module
        if (takesValue(argument))
            ++i;
        else if (!isOption(argument)) {
            const QString mainClass = fileName(QString::fromLocal8Bit(argument));
            return mainClass.mid(mainClass.lastIndexOf(u'.') + 1);
        }
    }
    return {};
}

bool runsOthers(const QString &program)
{
    static constexpr std::array names{"bash"_L1, "busybox"_L1, "bwrap"_L1, "dash"_L1, "electron"_L1,
        "env"_L1, "fish"_L1, "flatpak"_L1, "gjs"_L1, "gjs-console"_L1, "java"_L1, "javaw"_L1,
        "ksh"_L1, "lua"_L1, "luajit"_L1, "mono"_L1, "mono-sgen"_L1, "node"_L1, "nodejs"_L1,
        "perl"_L1, "php"_L1, "pkexec"_L1, "python"_L1, "ruby"_L1, "sh"_L1, "snap"_L1,
        "snap-confine"_L1, "sudo"_L1, "tclsh"_L1, "wine"_L1, "wine-preloader"_L1,
        "wine64-preloader"_L1, "wish"_L1, "zsh"_L1};
    static const QRegularExpression version(u"[-.0-9]+$"_s);
    QString name = fileName(program);
    return std::ranges::find(names, name.remove(version)) != names.end();
}

QList<pid_t> ProcessFiles::ownProcesses() const
{
    QList<pid_t> own;
    const QFileInfoList folders =
        QDir(m_root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo &folder : folders) {
        const pid_t pid = folder.fileName().toInt();
        if (pid > 0 && pid != getpid() && folder.ownerId() == geteuid())
            own << pid;
    }
    std::ranges::sort(own);
    return own;
}

std::optional<Sandbox> ProcessFiles::sandbox(pid_t pid) const
{
    if (pid <= 0)
        return std::nullopt;
    // Whatever runs there may have put anything in its place.
    const KeyFile info(path(pid, "root/.flatpak-info"), "Application", KeyFile::Links::refused);
    const QString name = info.text("name");
    return name.isEmpty() ? snap(pid) : Sandbox{name, name + u'.'};
}

std::optional<Sandbox> ProcessFiles::snap(pid_t pid) const
{
    static const QRegularExpression scope(
        u"/snap\\.([^./]+)\\.([^./]+?)([-.][0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12})?\\."
        "(scope|service)$"_s,
        QRegularExpression::MultilineOption);
    if (const auto match = scope.match(QString::fromUtf8(contents(pid, "cgroup")));
        match.hasMatch())
        return snapSandbox(match.captured(1), match.captured(2));
    const QString name = QString::fromUtf8(variable(pid, "SNAP_INSTANCE_NAME"));
    return name.isEmpty() ? std::nullopt : std::optional(snapSandbox(name, name));
}

QStringList ProcessFiles::programs(pid_t pid) const
{
    if (pid <= 0)
        return {};
    QString executable = QFile::symLinkTarget(path(pid, "exe"));
    // So the kernel calls a program that was replaced while it runs.
    if (const QString suffix = u" (deleted)"_s; executable.endsWith(suffix))
        executable.chop(suffix.size());
    const QByteArrayList arguments = contents(pid, "cmdline").split('\0');
    QStringList programs{executable, QString::fromLocal8Bit(arguments.value(0))};
    if (isJava(executable))
        programs << javaProgram(arguments.mid(1));
    else if (runsOthers(executable))
        programs << scriptAmong(arguments.mid(1));
    programs.removeIf(
        [](const QString &program) { return program.isEmpty() || runsOthers(program); });
    programs.removeDuplicates();
    return programs;
}

QByteArray ProcessFiles::variable(pid_t pid, QByteArrayView name) const
{
    for (const QByteArray &each : contents(pid, "environ").split('\0')) {
        if (each.startsWith(name) && each.mid(name.size()).startsWith('='))
            return each.mid(name.size() + 1);
    }
    return {};
}

QString ProcessFiles::path(pid_t pid, const char *file) const
{
    return u"%1/%2/%3"_s.arg(m_root).arg(pid).arg(QLatin1StringView(file));
}

QByteArray ProcessFiles::contents(pid_t pid, const char *file) const
{
    QFile opened(path(pid, file));
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
}

} // namespace corvane::freedesktop
