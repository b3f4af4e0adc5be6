#pragma once

#include "AgentMailbox.h"

#include <QtCore/QTemporaryFile>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVirtualObject>

#include <memory>

namespace corvane::kwin {

/// Brings the agent into KWin, hears its polls and its news, and brings it back when KWin starts anew or
/// the agent falls silent. Lives in a thread of its own, on a bus connection of its own, so that an agent
/// is heard while the main thread waits for it.
class AgentHost final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    explicit AgentHost(AgentMailbox &mailbox);

    /// In the thread that it lives in; so too `stop`, which takes the agent out of KWin.
    void start();
    void stop();

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

Q_SIGNALS:
    void presenceChanged();
    void described(const QString &description);
    void newsArrived();

private:
    void kwinIs(const QString &owner);
    void takeIdentity();
    void unload();
    void load();
    void run(const QList<QString> &paths);
    void expectPoll();
    void loadLater();
    [[nodiscard]] bool writeScript();
    void removeScript();
    void askDescription();
    void heartbeat();
    void polled(const QDBusMessage &message);
    /// `onAnswer` is not called when KWin has been replaced meanwhile.
    void call(const QDBusMessage &message, std::function<void(const QDBusMessage &)> onAnswer);

    AgentMailbox &m_mailbox;
    QDBusConnection m_bus;
    /// Other programs cannot guess it, so that none sees or says what is between the agent and us. Another
    /// process of ours has another one, and an agent of its own.
    QString m_scriptName;
    QStringList m_loaded; ///< names of all scripts of ours in this KWin
    QString m_objectPath;
    QString m_kwin; ///< its unique name on the bus; empty while there is none
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    std::unique_ptr<QTimer> m_heartbeat;
    std::unique_ptr<QTemporaryFile> m_script;
    std::chrono::milliseconds m_pollPatience;
    int m_silentBeats = 0; ///< at which no poll was open
    bool m_isDescribed = false;
};

} // namespace corvane::kwin
