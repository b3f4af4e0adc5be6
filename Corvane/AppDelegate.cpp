#include "AppDelegate.h"

#include "Accessibility.h"
#include "Competitors.h"
#include "FlightRecorder.h"
#include "Platform.h"
#include "Screens.h"
#include "WindowWatcher.h"

#include <QtCore/QJsonArray>
#include <QtCore/QThreadPool>

#include <cstdio>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr double messagingTimeout = 1.0;
constexpr auto pruningInterval = 5min;
constexpr int daysKept = 30;

QStringList names(const QList<Competitor::Running> &competitors)
{
    QStringList names;
    for (const Competitor::Running &each : competitors)
        names << each.competitor.name;
    return names;
}

/// Off the main thread: a month of moves takes a while to read.
void pruneFiles()
{
    FlightRecorder::shared().prune(daysKept);
    QThreadPool::globalInstance()->start([] { ActivityLog().prune(daysKept); });
}
} // namespace

AppDelegate::AppDelegate(Log log)
    : m_log(log), m_settings(SettingsStore().loadKeepingUnreadable()), m_mover(m_settings.settings)
{
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
    Accessibility::setMessagingTimeout(messagingTimeout);
    if (const auto &problem = m_settings.problem) {
        FlightRecorder::shared().record(u"settings-unreadable"_s, detail(*problem));
        std::fprintf(stderr, "%s\n", qUtf8Printable(sentence(*problem)));
    }
    WindowWatcher::shared().onDiagnostic = [this](const QString &line) {
        FlightRecorder::shared().record(u"window-watcher"_s, line);
        log(line);
    };
    WindowWatcher::shared().start();
    connect(&Platform::current().hotKeys(), &HotKeys::registrationsLost, this,
        &AppDelegate::registerHotKeys);
    registerHotKeys();
    watchTrust();
    recordLaunch();
    pruneFiles();
}

OutcomeReport AppDelegate::perform(Placement placement)
{
    const OutcomeReport outcome = m_mover.perform(placement);
    // Only while there is something to prune, so that an idle program never wakes up.
    if (!m_mover.windowManager().history().isEmpty() && !m_pruning.isActive())
        m_pruning.start();
    if (m_log == Log::verbose)
        log(outcome.line());
    return outcome;
}

void AppDelegate::watchTrust()
{
    WindowAccess &windows = Platform::current().windows();
    connect(&windows, &WindowAccess::trustChanged, this, [this, &windows](bool trusted) {
        if (trusted)
            WindowWatcher::shared().restart();
        const QString line = trusted ? u"windows can be moved again"_s : windows.distrustReason();
        FlightRecorder::shared().record(u"accessibility"_s, line);
        log(line);
    });
    if (!windows.isTrusted())
        std::fprintf(stderr, "Corvane: %s\n", qUtf8Printable(windows.distrustReason()));
}

void AppDelegate::registerHotKeys()
{
    m_hotKeys.clear();
    QStringList refused;
    const ShortcutMap &shortcuts = m_settings.settings.shortcuts;
    for (const auto &[placement, combo] : shortcuts.asKeyValueRange()) {
        auto hotKey = std::make_unique<HotKey>(
            combo.keyCode, combo.modifiers, [this, pressed = placement] { perform(pressed); });
        if (hotKey->isRegistered())
            m_hotKeys.push_back(std::move(hotKey));
        else
            refused << rawValue(placement);
    }
    const QString registered =
        u"%1 of %2 hot keys registered"_s.arg(m_hotKeys.size()).arg(shortcuts.size());
    const QString names = refused.join(u", "_s);
    log(u"ready: "_s + registered
        + (names.isEmpty() ? QString() : u"; refused by the desktop or another app: "_s + names));
    FlightRecorder::shared().record(u"hotkeys"_s,
        registered
            + (names.isEmpty() ? QString() : u"; refused by macOS or another app: "_s + names));
}

void AppDelegate::recordLaunch() const
{
    const bool isTrusted = Platform::current().windows().isTrusted();
    const QStringList competitors = names(Competitor::running());
    FlightRecorder &recorder = FlightRecorder::shared();
    recorder.record(u"launch"_s,
        u"version " CORVANE_VERSION
        ", accessibility %1, other window managers: %2"_s.arg(isTrusted ? u"true"_s : u"false"_s,
            competitors.isEmpty() ? u"none"_s : competitors.join(u", "_s)));
    QJsonArray displays;
    for (const DisplayKey &key : Screens::signature())
        displays.append(key.toJson());
    recorder.snapshot(
        {{u"version"_s, QStringLiteral(CORVANE_VERSION)}, {u"accessibilityTrusted"_s, isTrusted},
            {u"competitors"_s, QJsonArray::fromStringList(competitors)}, {u"displays"_s, displays},
            {u"settings"_s, m_settings.settings.toJson()}});
}

void AppDelegate::log(const QString &line) const
{
    if (m_log == Log::verbose)
        std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

} // namespace corvane
