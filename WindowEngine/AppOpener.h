#pragma once

#include "Applications.h"
#include "Clock.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

namespace corvane {

/// Opens applications for layouts, and remembers for a while which: one that is coming up is not to
/// be opened again by an impatient second press.
class AppOpener final : public QObject
{
    Q_OBJECT

public:
    /// Opens the application, which may take `patience` to show a window. The error is one
    /// sentence.
    [[nodiscard]] expected<void, QString> open(const QString &bundleID, Clock::Duration patience);
    /// Asks an application that runs, and shows so many windows, for one more. The error is one
    /// sentence.
    [[nodiscard]] expected<void, QString> openWindow(
        const QString &bundleID, qsizetype shown, Clock::Duration patience);
    /// Whether the application was opened, or asked for a window, less than its patience ago.
    [[nodiscard]] bool hasJustOpened(const QString &bundleID) const;
    /// Whether it was, and has shown no further window since.
    [[nodiscard]] bool isComingUp(const QString &bundleID) const;
    /// To be told how many windows the application shows now.
    void learnWindows(const QString &bundleID, qsizetype shown);

private:
    struct Opening {
        Clock::Duration deadline{};
        qsizetype shownBefore = 0;
        bool hasShown = false;
    };

    void learnLaunched(const RunningApplication &application);

    QHash<QString, Opening> m_openings;
};

} // namespace corvane
