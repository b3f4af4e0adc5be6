#pragma once

#include "AXWindow.h"
#include "Clock.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <functional>
#include <optional>

namespace corvane {

class WindowAccess;

/// Remembers the frame that every window had when it first showed up. Main thread only.
class WindowWatcher final : public QObject
{
    Q_OBJECT

public:
    /// How long an application may take to place a new window.
    static constexpr Clock::Duration settle{400};
    /// The most frames that are remembered.
    static constexpr int limit = 4000;

    static WindowWatcher &shared();
    explicit WindowWatcher(QObject *parent = nullptr);

    /// Watches the running applications and those to come. Does nothing without trust; once there
    /// is some, call it or `restart` again.
    void start();
    /// Observes every application afresh; the frames known so far stay.
    void restart();

    [[nodiscard]] std::optional<Rect> original(const AXWindow &window) const;
    [[nodiscard]] int count() const;

    std::function<void(const QString &)> onDiagnostic;

private:
    void attach();
    bool observe(pid_t pid);
    void watch(pid_t pid);
    void forget(pid_t pid);
    void snapshot(pid_t pid);
    void awaitSettled(const AXWindow &window);
    void remember(const AXWindow &window);
    void pruneIfFull();

    QPointer<WindowAccess> m_windows; ///< of the desktop whose notices we get
    QList<QMetaObject::Connection> m_tokens;
    QSet<pid_t> m_observed;
    QHash<AXWindow, Rect> m_originals;
};

} // namespace corvane
