#pragma once

#include "AgentLink.h"
#include "Compositor.h"
#include "DeskMirror.h"

namespace corvane::wayland {

/// A compositor by an agent of ours inside it, which tells what changes and does what it is told.
class AgentCompositor : public Compositor
{
    Q_OBJECT

public:
    /// Returns when the agent is there, or has not come in this time: it may still do so.
    AgentCompositor(const AgentLink::MakeHost &makeHost, Duration startTime);

    bool isPresent() const override { return m_link.mailbox().isPresent(); }
    QString description() const override { return m_description; }
    void setMessagingTimeout(Duration timeout) override { m_timeout = timeout; }
    Duration messagingTimeout() const override { return m_timeout; }

    expected<Desk, AXError> read(Scope scope) override;

    AXError place(const QList<WindowMove> &moves) override;
    AXError leaveStates(const WindowElement &window) override;
    AXError enterState(const WindowElement &window, const WindowState &state) override;

    Duration holdTime() const override { return {}; }
    bool waitForFrames(Time deadline) override;

    void raise(const WindowElement &window) override;
    void bringToFront(const QList<WindowElement> &windows) override;
    void close(const WindowElement &window) override;
    void bringHere(const WindowElement &window) override;
    void keepAbove(const WindowElement &window) override;

    /// What the agent says to a command of another kind.
    [[nodiscard]] expected<QJsonObject, AXError> ask(
        QLatin1StringView deed, QJsonObject command = {});

private:
    [[nodiscard]] expected<QJsonObject, AXError> ask(const QString &command);
    [[nodiscard]] AXError askOf(
        const WindowElement &window, QLatin1StringView deed, QJsonObject command = {});
    void takeNews();
    void announce();

    AgentLink m_link;
    DeskMirror m_mirror;
    DeskMirror::Changes m_unannounced;
    /// What a window's limits are now, say, the agent does not tell by itself.
    bool m_isDoubtful = false;
    QString m_description;
    Duration m_timeout{1000};
};

} // namespace corvane::wayland
