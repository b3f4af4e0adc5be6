#include "AppDelegate.h"

#include "Accessibility.h"
#include "Platform.h"
#include "WindowWatcher.h"

#include <cstdio>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr double messagingTimeout = 1.0;
constexpr auto pruningInterval = 5min;
} // namespace

AppDelegate::AppDelegate(Log log)
    : m_log(log)
    , m_windowManager(WindowManager::Options{})
    , m_shortcuts(map(ShortcutPreset::sizeUp))
{
    m_pruning.setInterval(pruningInterval);
    m_pruning.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_pruning, &QTimer::timeout, this, [this] {
        m_windowManager.pruneHistory();
        if (m_windowManager.history().isEmpty())
            m_pruning.stop();
    });
}

void AppDelegate::start()
{
    Accessibility::setMessagingTimeout(messagingTimeout);
    WindowWatcher::shared().onDiagnostic = [this](const QString &line) { log(line); };
    WindowWatcher::shared().start();
    connect(&Platform::current().hotKeys(), &HotKeys::registrationsLost, this,
        &AppDelegate::registerHotKeys);
    registerHotKeys();
    watchTrust();
}

OutcomeReport AppDelegate::perform(Placement placement)
{
    const OutcomeReport outcome = report(m_windowManager, placement);
    // Only while there is something to prune, so that an idle program never wakes up.
    if (!m_windowManager.history().isEmpty() && !m_pruning.isActive())
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
        log(trusted ? u"windows can be moved again"_s : windows.distrustReason());
    });
    if (!windows.isTrusted())
        std::fprintf(stderr, "Corvane: %s\n", qUtf8Printable(windows.distrustReason()));
}

void AppDelegate::registerHotKeys()
{
    m_hotKeys.clear();
    QStringList refused;
    for (const auto &[placement, combo] : m_shortcuts.asKeyValueRange()) {
        auto hotKey = std::make_unique<HotKey>(
            combo.keyCode, combo.modifiers, [this, pressed = placement] { perform(pressed); });
        if (hotKey->isRegistered())
            m_hotKeys.push_back(std::move(hotKey));
        else
            refused << rawValue(placement);
    }
    log(u"ready: %1 of %2 hot keys registered%3"_s.arg(m_hotKeys.size())
            .arg(m_shortcuts.size())
            .arg(refused.isEmpty()
                    ? QString()
                    : u"; refused by the desktop or another app: "_s + refused.join(u", "_s)));
}

void AppDelegate::log(const QString &line) const
{
    if (m_log == Log::verbose)
        std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

OutcomeReport report(WindowManager &windowManager, Placement placement)
{
    OutcomeReport report{placement, windowManager.perform(placement), {}, {}};
    if (std::holds_alternative<MoveOutcome::NoWindow>(report.outcome.value)) {
        if (const auto frontmost = Platform::current().applications().frontmost())
            report.frontmostName = frontmost->localizedName;
    }
    if (std::holds_alternative<MoveOutcome::NotTrusted>(report.outcome.value))
        report.distrustReason = Platform::current().windows().distrustReason();
    return report;
}

} // namespace corvane
