#include "EntryFolders.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

EntryFolders::EntryFolders()
{
    static const QByteArray systemPath = qgetenv("PATH");
    qputenv("XDG_DATA_HOME", path(u"home"_s).toLocal8Bit());
    qputenv("XDG_DATA_DIRS", path(u"system"_s).toLocal8Bit());
    qputenv("XDG_CURRENT_DESKTOP", "Desk:Generic");
    qputenv("PATH", path(u"bin"_s).toLocal8Bit() + ':' + systemPath);
    qunsetenv("TERMINAL");
}

void EntryFolders::write(const QString &id, const QByteArray &keys, Place place) const
{
    const QString folder = place == Place::home ? u"home"_s : u"system"_s;
    writeFile(u"%1/applications/%2.desktop"_s.arg(folder, id), "[Desktop Entry]\n" + keys + '\n');
}

void EntryFolders::install(const QString &id, const QByteArray &keys, Place place) const
{
    QByteArray lines = "Type=Application\nName=Application\n";
    if (!keys.contains("Exec="))
        lines += "Exec=true\n";
    write(id, lines + keys, place);
}

void EntryFolders::remove(const QString &id) const
{
    QFile::remove(path(u"home/applications/%1.desktop"_s.arg(id)));
}

QString EntryFolders::addProgram(const QString &name) const
{
    const QString program = u"bin/"_s + name;
    writeFile(program, "#!/bin/sh\n");
    QFile::setPermissions(path(program), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path(program);
}

void EntryFolders::writeFile(const QString &file, const QByteArray &contents) const
{
    QDir().mkpath(QFileInfo(path(file)).path());
    QFile opened(path(file));
    if (!opened.open(QIODevice::WriteOnly) || opened.write(contents) != contents.size())
        qFatal("%s cannot be written", qUtf8Printable(path(file)));
}

bool eventually(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(10));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

} // namespace corvane::freedesktop
