#include "Launcher.h"

#include "BusCall.h"
#include "CommandLines.h"
#include "Spawn.h"

#include <QtCore/QDebug>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

constexpr int activationTimeout = 5000; // ms

QString objectPath(const QString &id)
{
    QString path = u'/' + id;
    return path.replace(u'.', u'/').replace(u'-', u'_');
}

} // namespace

expected<void, QString> Launcher::open(const QString &id)
{
    const auto entry = openable(id);
    if (!entry)
        return unexpected<QString>(entry.error());
    return activateOrStart(*entry, u"Activate"_s, {});
}

expected<void, QString> Launcher::openFurtherWindow(const QString &id)
{
    auto entry = openable(id);
    if (!entry)
        return unexpected<QString>(entry.error());
    if (const auto action = newWindowAction(*entry)) {
        entry->exec = action->exec;
        const QVariant noParameters = QVariantList();
        return activateOrStart(
            *entry, u"ActivateAction"_s, QVariantList() << action->name << noParameters);
    }
    if (entry->hasOneWindow)
        return unexpected<QString>(tr("\"%1\" shows no more than one window.").arg(entry->name));
    // To activate it would only bring forward what it shows.
    return start(*entry);
}

expected<DesktopEntry, QString> Launcher::openable(const QString &id)
{
    const auto entry = m_entries.entry(id);
    if (!entry)
        return unexpected<QString>(tr("\"%1\" is not installed.").arg(id));
    if (const auto found = fault(*entry); found != DesktopEntry::Fault::none)
        return unexpected<QString>(sentence(*entry, found));
    return *entry;
}

expected<void, QString> Launcher::activateOrStart(
    const DesktopEntry &entry, const QString &method, const QVariantList &arguments)
{
    if (entry.isActivatable && activate(entry, method, arguments))
        return {};
    return start(entry);
}

bool Launcher::activate(
    const DesktopEntry &entry, const QString &method, const QVariantList &arguments)
{
    if (!entry.id.contains(u'.'))
        return false;
    auto call = QDBusMessage::createMethodCall(
        entry.id, objectPath(entry.id), u"org.freedesktop.Application"_s, method);
    call.setArguments(arguments);
    call << QVariantMap{{u"desktop-startup-id"_s, QString::fromLatin1(quietStartupId())}};
    const auto onAnswer = [this, entry](const QDBusMessage &answer) {
        if (answer.type() != QDBusMessage::ErrorMessage || mayStillCome(answer))
            return;
        if (const auto started = start(entry); !started)
            qWarning("Corvane: %s", qUtf8Printable(started.error()));
    };
    return callLater(QDBusConnection::sessionBus(), call, activationTimeout, this, onAnswer);
}

expected<void, QString> Launcher::start(const DesktopEntry &entry)
{
    QByteArrayList command = commandLine(entry);
    if (command.isEmpty())
        return unexpected<QString>(sentence(entry, DesktopEntry::Fault::noProgram));
    if (entry.inTerminal)
        command = terminalCommandLine(command);
    if (command.isEmpty())
        return unexpected<QString>(
            tr("\"%1\" cannot be opened: there is no terminal for it.").arg(entry.name));
    if (const QString error = spawn(command, entry.workingFolder); !error.isEmpty())
        return unexpected<QString>(tr("\"%1\" cannot be opened: %2.").arg(entry.name, error));
    return {};
}

QString Launcher::sentence(const DesktopEntry &entry, DesktopEntry::Fault fault)
{
    using enum DesktopEntry::Fault;
    switch (fault) {
    case none:
        break;
    case unreadable:
        return tr("\"%1\" cannot be opened: its desktop entry cannot be read.").arg(entry.name);
    case notAnApplication:
        return tr("\"%1\" cannot be opened: its desktop entry describes no application.")
            .arg(entry.name);
    case noProgram:
        return tr("\"%1\" cannot be opened: its desktop entry names no program.").arg(entry.name);
    case missingProgram:
        return tr("\"%1\" cannot be opened: its program is not installed.").arg(entry.name);
    }
    return {};
}

} // namespace corvane::freedesktop
