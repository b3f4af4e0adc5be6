#pragma once

#include "AgentHost.h"

namespace corvane::gnome {

/// Hears our extension of GNOME Shell, which speaks up by itself as soon as this program has its name on
/// the bus, and listens to nobody else.
class ExtensionHost final : public wayland::AgentHost
{
    Q_OBJECT

public:
    explicit ExtensionHost(wayland::AgentMailbox &mailbox);

    void start() override;
    void stop() override;

Q_SIGNALS:
    /// A combination that the extension has grabbed went down.
    void pressed(quint32 action);

private:
    void compositorChanged() override;
    void polled(bool) override { }
    wayland::AgentMailbox::AnswerPoll answerTo(const QDBusMessage &poll) override;
    bool take(const QDBusMessage &message) override;
};

} // namespace corvane::gnome
