#pragma once

#include "PrivateSession.h"

namespace corvane::desktop {

/// Releases 1, 2 and 3 of what was built, of which the first one is installed for the session's user, and a
/// server on this computer that offers the others once it is told to. The third one passes the test of
/// itself and does not run. Keys and certificate are made for the run.
class ReleaseSite
{
public:
    enum class Libraries {
        ofThisComputer, ///< packed in a moment
        packed, ///< as users get them
    };

    /// The error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<ReleaseSite>, QString> publish(
        PrivateSession &session, Libraries libraries = Libraries::ofThisComputer);
    ~ReleaseSite();
    Q_DISABLE_COPY_MOVE(ReleaseSite)

    [[nodiscard]] bool offer(int release);
    /// Installs the first one, also over another.
    [[nodiscard]] bool installFirst();

    /// The user's own copy, whichever release that is.
    [[nodiscard]] QString program() const;
    [[nodiscard]] QString updater() const;
    [[nodiscard]] int current() const; ///< release
    /// The path that the server was asked for next. Nothing when none came in time.
    [[nodiscard]] std::optional<QByteArray> nextRequest(Milliseconds deadline = patience)
    {
        return m_server->readLine(deadline);
    }

private:
    explicit ReleaseSite(PrivateSession &session) : m_session(session) { }

    [[nodiscard]] bool makeCertificate();
    [[nodiscard]] bool runPublisher(const QString &what, const QString &value);
    void tellSession();
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString installation() const;

    PrivateSession &m_session;
    QTemporaryDir m_folder;
    std::unique_ptr<ChildProcess> m_server;
    QString m_port;
};

} // namespace corvane::desktop
