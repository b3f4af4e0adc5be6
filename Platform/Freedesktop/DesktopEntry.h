#pragma once

#include "Applications.h"

#include <QtCore/QByteArray>

namespace corvane::freedesktop {

/// An application, as one file describes it to the system (Desktop Entry Specification 1.5).
struct DesktopEntry {
    /// Why an application cannot be opened.
    enum class Fault {
        none,
        unreadable,
        notAnApplication,
        noProgram, ///< it names none
        missingProgram,
    };

    QString id; ///< the file's name without ".desktop"
    QString path;
    QString name; ///< in the user's language, as the next two
    QString purpose; ///< its generic name, else a comment
    QStringList keywords;
    Fault flaw = Fault::none; ///< that the file itself has
    QByteArray exec; ///< with its quotes and field codes
    QByteArray tryExec;
    QByteArray workingFolder;
    QByteArray icon;
    QString startupClass; ///< of the windows that it opens
    bool isDeleted = false; ///< by a user who may not remove the file
    bool isOffered = true; ///< by this desktop's menus
    bool inTerminal = false;
    bool isActivatable = false; ///< over the session bus
    bool hasOneWindow = false; ///< and says so

    bool operator==(const DesktopEntry &) const = default;
};

/// Something else that an application offers to do when it is opened.
struct DesktopAction {
    QString name; ///< in the file, and on the session bus
    QByteArray exec; ///< empty where only the bus will do

    bool operator==(const DesktopAction &) const = default;
};

[[nodiscard]] DesktopEntry readDesktopEntry(const QString &path, const QString &id);
/// The action that opens a further window of the application, found by the names that are usual for
/// it.
[[nodiscard]] std::optional<DesktopAction> newWindowAction(const DesktopEntry &entry);
/// Why the application cannot be opened now: its program may come and go while the entry stays the
/// same.
[[nodiscard]] DesktopEntry::Fault fault(const DesktopEntry &entry);
/// Nothing where the application cannot be opened.
[[nodiscard]] std::optional<InstalledApplication> installed(const DesktopEntry &entry);
[[nodiscard]] Installation installation(const DesktopEntry &entry);

} // namespace corvane::freedesktop
