#pragma once

#include "DesktopEntries.h"
#include "PrivateSession.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtDBus/QtDBus>

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using namespace testing;

/// Runs the event loop until the condition holds; false when it does not in time.
[[nodiscard]] inline bool eventually(const std::function<bool()> &condition)
{
    return desktop::waitUntil([&] {
        QCoreApplication::processEvents();
        return condition();
    });
}

/// A user's and a system's folder of desktop entries, and one of programs, in place of this machine's.
struct EntryTests : Test {
    EntryTests()
    {
        static const QByteArray systemPath = qgetenv("PATH");
        qputenv("XDG_DATA_HOME", path(u"home"_s).toLocal8Bit());
        qputenv("XDG_DATA_DIRS", path(u"system"_s).toLocal8Bit());
        qputenv("XDG_CURRENT_DESKTOP", "Desk:Generic");
        qputenv("PATH", path(u"bin"_s).toLocal8Bit() + ':' + systemPath);
        qunsetenv("TERMINAL");
    }

    [[nodiscard]] QString path(const QString &file) const { return folder.filePath(file); }
    /// A file with its folders.
    void write(const QString &file, const QByteArray &contents) const
    {
        QDir().mkpath(path(file).section(u'/', 0, -2));
        QFile opened(path(file));
        if (!opened.open(QIODevice::WriteOnly) || opened.write(contents) != contents.size())
            qFatal("%s cannot be written", qUtf8Printable(path(file)));
    }
    /// The entry of an application that can be opened, with these lines in its group.
    void install(
        const QString &id, const QByteArray &keys = {}, const QString &place = u"home"_s) const
    {
        const QByteArray lines = keys.contains("Exec=") ? keys : "Exec=true\n" + keys;
        write(u"%1/applications/%2.desktop"_s.arg(place, id),
            "[Desktop Entry]\nType=Application\nName=Application\n" + lines + '\n');
    }
    void remove(const QString &id) const
    {
        QFile::remove(path(u"home/applications/%1.desktop"_s.arg(id)));
    }
    /// A program in the search path.
    [[nodiscard]] QString addProgram(
        const QString &name, const QByteArray &script = "#!/bin/sh\n") const
    {
        write(u"bin/"_s + name, script);
        const QString file = path(u"bin/"_s + name);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    /// What the folder of process 7 says of its program and arguments.
    void runProgram(const QString &executable, const QByteArray &arguments) const
    {
        write(u"proc/7/cmdline"_s, arguments.split(' ').join('\0') + '\0');
        QFile::remove(path(u"proc/7/exe"_s));
        QFile::link(executable, path(u"proc/7/exe"_s));
    }

    QTemporaryDir folder;
    DesktopEntries entries;
};

/// A service on the session bus that notes every call, and answers when the test says so.
struct FakeService final : QDBusVirtualObject {
    FakeService(const QString &name, const QString &path)
        : bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name))
    {
        if (!bus.registerVirtualObject(path, this) || !bus.registerService(name))
            qFatal("%s cannot be on the bus", qUtf8Printable(name));
    }
    ~FakeService() override { QDBusConnection::disconnectFromBus(bus.name()); }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        message.setDelayedReply(true);
        calls << message;
        return true;
    }
    QString introspect(const QString &) const override { return {}; }

    void answer(qsizetype call, const QVariantList &values)
    {
        bus.send(calls[call].createReply(values));
    }
    void refuse(qsizetype call) { bus.send(calls[call].createErrorReply(QDBusError::Failed, {})); }
    bool hears(qsizetype count)
    {
        return eventually([&] { return calls.size() >= count; });
    }
    QVariant argument(qsizetype call, qsizetype index)
    {
        return calls.value(call).arguments().value(index);
    }

    QDBusConnection bus;
    QList<QDBusMessage> calls;
};

} // namespace corvane::freedesktop
