#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace corvane::desktop {

/// How to start one window manager so that it asks no first-run question, shows no panel of its own
/// and binds none of our keys. Super+Left tiles a window on the left where it can.
struct WindowManagerFiles {
    struct File {
        QString path; ///< below the private configuration folder
        QByteArray text;
    };

    QString name; ///< what `WindowManagerProcess` is asked for
    QString program;
    QStringList arguments; ///< "%1" stands for the private configuration folder
    QString replaceFlag; ///< makes it take over from a running one; empty where it has no such flag
    QString announcedName; ///< begins the name on its supporting window
    QList<File> files;

    [[nodiscard]] static const QList<WindowManagerFiles> &all();
};

} // namespace corvane::desktop
