#pragma once

#include <QtCore/QTemporaryDir>

#include <functional>
#include <optional>
#include <sys/resource.h>
#include <sys/types.h>

namespace corvane {

/// A folder of a test's own, with what a user or a crash may have left in it.
class StoreFolder final
{
public:
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    void write(const QString &name, const QByteArray &content) const;
    /// Nothing when there is no such file.
    [[nodiscard]] std::optional<QByteArray> read(const QString &name) const;
    /// Every name, hidden ones too.
    [[nodiscard]] QStringList names() const;
    [[nodiscard]] mode_t mode(const QString &name) const;
    void setMode(const QString &name, mode_t mode) const;

private:
    QTemporaryDir m_folder;
};

/// From now on, the files that this process writes may not grow beyond so many bytes.
void limitFileSize(rlim_t bytes);
/// Runs `action` without root's rights; `folder` is the user's who is left.
void runAsUser(const StoreFolder &folder, const std::function<void()> &action);
/// Runs `action` in a process of its own.
[[nodiscard]] pid_t startProcess(const std::function<void()> &action);
/// Whether it came to its end.
[[nodiscard]] bool waitFor(pid_t process);
/// Runs `action` in a process of its own, and kills it where it enters or leaves the kernel for the
/// `boundary`th time. Absent when this system lets no process watch another one; false when the
/// action has fewer boundaries.
[[nodiscard]] std::optional<bool> killAtBoundary(int boundary, const std::function<void()> &action);

} // namespace corvane
