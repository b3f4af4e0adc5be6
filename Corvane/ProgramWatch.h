#pragma once

#include <QtCore/QFileSystemWatcher>

namespace corvane {

/// Tells when somebody, such as the system's package manager, has put another program in the place of the
/// one that runs. Wakes up only when the file changes.
class ProgramWatch final : public QObject
{
    Q_OBJECT

public:
    explicit ProgramWatch(QString program);

    void start();

Q_SIGNALS:
    /// Sent once. The new program is there.
    void replaced();

private:
    struct Identity {
        quint64 device = 0, number = 0;
        bool operator==(const Identity &) const = default;
    };

    [[nodiscard]] std::optional<Identity> identity() const;
    void look();

    QString m_program;
    std::optional<Identity> m_running;
    QFileSystemWatcher m_watcher;
};

} // namespace corvane
