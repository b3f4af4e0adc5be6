#pragma once

#include "AgentHost.h"

#include <QtCore/QThread>

namespace corvane::wayland {

/// The agent as the main thread knows it: asked synchronously, with no event loop running meanwhile.
/// Signals on the main thread say that there are news.
class AgentLink final : public QObject
{
    Q_OBJECT

public:
    using MakeHost = std::function<std::unique_ptr<AgentHost>(AgentMailbox &mailbox)>;

    explicit AgentLink(const MakeHost &makeHost);
    ~AgentLink() override;

    [[nodiscard]] AgentMailbox &mailbox() { return m_mailbox; }
    [[nodiscard]] const AgentMailbox &mailbox() const { return m_mailbox; }

Q_SIGNALS:
    void presenceChanged();
    void described(const QString &description);
    void newsArrived();

private:
    AgentMailbox m_mailbox;
    std::unique_ptr<AgentHost> m_host;
    QThread m_thread;
};

} // namespace corvane::wayland
