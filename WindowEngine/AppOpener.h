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
    /// The application may take `patience` to show a window. The error is one sentence.
    [[nodiscard]] expected<void, QString> open(const QString &bundleID, Clock::Duration patience);
    /// A window more from one that runs and shows so many. The error is one sentence.
    [[nodiscard]] expected<void, QString> openWindow(
        const QString &bundleID, qsizetype shown, Clock::Duration patience);
    /// Opened within its patience.
    [[nodiscard]] bool hasJustOpened(const QString &bundleID) const;
    /// The same, and no window more has been seen since.
    [[nodiscard]] bool isComingUp(const QString &bundleID) const;
    /// So many it shows now.
    void noteWindows(const QString &bundleID, qsizetype shown);

private:
    struct Opening {
        Clock::Duration deadline{};
        qsizetype shownBefore = 0;
        bool hasShown = false;
    };

    void noteLaunched(const RunningApplication &application);

    QHash<QString, Opening> m_openings;
};

} // namespace corvane
