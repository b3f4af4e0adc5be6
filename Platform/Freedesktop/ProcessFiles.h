#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QStringList>

#include <optional>
#include <sys/types.h>

namespace corvane::freedesktop {

/// A sandbox that names the application inside it.
struct Sandbox {
    QString entryId; ///< of the application's entry
    QString family; ///< what the ids of all entries of the same package begin with

    bool operator==(const Sandbox &) const = default;
};

/// What the kernel tells of other processes. Nothing of what is not ours to read.
class ProcessFiles final
{
public:
    explicit ProcessFiles(const QString &root = QStringLiteral("/proc")) : m_root(root) { }

    /// The processes of this user but this one, by number.
    [[nodiscard]] QList<pid_t> ownProcesses() const;
    [[nodiscard]] std::optional<Sandbox> sandbox(pid_t pid) const;
    /// What the process runs, the likeliest first: paths or bare names, no interpreter of a script.
    [[nodiscard]] QStringList programs(pid_t pid) const;
    /// A variable that the process was started with; empty when there was none.
    [[nodiscard]] QByteArray variable(pid_t pid, QByteArrayView name) const;

private:
    [[nodiscard]] QString path(pid_t pid, const char *file) const;
    [[nodiscard]] QByteArray contents(pid_t pid, const char *file) const;
    [[nodiscard]] std::optional<Sandbox> snap(pid_t pid) const;

    QString m_root;
};

[[nodiscard]] bool isJava(const QString &program);
/// The program that a Java machine with these arguments runs: the last part of its class, or its
/// archive's name. Empty when they name none.
[[nodiscard]] QString javaProgram(const QByteArrayList &arguments);

/// Whether programs of this name run others: shells, interpreters, sandboxes.
[[nodiscard]] bool runsOthers(const QString &program);

} // namespace corvane::freedesktop
