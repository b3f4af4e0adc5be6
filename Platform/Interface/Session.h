#pragma once

#include "Expected.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace corvane {

/// What the user chose for every application's look.
struct DesktopLook {
    bool isDark = false;
    bool hasHighContrast = false;
    /// Family and size in points, as in "Cantarell 11"; empty while it is unknown.
    QString font = {};
    bool reducesMotion = false; ///< nothing is to slide or fade

    bool operator==(const DesktopLook &) const = default;
};

/// Whether the program opens when the user logs in.
enum class LoginItem {
    absent,
    present,
    /// Asked for, but the user has to allow it in the desktop's own settings.
    awaitsApproval,
};

/// What a problem may depend on. Each is empty where it is unknown.
struct SystemFacts {
    QString system = {}; ///< its name and version
    QString computer = {}; ///< its model
    QString desktop = {};
    QString session = {}; ///< the window system, such as "X11"
    QString windowManager = {};

    bool operator==(const SystemFacts &) const = default;
};

/// What the user's session offers beside windows and displays.
class Session : public QObject
{
    Q_OBJECT

public:
    /// Opens the address in the application that the user chose for it. False when there is none.
    virtual bool openAddress(const QUrl &address) = 0;
    /// Shows the file in the file browser, else the folder that it is in.
    virtual void reveal(const QUrl &file) = 0;

    /// Where the user grants or repairs the permission to move windows.
    [[nodiscard]] virtual QUrl trustSettingsAddress() = 0;
    /// Removes this program's row from the system's permission list. The exit status of the system's
    /// tool, or nothing where the system has no such list.
    virtual std::optional<int> clearTrustRow(const QString &bundleIdentifier) = 0;
    /// The operating system's major version on systems whose settings are named by it, else 0.
    [[nodiscard]] virtual int systemMajorVersion() = 0;

    [[nodiscard]] virtual LoginItem loginItem() = 0;
    /// Adds this program to what opens at login, or takes it out. The error is one sentence.
    [[nodiscard]] virtual expected<void, QString> setLoginItem(bool opensAtLogin) = 0;
    /// Shows the user where applications that open at login are allowed.
    virtual void openLoginItems() = 0;

    /// Shows a notification, in place of the one that was shown under this id before. Returns at
    /// once; where nothing shows notifications, it is lost. With an `action`, the words for what a
    /// click on it does, `notificationClicked` tells of that click.
    virtual void notify(const QString &id, const QString &title, const QString &body,
        const QString &action = {}) = 0;

    /// Light until the desktop has said otherwise, which may be a while after the start.
    [[nodiscard]] virtual DesktopLook look() = 0;

    /// Whether a button of the pointer is down now, as while the user drags a window. False where the
    /// desktop does not tell.
    [[nodiscard]] virtual bool isPointerButtonDown() = 0;

    [[nodiscard]] virtual SystemFacts systemFacts() = 0;

Q_SIGNALS:
    void lookChanged(const corvane::DesktopLook &look);
    /// `token` is the permission for a window to come to the front; empty where there is none.
    void notificationClicked(const QString &id, const QString &token);
};

} // namespace corvane
