#include "WindowWatcher.h"

#include "Platform.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

pid_t ownPid()
{
    return static_cast<pid_t>(QCoreApplication::applicationPid());
}

} // namespace

WindowWatcher &WindowWatcher::shared()
{
    static WindowWatcher watcher;
    return watcher;
}

WindowWatcher::WindowWatcher(QObject *parent) : QObject(parent) { }

void WindowWatcher::start()
{
    if (!Platform::current().windows().isTrusted())
        return;
    attach();
    // Our own windows count whatever kind of application we are, and before we have shown any.
    watch(ownPid());
    for (const RunningApplication &application : Platform::current().applications().running()) {
        if (application.isRegular)
            watch(application.pid);
    }
}

void WindowWatcher::restart()
{
    if (m_windows) {
        for (const pid_t pid : std::as_const(m_observed))
            m_windows->stopObserving(pid);
    }
    m_observed.clear();
    start();
}

std::optional<Rect> WindowWatcher::original(const AXWindow &window) const
{
    const auto found = m_originals.constFind(window);
    return found == m_originals.cend() ? std::nullopt : std::optional(*found);
}

int WindowWatcher::count() const
{
    return static_cast<int>(m_originals.size());
}

/// Once per desktop, however often we are started; what was known of another desktop means nothing
/// on this one.
void WindowWatcher::attach()
{
    Platform &platform = Platform::current();
    if (m_windows == &platform.windows())
        return;
    for (const QMetaObject::Connection &token : std::as_const(m_tokens))
        disconnect(token);
    m_windows = &platform.windows();
    m_observed.clear();
    m_originals.clear();
    m_tokens = {
        connect(&platform.windows(), &WindowAccess::windowCreated, this,
            [this](const WindowElement &element, pid_t pid) {
                awaitSettled({element, pid});
            }),
        connect(&platform.windows(), &WindowAccess::windowClosed, this,
            [this](const WindowElement &element) { m_originals.remove({element}); }),
        connect(&platform.applications(), &Applications::launched, this,
            [this](const RunningApplication &application) {
                if (application.isRegular)
                    observe(application.pid);
            }),
        connect(&platform.applications(), &Applications::terminated, this, &WindowWatcher::forget),
    };
}

/// Whether the application was not observed before and is now.
bool WindowWatcher::observe(pid_t pid)
{
    if (m_observed.contains(pid) || m_windows->observe(pid) != AXError::success)
        return false;
    m_observed << pid;
    return true;
}

void WindowWatcher::watch(pid_t pid)
{
    if (observe(pid))
        snapshot(pid);
}

void WindowWatcher::forget(pid_t pid)
{
    if (m_observed.remove(pid))
        m_windows->stopObserving(pid);
    m_originals.removeIf([pid](const auto &original) { return original.key().pid == pid; });
}

void WindowWatcher::snapshot(pid_t pid)
{
    const WindowOperation operation(*m_windows);
    for (const AXWindow &window : AXWindow::windows(pid))
        remember(window);
    pruneIfFull();
}

void WindowWatcher::awaitSettled(const AXWindow &window)
{
    Platform::current().clock().after(settle, this, [this, window] {
        const WindowOperation operation(Platform::current().windows());
        if (m_originals.contains(window) || !window.isWindow() || !window.isStandard())
            return;
        remember(window);
        pruneIfFull();
    });
}

void WindowWatcher::remember(const AXWindow &window)
{
    if (m_originals.contains(window))
        return;
    if (const std::optional<Rect> frame = window.frame())
        m_originals.insert(window, *frame);
}

/// Deliberately crude: it only bounds memory.
void WindowWatcher::pruneIfFull()
{
    if (m_originals.size() <= limit)
        return;
    m_originals.removeIf([](const auto &original) { return !original.key().frame(); });
    if (m_originals.size() > limit) {
        QHash<AXWindow, Rect> kept;
        for (auto original = m_originals.cbegin(); kept.size() < limit / 2; ++original)
            kept.insert(original.key(), original.value());
        m_originals = kept;
    }
    if (onDiagnostic)
        onDiagnostic(u"window watcher pruned to %1"_s.arg(m_originals.size()));
}

} // namespace corvane
