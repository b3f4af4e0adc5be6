#pragma once

#include "Expected.h"

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QString>

#include <chrono>
#include <memory>
#include <optional>
#include <wayland-client-core.h>

struct wl_registry;

namespace corvane::wayland {

/// Our own connection to the Wayland compositor, beside Qt's: it tells what every client may know. No
/// wait on it lasts longer than its patience.
class Connection final : public QObject
{
    Q_OBJECT

public:
    /// To the display that $WAYLAND_DISPLAY names. The error is one sentence.
    [[nodiscard]] static expected<std::unique_ptr<Connection>, QString> open();
    ~Connection() override;

    [[nodiscard]] wl_display *display() const { return m_display; }
    [[nodiscard]] wl_registry *registry() const { return m_registry; }
    /// Returns once the compositor has handled what was sent before and its answers are taken in.
    /// False when it does not in time.
    [[nodiscard]] bool roundTrip();
    /// Takes in what has arrived, without waiting.
    void drain();

Q_SIGNALS:
    /// A global object is there. Told of all that there are when the first round trip ends.
    void globalAppeared(quint32 name, const QByteArray &interface, quint32 version);
    void globalVanished(quint32 name);
    /// Nothing works after this.
    void broken();

private:
    explicit Connection(wl_display *display);

    /// Waits for one batch of events. False when none came in time.
    [[nodiscard]] bool readUntil(std::chrono::steady_clock::time_point deadline);
    void reviewHealth();

    wl_display *m_display;
    wl_registry *m_registry;
    std::optional<QSocketNotifier> m_notifier;
    bool m_isBroken = false;
};

} // namespace corvane::wayland
