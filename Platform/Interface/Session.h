#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace corvane {

/// What the user's session offers beside windows and displays.
class Session : public QObject
{
    Q_OBJECT

public:
    /// Opens the address in the application that the user chose for it. False when there is none.
    virtual bool openAddress(const QUrl &address) = 0;

    /// Where the user grants or repairs the permission to move windows.
    [[nodiscard]] virtual QUrl trustSettingsAddress() = 0;
    /// Removes this program's row from the system's permission list. The exit status of the system's
    /// tool, or nothing where the system has no such list.
    virtual std::optional<int> clearTrustRow(const QString &bundleIdentifier) = 0;
    /// The operating system's major version on systems whose settings are named by it, else 0.
    [[nodiscard]] virtual int systemMajorVersion() = 0;
};

} // namespace corvane
