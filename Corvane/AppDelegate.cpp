#include "AppDelegate.h"

#include "Accessibility.h"
#include "FlightRecorder.h"
#include "Identity.h"
#include "KeyCaps.h"
#include "LayoutReport.h"
#include "Notify.h"
#include "OneLine.h"
#include "Platform.h"
#include "Screens.h"
#include "SettingsUpdateResume.h"
#include "TerminalText.h"
#include "WindowWatcher.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QThreadPool>

#include <cstdio>
#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double messagingTimeout = 1.0;
constexpr auto pruningInterval = 5min;
constexpr int daysKept = 30;

constexpr auto crashNotice = "crash"_L1;
constexpr auto replacedNotice = "replaced"_L1;

void tellUnopened(const QUrl &link, bool isOpened)
{
    if (!isOpened)
        notify(NotificationKind::link,
            QCoreApplication::translate("corvane::AppDelegate", "No program opened the link"),
            link.toDisplayString(QUrl::PreferLocalFile));
}

} // namespace

AppDelegate::AppDelegate(Log log, UpdateSource updates)
    : m_log(log)
    , m_model(SettingsStore(), LayoutStore(), ActivityLog())
    , m_mover(m_model)
    , m_commands(m_model, [this](Placement placement) { return m_mover.perform(placement); })
    , m_shortcuts(m_model)
    , m_trust(m_model)
    , m_competitors(m_model)
    , m_loginItem(m_model)
    , m_menus(m_model, menuTarget())
    , m_updates(m_model, std::move(updates))
    , m_windows(m_model, menuTarget())
{
    m_shortcuts.onPlacement = [this](Placement placement) { perform(placement); };
    m_shortcuts.onLayout = [this](const QUuid &id) {
        if (const auto layout = m_model.layout(id))
            applyLayout(*layout);
    };
    m_commands.onPopMenu = [this] { m_menus.popUp(); };
    m_commands.onRenderStatusIcon = StatusIcon::render;
    m_updates.driver().onShow = [this] { m_windows.openUpdate(m_updates.driver().session()); };
    m_updates.driver().onClose = [this] { m_windows.closeUpdate(); };
    connect(&m_menus, &StatusMenus::aboutToOpen, &m_loginItem, &LoginItemSwitch::follow);
    m_pruning.setInterval(pruningInterval);
    m_pruning.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_pruning, &QTimer::timeout, this, [this] {
        m_mover.windowManager().pruneHistory();
        if (m_mover.windowManager().history().isEmpty())
            m_pruning.stop();
    });
}

void AppDelegate::start()
{
    connectModel();
    Accessibility::setMessagingTimeout(messagingTimeout);
    FlightRecorder::shared().prune(daysKept);
    m_loginItem.carryOver();
    startWindowWatcher();
    m_updates.start();
    registerHotKeys();
    m_menus.start();
    m_dock.setRegular(m_model.settings().showInDock);
    recordLaunch();
    m_trust.start();
    m_competitors.start();
    m_updates.readFeedQuietly();
    SettingsUpdateResume::restore(
        this, [this](const QString &pane) { m_model.pendingPane = pane; });
    m_model.applyOnConnect();
    m_loginItem.start();
    m_model.followFiles();
    if (m_model.installedCopy.value().isReplacedByOthers())
        m_program.start();
    pruneHistory();
}

void AppDelegate::welcome()
{
    if (!m_model.settings().onboardingCompleted)
        show({.showTour = true});
}

void AppDelegate::tellCrash()
{
    FlightRecorder::shared().record(u"crash"_s, u"the run before this one ended without a quit"_s);
    m_model.post({.id = crashNotice,
        .text =
            tr("Corvane did not quit the last time that it ran. If it failed, a report helps to "
               "mend it."),
        .reveal = {},
        .offer = Notice::Offer::report});
}

void AppDelegate::tellReplaced()
{
    FlightRecorder::shared().record(
        u"replaced"_s, u"another program is in the place of this one"_s);
    m_model.post({.id = replacedNotice,
        .text = tr("Another version of Corvane was installed. Open Corvane again to use it."),
        .reveal = {},
        .offer = Notice::Offer::openAgain});
}

void AppDelegate::connectModel()
{
    m_model.onShortcutsChanged = [this] { registerHotKeys(); };
    m_model.onMenuChanged = [this] { m_menus.rebuildMenu(); };
    m_model.onDockVisibilityChanged = [this](bool isRegular) { m_dock.setRegular(isRegular); };
    m_model.onLaunchAtLoginChanged = [this](bool opens) { m_loginItem.set(opens); };
    m_model.onReplayTour = [this] { show({.showTour = true}); };
    m_model.onOpenAgain = [this] {
        m_opensAgain = true;
        QCoreApplication::quit();
    };
    connect(&m_program, &ProgramWatch::replaced, this, &AppDelegate::tellReplaced);
    m_model.onNotify = [](const QString &title, const QString &body) {
        notify(NotificationKind::general, title, body);
    };
    m_model.onRecordingChanged = [this](bool) { registerHotKeys(); };
    m_model.findFreeCombos = [this](const QList<Placement> &placements) {
        return m_shortcuts.freeCombos(placements);
    };
    connect(&Platform::current().hotKeys(), &HotKeys::labelsChanged, this,
        [this] { m_menus.rebuildMenu(); });
    connect(
        &m_model, &AppModel::settingsChanged, this, [this] { m_mover.follow(m_model.settings()); });
    connect(&Platform::current().hotKeys(), &HotKeys::registrationsLost, this,
        &AppDelegate::registerHotKeys);
    connect(&m_model, &AppModel::lastApplyChanged, this, &AppDelegate::tellWhatFailed);
    connect(&Platform::current().session(), &Session::notificationClicked, this,
        [this](const QString &id, const QString &token) {
            if (id == notificationId(NotificationKind::layout))
                showWhatFailed(token);
            else if (id == notificationId(NotificationKind::capture))
                editCaptured(token);
            else if (id == problemId(crashNotice))
                reportProblem(token);
            else if (id == problemId(replacedNotice))
                m_model.onOpenAgain();
        });
    connect(&m_model, &AppModel::accessibilityTrustedChanged, this, [this] {
        log(m_model.accessibilityTrusted ? u"windows can be moved again"_s
                                         : Platform::current().windows().distrustReason());
    });
    connect(&m_model, &AppModel::noticesChanged, this, &AppDelegate::tellNotices);
    tellNotices();
    if (!m_model.accessibilityTrusted)
        std::fprintf(stderr, "Corvane: %s\n",
            qUtf8Printable(Platform::current().windows().distrustReason()));
    m_model.onLayoutMoved = [this](const AXWindow &window, const Rect &previous) {
        m_mover.windowManager().remember(window, previous);
        schedulePruning();
    };
    m_mover.onPerformed = [this](const OutcomeReport &report) {
        if (const auto *moved = std::get_if<MoveOutcome::Moved>(&report.outcome.value)) {
            m_model.leaveAlone(m_mover.windowManager().last()->window);
            m_model.lastMove = moved->record;
        }
        schedulePruning();
        if (m_log == Log::verbose)
            log(report.line(Titles::hidden));
        m_model.refreshActivity();
    };
}

void AppDelegate::startWindowWatcher()
{
    WindowWatcher::shared().onDiagnostic = [this](const QString &line) {
        FlightRecorder::shared().record(u"window-watcher"_s, line);
        log(line);
    };
    WindowWatcher::shared().start();
}

void AppDelegate::registerHotKeys()
{
    log(u"ready: "_s + m_shortcuts.registerAll());
    m_menus.rebuildMenu();
}

void AppDelegate::recordLaunch()
{
    m_model.refreshCompetitors();
    const bool isTrusted = m_model.accessibilityTrusted;
    const QStringList competitors = names(m_model.competitors);
    FlightRecorder &recorder = FlightRecorder::shared();
    recorder.record(u"launch"_s,
        u"version " CORVANE_VERSION
        ", accessibility %1, other window managers: %2"_s.arg(isTrusted ? u"true"_s : u"false"_s,
            competitors.isEmpty() ? u"none"_s : competitors.join(u", "_s)));
    recorder.snapshot(
        {{u"version"_s, QStringLiteral(CORVANE_VERSION)}, {u"accessibilityTrusted"_s, isTrusted},
            {u"competitors"_s, QJsonArray::fromStringList(competitors)},
            {u"displays"_s, encode(Screens::signature())},
            {u"settings"_s, m_model.settings().toJson()}});
}

void AppDelegate::pruneHistory()
{
    // A month of moves takes a while to read, so this thread does not.
    QThreadPool::globalInstance()->start([] { ActivityLog().prune(daysKept); });
}

void AppDelegate::schedulePruning()
{
    // The timer runs only while there is something to prune, so that an idle program never wakes up.
    if (!m_mover.windowManager().history().isEmpty() && !m_pruning.isActive())
        m_pruning.start();
}

OutcomeReport AppDelegate::perform(Placement placement)
{
    m_model.refreshTrust();
    return m_mover.perform(placement);
}

void AppDelegate::performFromMenu(Placement placement)
{
    const OutcomeReport report = perform(placement);
    if (!std::holds_alternative<MoveOutcome::Moved>(report.outcome.value))
        notify(NotificationKind::placement, title(placement), report.sentence());
}

// The file may have changed since the menu was filled. A layout that somebody wrote into it without an id
// gets another id each time that it is read, so its name is tried, too.
void AppDelegate::applyLayout(const WindowLayout &shown)
{
    m_model.refreshLayouts();
    const auto byId = m_model.layout(shown.id);
    if (const auto layout = byId ? byId : m_model.layout(shown.name))
        std::ignore = m_model.apply(*layout);
    else
        notify(NotificationKind::layout, tr("“%1” was not applied").arg(oneLine(shown.name)),
            tr("There is no layout of this name any more."));
}

void AppDelegate::captureLayout()
{
    m_model.refreshTrust();
    if (!m_model.accessibilityTrusted)
        return notify(NotificationKind::capture, tr("Nothing was captured"),
            Platform::current().windows().distrustReason());
    // A failure is a notice already.
    const auto captured = m_model.captureCurrentWindows(tr("Layout"));
    if (!captured)
        return;
    if (captured->panes.isEmpty()) {
        m_model.undo();
        return notify(NotificationKind::capture, tr("Nothing was captured"),
            tr("No window could be captured."));
    }
    m_captured = captured->id;
    notify(NotificationKind::capture, tr("Windows captured"),
        captureSentence(*captured) + u' '
            + tr("They come back from Corvane's menu, under Layouts."),
        tr("Edit"));
}

/// It may be gone by now.
void AppDelegate::editCaptured(const QString &activation)
{
    m_model.pendingActivation = activation;
    if (m_model.layout(m_captured))
        m_model.pendingRename = m_captured;
    show(SettingsPane::layouts);
}

void AppDelegate::reportProblem(const QString &activation)
{
    m_model.pendingActivation = activation;
    m_model.pendingReport = QString();
}

void AppDelegate::tellWhatFailed()
{
    if (!m_model.lastApply.value())
        return;
    m_model.refreshActivity();
    const AppModel::LastApply apply = *m_model.lastApply.value();
    if (m_log == Log::verbose)
        log(u"layout applied\n"_s + applyLines(apply.results, Titles::hidden));
    const auto layout = m_model.layout(apply.layout);
    const QString lines = failureLines(apply.results);
    if (!layout || lines.isEmpty())
        return;
    m_toldLayout = apply.layout;
    notify(NotificationKind::layout, tr("“%1” is not complete").arg(oneLine(layout->name)), lines,
        tr("Show"));
}

/// A click on what was told leads to the report on the whole layout.
void AppDelegate::showWhatFailed(const QString &activation)
{
    m_model.pendingActivation = activation;
    m_model.pendingLayout = m_toldLayout;
    show(SettingsPane::layouts);
}

void AppDelegate::tellNotices()
{
    const QList<AppModel::Notice> told = std::exchange(m_toldNotices, m_model.notices());
    for (const AppModel::Notice &notice : m_model.notices()) {
        if (told.contains(notice))
            continue;
        constexpr qsizetype longest = 1000;
        const QString text = oneLine(KeyCaps::plainSentence(notice.text), longest);
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
        notifyProblem(notice.id, text, notice.offerTitle());
    }
}

void AppDelegate::show(const ScreenFlags &flags)
{
    const CommandResult result = m_commands.show(flags);
    std::fputs(qUtf8Printable(result.error), stderr);
    if (result.error.isEmpty())
        return;
    // A terminal is not always there.
    notify(NotificationKind::window, tr("Corvane cannot show that"), result.error.trimmed());
}

void AppDelegate::show(SettingsPane pane)
{
    show({.pane = pane});
}

void AppDelegate::openWebsite()
{
    const QUrl website(Identity::website);
    tellUnopened(website, Platform::current().session().openAddress(website));
}

void AppDelegate::grantAccess()
{
    tellUnopened(
        Platform::current().session().trustSettingsAddress(), Accessibility::openSettings());
}

MenuTarget AppDelegate::menuTarget()
{
    return {
        .perform = [this](Placement placement) { performFromMenu(placement); },
        .applyLayout = [this](const WindowLayout &shown) { applyLayout(shown); },
        .captureLayout = [this] { captureLayout(); },
        .editLayout =
            [this](const QUuid &layout) {
                m_model.pendingLayout = layout;
                show(SettingsPane::layouts);
            },
        .grantAccess = [this] { grantAccess(); },
        .openShortcuts = [this] { show(SettingsPane::shortcuts); },
        .quitCompetitor =
            [this](const Competitor::Running &competitor) { m_model.quit(competitor.application); },
        .openUpdates = [this] { show({.checkForUpdates = true}); },
        .openAbout = [this] { show(SettingsPane::about); },
        .openSettings = [this] { show({.openSettings = true}); },
        .openTremorLog = [this] { show(SettingsPane::tremorLog); },
        .openWebsite = [this] { openWebsite(); },
        .showTour = [this] { show({.showTour = true}); },
        .reportProblem = [this] { reportProblem({}); },
        .hide = {},
        .hideOthers = {},
        .showAll = {},
        .quit = [] { QCoreApplication::quit(); },
        .undo = [this] { m_model.undo(); },
        .redo = [this] { m_model.redo(); },
    };
}

void AppDelegate::log(const QString &line) const
{
    if (m_log == Log::verbose)
        std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

} // namespace corvane
