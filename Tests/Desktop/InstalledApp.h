#pragma once

#include "PrivateSession.h"

namespace corvane::desktop {

/// Describes an application to a session by a desktop entry, which ends with this object. Its windows
/// have the entry's id as their class.
class InstalledApp
{
public:
    /// One that runs this command.
    InstalledApp(PrivateSession &session, QString id, const QStringList &command);
    /// One that takes these steps (see ClientMain.cpp) whenever it is started.
    [[nodiscard]] static std::unique_ptr<InstalledApp> scripted(
        PrivateSession &session, const QString &id, const QStringList &steps);
    /// Ends every copy that takes steps.
    ~InstalledApp();
    Q_DISABLE_COPY_MOVE(InstalledApp)

    [[nodiscard]] const QString &id() const { return m_id; }
    /// Starts it as its entry says.
    [[nodiscard]] std::unique_ptr<ChildProcess> start() const
    {
        return m_session.launch(m_command.first(), m_command.mid(1));
    }
    /// How often one that takes steps has been started, by whomever.
    [[nodiscard]] qsizetype starts() const { return copies().size(); }

private:
    [[nodiscard]] QList<pid_t> copies() const;

    PrivateSession &m_session;
    QString m_id;
    QStringList m_command;
};

} // namespace corvane::desktop
