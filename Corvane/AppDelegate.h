#pragma once

#include "Commands.h"
#include "CompetitorWatch.h"
#include "DockPresence.h"
#include "LoginItemSwitch.h"
#include "Mover.h"
#include "ProgramWatch.h"
#include "ShortcutRegistrar.h"
#include "StatusMenus.h"
#include "TrustWatch.h"
#include "Updates.h"
#include "WindowOpener.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>

namespace corvane {

/// The program that stays. It makes the model and the services around it, starts them in their order,
/// and connects each thing that a user can ask for with what does it.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    enum class Log { quiet, verbose };

    /// Reads the user's files.
    explicit AppDelegate(Log log, UpdateSource updates = {});

    /// Starts the services. A step that fails is recorded and shown, and the others are taken all the
    /// same.
    void start();
    [[nodiscard]] Commands &commands() { return m_commands; }
    /// Shows the tour to whoever has not seen it.
    void welcome();
    /// Tells the user that the program ended the last time without having been quit.
    void tellCrash();
    /// Whether the user wants the program to start again once it has quit.
    [[nodiscard]] bool opensAgain() const { return m_opensAgain; }

    // A choice in a menu or on the session bus has no terminal to answer to. A notification tells what
    // came of it where the user would not see that.
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
    void showWhatFailed(const QString &activation);
    /// Shows the layout that was captured last, for its name to be typed.
    void editCaptured(const QString &activation);
    void reportProblem(const QString &activation);
    void tellReplaced();
    /// Tells the user of the notices that have come since the last call.
    void tellNotices();
    void show(const ScreenFlags &flags);
    void show(SettingsPane pane);
    [[nodiscard]] MenuTarget menuTarget();
    void schedulePruning();
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
    Updates m_updates;
    WindowOpener m_windows;
    QList<AppModel::Notice> m_toldNotices;
    QUuid m_toldLayout; ///< the one that was last not complete
    QUuid m_captured; ///< the one that was captured last
    QTimer m_pruning;
    ProgramWatch m_program{QCoreApplication::applicationFilePath()};
    bool m_opensAgain = false;
};

} // namespace corvane
