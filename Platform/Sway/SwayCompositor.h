#pragma once

#include "Compositor.h"
#include "SwayConfig.h"
#include "SwaySocket.h"
#include "TilePlaces.h"

#include <QtCore/QHash>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <optional>

namespace corvane::sway {

/// sway, by its IPC socket: one connection for questions and commands, one for events.
class SwayCompositor final : public wayland::Compositor
{
    Q_OBJECT

public:
    explicit SwayCompositor(const QByteArray &path);
    ~SwayCompositor() override;

    bool isPresent() const override { return m_isPresent; }
    QString description() const override { return m_description; }
    void setMessagingTimeout(Duration timeout) override { m_timeout = timeout; }
    Duration messagingTimeout() const override { return m_timeout; }

    expected<wayland::Desk, AXError> read(Scope scope) override;
    AXError place(const QList<WindowMove> &moves) override;
    AXError leaveStates(const WindowElement &window) override;
    AXError enterState(const WindowElement &window, const WindowState &state) override;
    Duration holdTime() const override;
    bool waitForFrames(Time deadline) override;

    void raise(const WindowElement &window) override;
    void bringToFront(const QList<WindowElement> &windows) override;
    void close(const WindowElement &window) override;
    void bringHere(const WindowElement &window) override;
    void keepAbove(const WindowElement &window) override;

    /// Runs commands, which semicolons separate. The answer is which of them succeeded.
    [[nodiscard]] expected<QList<bool>, AXError> run(const QByteArray &commands);
    /// The key bindings in the user's own configuration.
    [[nodiscard]] QList<Binding> configuredBindings();

Q_SIGNALS:
    /// The combination of a run-time binding was pressed.
    void bindingPressed(const QString &command);
    /// All run-time bindings are gone.
    void bindingsLost();

private:
    [[nodiscard]] bool connectSockets();
    [[nodiscard]] expected<rapidjson::Document, AXError> ask(
        Message message, const QByteArray &content = {});
    void takeEvents();
    void take(const Packet &event);
    void takeWorkspaceEvent(const wayland::Json &event);
    void setPresent(bool isPresent);
    void tryAgainSoon();
    /// Nothing is said to a window of an earlier life of sway.
    void tell(const QList<WindowElement> &windows, const char *command);
    [[nodiscard]] static QByteArray criteria(const WindowElement &window);

    QByteArray m_path;
    SwaySocket m_questions;
    SwaySocket m_events;
    std::optional<QSocketNotifier> m_notifier;
    QTimer m_retry;
    QString m_description;
    QString m_configFile;
    Duration m_timeout{1000};
    rapidjson::Document m_tree; ///< as it was read last
    wayland::Desk m_desk; ///< that it describes
    TilePlaces m_tilePlaces;
    quint64 m_generation = 0;
    bool m_isPresent = false;
};

} // namespace corvane::sway
