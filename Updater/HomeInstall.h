#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>

#include <functional>

namespace corvane {

/// For whom a bundle is installed.
struct HomeUser {
    QString home;
    QString data; ///< $XDG_DATA_HOME
    QStringList commandFolders; ///< $PATH

    /// Whoever runs this process.
    [[nodiscard]] static HomeUser ofProcess();
};

/// Installs the unpacked bundle in the folder `bundle` for one user, or repairs what is installed of the
/// same build. Tells what became of it, for a reader at a terminal. What was ended part way is mended
/// by the next call. Returns an exit status.
[[nodiscard]] int installHere(const QString &bundle, const HomeUser &user,
    const QDBusConnection &bus, const std::function<void(const QString &sentence)> &say);

} // namespace corvane
