#pragma once

#include "AgentMailbox.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVirtualObject>

#include <memory>

namespace corvane::wayland {

/// Hears the polls and the news of an agent in the compositor. Lives in a thread of its own, on a bus
/// connection of its own, so that an agent is heard while the main thread waits for it.
class AgentHost : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// In the thread that it lives in; so too `stop`, which has the agent do nothing any more.
    virtual void start();
    virtual void stop();

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) final;

Q_SIGNALS:
    void presenceChanged();
    void described(const QString &description);
    void newsArrived();

protected:
    static constexpr QLatin1StringView interfaceName{"app.corvane.Agent"}; ///< that the agent calls

    /// The compositor has this well-known name on the bus.
    AgentHost(AgentMailbox &mailbox, QLatin1StringView compositorName);

    [[nodiscard]] AgentMailbox &mailbox() { return m_mailbox; }
    [[nodiscard]] QDBusConnection &bus() { return m_bus; }
    /// Its unique name on the bus; empty while there is none.
    [[nodiscard]] const QString &compositor() const { return m_compositor; }
    /// A message to the compositor.
    [[nodiscard]] QDBusMessage callTo(const QString &path, const QString &interface,
        const QString &method, const QVariantList &arguments = {}) const;

    /// Where the agent is to call.
    void listenAt(const QString &path);
    /// The agent is gone, and with a new compositor there is none yet.
    void forgetAgent();
    /// Another compositor, or none, has the name.
    virtual void compositorChanged() = 0;
    /// The agent has polled. `isNew`: for the first time since it was there.
    virtual void polled(bool isNew) = 0;
    /// Hands a command to the agent, whose poll this is.
    virtual AgentMailbox::AnswerPoll answerTo(const QDBusMessage &poll) = 0;
    /// What else it may say. False for what makes no sense.
    virtual bool take(const QDBusMessage &) { return false; }
    /// `onAnswer` is not called when the compositor has been replaced meanwhile.
    void call(const QDBusMessage &message, std::function<void(const QDBusMessage &)> onAnswer);

private:
    void compositorIs(const QString &owner);
    void takePoll(const QDBusMessage &poll);

    AgentMailbox &m_mailbox;
    QDBusConnection m_bus;
    QLatin1StringView m_compositorName;
    QString m_compositor;
    QString m_path;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
};

} // namespace corvane::wayland
