#include "AppDelegate.h"

#include "Accessibility.h"
#include "Competitors.h"
#include "FlightRecorder.h"
#include "LayoutReport.h"
#include "Platform.h"
#include "Screens.h"
#include "WindowWatcher.h"

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
    : m_log(log)
    , m_model(SettingsStore(), LayoutStore(), ActivityLog())
    , m_mover(m_model.settings())
    , m_commands(m_model, m_mover)
{
    m_mover.onPerformed = [this](const OutcomeReport &report) {
        keepHistoryPruned();
        if (m_log == Log::verbose)
            this->log(report.line());
    };
    connect(&m_model, &AppModel::layoutsChanged, this, &AppDelegate::registerHotKeys);
    connect(&m_model, &AppModel::lastApplyChanged, this, [this] {
        if (m_log == Log::verbose)
            this->log(u"layout applied\n"_s + applyLines(m_model.lastApply.value()->results));
    });
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
    for (const AppModel::Notice &notice : m_model.notices())
        std::fprintf(stderr, "%s\n", qUtf8Printable(notice.text));
    WindowWatcher::shared().onDiagnostic = [this](const QString &line) {
        FlightRecorder::shared().record(u"window-watcher"_s, line);
        log(line);
    };
    WindowWatcher::shared().start();
    connect(&Platform::current().hotKeys(), &HotKeys::registrationsLost, this,
        &AppDelegate::registerHotKeys);
    registerHotKeys();
    m_model.applyOnConnect();
    watchTrust();
    recordLaunch();
    pruneFiles();
}

void AppDelegate::keepHistoryPruned()
{
    // Only while there is something to prune, so that an idle program never wakes up.
    if (!m_mover.windowManager().history().isEmpty() && !m_pruning.isActive())
        m_pruning.start();
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
    for (const auto &[placement, combo] : m_model.settings().shortcuts.asKeyValueRange()) {
        const Placement pressed = placement;
        if (!registerHotKey(combo, [this, pressed] { m_mover.perform(pressed); }))
            refused << rawValue(placement);
    }
    for (const WindowLayout &layout : m_model.layouts()) {
        if (!layout.shortcut)
            continue;
        const auto apply = [this, id = layout.id] {
            m_model.refreshLayouts();
            if (const auto current = m_model.layout(id.toString()))
                std::ignore = m_model.apply(*current);
        };
        if (!registerHotKey(*layout.shortcut, apply))
            refused << u"layout "_s + layout.name;
    }
    const QString registered = u"%1 of %2 hot keys registered"_s.arg(m_hotKeys.size())
                                   .arg(m_hotKeys.size() + refused.size());
    const QString names = refused.join(u", "_s);
    log(u"ready: "_s + registered
        + (names.isEmpty() ? QString() : u"; refused by the desktop or another app: "_s + names));
    FlightRecorder::shared().record(u"hotkeys"_s,
        registered
            + (names.isEmpty() ? QString() : u"; refused by macOS or another app: "_s + names));
}

bool AppDelegate::registerHotKey(const KeyCombo &combo, std::function<void()> action)
{
    auto hotKey = std::make_unique<HotKey>(combo.keyCode, combo.modifiers, std::move(action));
    if (!hotKey->isRegistered())
        return false;
    m_hotKeys.push_back(std::move(hotKey));
    return true;
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
    recorder.snapshot(
        {{u"version"_s, QStringLiteral(CORVANE_VERSION)}, {u"accessibilityTrusted"_s, isTrusted},
            {u"competitors"_s, QJsonArray::fromStringList(competitors)},
            {u"displays"_s, encode(Screens::signature())},
            {u"settings"_s, m_model.settings().toJson()}});
}

void AppDelegate::log(const QString &line) const
{
    if (m_log == Log::verbose)
        std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

} // namespace corvane
