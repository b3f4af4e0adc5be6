#pragma once

#include "AgentHost.h"

#include <QtCore/QTemporaryFile>
#include <QtCore/QTimer>

namespace corvane::kwin {

/// Brings the agent, a script, into KWin, and brings it back when KWin starts anew or the agent falls
/// silent.
class ScriptHost final : public wayland::AgentHost
{
    Q_OBJECT

public:
    explicit ScriptHost(wayland::AgentMailbox &mailbox);

    void start() override;
    void stop() override;

private:
    void compositorChanged() override;
    void polled(bool isNew) override;
    wayland::AgentMailbox::AnswerPoll answerTo(const QDBusMessage &poll) override;

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
    [[nodiscard]] QDBusMessage scriptingCall(
        const QString &method, const QVariantList &arguments) const;

    /// Other programs cannot guess it, so that none sees or says what is between the agent and us. Another
    /// process of ours has another one, and an agent of its own.
    QString m_scriptName;
    QStringList m_loaded; ///< names of all scripts of ours in this KWin
    QString m_objectPath;
    std::unique_ptr<QTimer> m_heartbeat;
    std::unique_ptr<QTemporaryFile> m_script;
    std::chrono::milliseconds m_pollPatience;
    int m_silentBeats = 0; ///< at which no poll was open
    bool m_isDescribed = false;
};

} // namespace corvane::kwin
