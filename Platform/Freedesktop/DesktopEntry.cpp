#include "DesktopEntry.h"

#include "CommandLines.h"
#include "KeyFile.h"

#include <algorithm>
#include <array>

namespace corvane::freedesktop {

namespace {

using Fault = DesktopEntry::Fault;

bool isOfferedHere(const KeyFile &file)
{
    if (file.flag("NoDisplay"))
        return false;
    const QByteArrayList only = file.value("OnlyShowIn").split(';');
    const QByteArrayList excluded = file.value("NotShowIn").split(';');
    for (const QByteArray &desktop : qgetenv("XDG_CURRENT_DESKTOP").split(':')) {
        if (desktop.isEmpty())
            continue;
        if (only.contains(desktop))
            return true;
        if (excluded.contains(desktop))
            return false;
    }
    return only.first().isEmpty();
}

Fault flawOf(const KeyFile &file)
{
    if (!file.isValid())
        return Fault::unreadable;
    if (file.value("Type") != "Application")
        return Fault::notAnApplication;
    const bool opensNothing = file.value("Exec").trimmed().isEmpty();
    return opensNothing && !file.flag("DBusActivatable") ? Fault::noProgram : Fault::none;
}

/// An application whose name is generic has only a comment to tell what it is for.
QString purposeOf(const KeyFile &file, const QString &name)
{
    const QString generic = file.text("GenericName");
    return generic.isEmpty() || generic == name ? file.text("Comment") : generic;
}

bool opensWindow(QByteArray action)
{
    static constexpr std::array names{"newwindow", "newemptywindow", "windownew", "opennewwindow"};
    action = action.toLower().replace("-", {}).replace("_", {});
    return std::find(names.begin(), names.end(), action) != names.end();
}

} // namespace

DesktopEntry readDesktopEntry(const QString &path, const QString &id)
{
    const KeyFile file(path, "Desktop Entry");
    const QString name = file.text("Name");
    return {.id = id,
        .path = path,
        .name = name.isEmpty() ? id : name,
        .purpose = purposeOf(file, name),
        .keywords = file.text("Keywords").split(u';', Qt::SkipEmptyParts),
        .flaw = flawOf(file),
        .exec = file.value("Exec"),
        .tryExec = file.value("TryExec"),
        .workingFolder = file.value("Path"),
        .icon = file.value("Icon"),
        .startupClass = file.text("StartupWMClass"),
        .isDeleted = file.flag("Hidden"),
        .isOffered = isOfferedHere(file),
        .inTerminal = file.flag("Terminal"),
        .isActivatable = file.flag("DBusActivatable"),
        .hasOneWindow = file.flag("SingleMainWindow") || file.flag("X-GNOME-SingleWindow")};
}

std::optional<DesktopAction> newWindowAction(const DesktopEntry &entry)
{
    const QByteArrayList actions = KeyFile(entry.path, "Desktop Entry").value("Actions").split(';');
    for (const QByteArray &action : actions) {
        if (!opensWindow(action))
            continue;
        const QByteArray exec =
            KeyFile(entry.path, ("Desktop Action " + action).constData()).value("Exec");
        if (!exec.trimmed().isEmpty() || entry.isActivatable)
            return DesktopAction{QString::fromUtf8(action), exec};
    }
    return std::nullopt;
}

Fault fault(const DesktopEntry &entry)
{
    if (entry.flaw != Fault::none)
        return entry.flaw;
    if (!entry.tryExec.isEmpty() && programPath(entry.tryExec).isEmpty())
        return Fault::missingProgram;
    if (entry.isActivatable)
        return Fault::none;
    const QByteArrayList command = commandLine(entry);
    if (command.isEmpty())
        return Fault::noProgram;
    return programPath(command.first()).isEmpty() ? Fault::missingProgram : Fault::none;
}

std::optional<InstalledApplication> installed(const DesktopEntry &entry)
{
    if (entry.isDeleted || fault(entry) != Fault::none)
        return std::nullopt;
    return InstalledApplication{.id = entry.id,
        .name = entry.name,
        .purpose = entry.purpose,
        .keywords = entry.keywords,
        .iconName = QString::fromUtf8(entry.icon),
        .isHidden = !entry.isOffered};
}

Installation installation(const DesktopEntry &entry)
{
    using enum Installation::State;
    if (entry.isDeleted)
        return {};
    if (fault(entry) != Fault::none)
        return {broken, entry.name};
    return {entry.isOffered ? ready : hidden, entry.name};
}

} // namespace corvane::freedesktop
