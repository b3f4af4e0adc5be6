#pragma once

#include "Commands.h"
#include "CompetitorWatch.h"
#include "DockPresence.h"
#include "LoginItemSwitch.h"
#include "Mover.h"
#include "ShortcutRegistrar.h"
#include "StatusMenus.h"
#include "TrustWatch.h"

#include <QtCore/QTimer>

namespace corvane {

/// The resident program: makes the model and the services around it, starts them in their order,
/// and carries each wish from where it is uttered to where it is done.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    enum class Log { quiet, verbose };

    /// Reads what the user's files say.
    explicit AppDelegate(Log log);

    /// No step stops the ones after it: what fails is recorded and shown.
    void start();
    [[nodiscard]] Commands &commands() { return m_commands; }

    // For one who does not see a terminal: what came of it, where that cannot be seen, is a
    // notification.
    void performFromMenu(Placement placement);
    void captureLayout();

private:
    void connectModel();
    void startWindowWatcher();
    void registerHotKeys();
    void recordLaunch();
    static void pruneHistory();

    OutcomeReport perform(Placement placement);
    void applyLayout(const WindowLayout &shown);
    void openWebsite();
    void grantAccess();
    void tellWhatFailed();
    /// Those that have come since the last time.
    void tellNotices();
    void show(const ScreenFlags &flags);
    void show(SettingsPane pane);
    [[nodiscard]] MenuTarget menuTarget();
    void keepRecentMovesPruned();
    void log(const QString &line) const;

    Log m_log;
    AppModel m_model;
    Mover m_mover;
    Commands m_commands;
    ShortcutRegistrar m_shortcuts;
    TrustWatch m_trust;
    CompetitorWatch m_competitors;
    LoginItemSwitch m_loginItem;
    DockPresence m_dock;
    StatusMenus m_menus;
    QList<AppModel::Notice> m_toldNotices;
    QTimer m_pruning;
};

} // namespace corvane
