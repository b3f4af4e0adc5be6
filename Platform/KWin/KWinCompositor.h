#pragma once

#include "AgentLink.h"
#include "Compositor.h"
#include "WindowNumbers.h"

namespace corvane::kwin {

/// KWin, by the agent inside it.
class KWinCompositor final : public wayland::Compositor
{
    Q_OBJECT

public:
    /// Returns when the agent is there, or has not come in good time: it may still do so.
    KWinCompositor();

    bool isPresent() const override { return m_link.mailbox().isPresent(); }
    QString description() const override { return m_description; }
    void setMessagingTimeout(Duration timeout) override { m_timeout = timeout; }
    Duration messagingTimeout() const override { return m_timeout; }

    expected<wayland::Desk, AXError> read(Scope scope) override;

    AXError place(const QList<WindowMove> &moves) override;
    AXError leaveStates(const WindowElement &window) override;
    AXError enterState(const WindowElement &window, const WindowState &state) override;

    Duration holdTime() const override { return {}; }
    bool waitForFrames(Time deadline) override { return m_link.mailbox().waitForFrames(deadline); }

    bool raise(const WindowElement &window) override;
    void activate(const WindowElement &window) override;
    void close(const WindowElement &window) override;
    void bringHere(const WindowElement &window) override;
    void keepAbove(const WindowElement &window) override;

    /// Has KWin do nothing on any global shortcut. Ends by itself after three seconds, so that it ends
    /// when this program does: who needs it for longer says so again.
    void blockShortcuts(bool isBlocked);

private:
    using Effect = AgentMailbox::Effect;

    [[nodiscard]] expected<QJsonObject, AXError> ask(
        QLatin1StringView deed, QJsonObject command = {}, Effect effect = Effect::some);
    [[nodiscard]] AXError askOf(
        const WindowElement &window, QLatin1StringView deed, QJsonObject command = {});

    AgentLink m_link;
    WindowNumbers m_numbers;
    QString m_description;
    Duration m_timeout{1000};
    bool m_canRaise = true; ///< as far as is known
};

} // namespace corvane::kwin
