#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <functional>

namespace corvane::freedesktop {

/// A user's and a system's folder of desktop entries, and one of programs, in place of this machine's.
class EntryFolders
{
public:
    EntryFolders()
    {
        static const QByteArray systemPath = qgetenv("PATH");
        qputenv("XDG_DATA_HOME", path(QStringLiteral("home")).toLocal8Bit());
        qputenv("XDG_DATA_DIRS", path(QStringLiteral("system")).toLocal8Bit());
        qputenv("XDG_CURRENT_DESKTOP", "Desk:Generic");
        qputenv("PATH", path(QStringLiteral("bin")).toLocal8Bit() + ':' + systemPath);
        qunsetenv("TERMINAL");
    }

    [[nodiscard]] QString path(const QString &file) const { return m_folder.filePath(file); }
    /// A file with its folders.
    void write(const QString &file, const QByteArray &contents) const
    {
        QDir().mkpath(path(file).section(u'/', 0, -2));
        QFile opened(path(file));
        if (!opened.open(QIODevice::WriteOnly) || opened.write(contents) != contents.size())
            qFatal("%s cannot be written", qUtf8Printable(path(file)));
    }
    /// The entry of an application that can be opened, with these lines in its group.
    void install(const QString &id, const QByteArray &keys = {},
        const QString &folder = QStringLiteral("home")) const
    {
        const QByteArray lines = keys.contains("Exec=") ? keys : "Exec=true\n" + keys;
        write(QStringLiteral("%1/applications/%2.desktop").arg(folder, id),
            "[Desktop Entry]\nType=Application\nName=Application\n" + lines + '\n');
    }
    void remove(const QString &id) const
    {
        QFile::remove(path(QStringLiteral("home/applications/%1.desktop").arg(id)));
    }
    /// A program in the search path.
    [[nodiscard]] QString addProgram(
        const QString &name, const QByteArray &script = "#!/bin/sh\n") const
    {
        const QString file = QStringLiteral("bin/") + name;
        write(file, script);
        QFile::setPermissions(path(file), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path(file);
    }
    /// What the folder of process 7 says of its program and arguments.
    void runProgram(const QString &executable, const QByteArray &arguments) const
    {
        write(QStringLiteral("proc/7/cmdline"), arguments.split(' ').join('\0') + '\0');
        QFile::remove(path(QStringLiteral("proc/7/exe")));
        QFile::link(executable, path(QStringLiteral("proc/7/exe")));
    }

private:
    QTemporaryDir m_folder;
};

/// Runs the event loop until the condition holds; false when it does not in time.
[[nodiscard]] inline bool eventually(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(15));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

} // namespace corvane::freedesktop
