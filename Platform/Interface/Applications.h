#pragma once

#include "Expected.h"
#include "WindowElement.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>
#include <sys/types.h>

namespace corvane {

/// An application that a process has shown a window of. One process may be several applications: the
/// windows tell them apart.
struct RunningApplication {
    pid_t pid = 0; ///< below zero: not a process of this machine's, or not known to be one
    QString bundleIdentifier; ///< the desktop entry's id, else the window class
    QString localizedName;
    bool isRegular = false; ///< has a window that the task bar lists

    bool operator==(const RunningApplication &) const = default;
};

/// What the system knows of an application, whether it runs or not.
struct Installation {
    enum class State {
        ready,
        hidden, ///< can be opened, but the desktop's menus do not offer it
        broken, ///< described to the system, but in a way that cannot be opened
        notInstalled,
    };

    State state = State::notInstalled;
    QString localizedName; ///< empty unless installed

    bool operator==(const Installation &) const = default;
};

/// An application that can be opened, as it describes itself to its users. Texts are in their language.
struct InstalledApplication {
    QString id; ///< the bundle identifier that it has while it runs
    QString name;
    QString purpose{}; ///< in a few words; may be empty
    QStringList keywords{}; ///< that it may be sought by
    QString iconName{}; ///< in the icon theme, or a file's absolute path; may be empty
    bool isHidden = false; ///< the desktop's menus do not offer it

    bool operator==(const InstalledApplication &) const = default;
};

/// The applications of this desktop, by the windows that they show, and how to open and quit them.
class Applications : public QObject
{
    Q_OBJECT

public:
    /// The applications that have shown a window, one for each process and bundle identifier.
    [[nodiscard]] virtual QList<RunningApplication> running() = 0;
    /// The application that the process is; the first one where it is several.
    [[nodiscard]] virtual std::optional<RunningApplication> application(pid_t pid) = 0;
    /// The application that the window belongs to, by what the window says of itself now.
    [[nodiscard]] virtual std::optional<RunningApplication> applicationOf(
        const WindowElement &window) = 0;
    /// Other identifiers that the window's application may be known by, here or to an earlier
    /// version of this program: the names that the window had before, and its program's.
    [[nodiscard]] virtual QStringList formerIdentifiers(const WindowElement &window) = 0;
    /// The application that has the focus, if any has.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmost() = 0;

    /// Every application that can be opened, whether menus offer it or not, by identifier.
    [[nodiscard]] virtual QList<InstalledApplication> installed() = 0;
    /// The one of them that has this identifier.
    [[nodiscard]] virtual std::optional<InstalledApplication> installed(
        const QString &bundleIdentifier) = 0;
    [[nodiscard]] virtual Installation installation(const QString &bundleIdentifier) = 0;
    /// Opens the application without activating it, where the desktop allows that. Its windows come
    /// later, perhaps in another process or never. The error is one sentence.
    [[nodiscard]] virtual expected<void, QString> open(const QString &bundleIdentifier) = 0;
    /// Asks an application that runs for a window, as `open` does: the first one where it lives on
    /// without any, else one more. An error where it shows no more than it has. Each call may bring
    /// one, so the caller counts and asks for no more than are missing.
    [[nodiscard]] virtual expected<void, QString> openWindow(const QString &bundleIdentifier) = 0;
    /// The programs that move windows by shortcuts on this kind of desktop, of those that run, in the
    /// order of the desktop's own table. Most never show a window, so they are in no other list here.
    [[nodiscard]] virtual QList<RunningApplication> rivals() = 0;
    /// Asks the application to quit, as its user would. It may take its time, ask its user or stay.
    virtual void quit(pid_t pid) = 0;

Q_SIGNALS:
    /// A process has become this regular application. Comes before `windowCreated` of its first
    /// window.
    void launched(const corvane::RunningApplication &application);
    /// The process of an application, or of a rival that was listed, has ended.
    void terminated(pid_t pid);
};

} // namespace corvane
