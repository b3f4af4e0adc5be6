#pragma once

#include "Expected.h"
#include "FileDescriptor.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace corvane {

/// New content for a file, written beside it and put in its place at once. Dropped unless committed.
///
/// The name of the new content is fixed and locked rather than made up, so that a crash leaves at most
/// one file behind, which the next replacement uses up, and two processes take turns.
class FileReplacement final
{
public:
    [[nodiscard]] static expected<FileReplacement, QString> begin(const QString &path);

    FileReplacement(FileReplacement &&) noexcept = default;
    FileReplacement &operator=(FileReplacement &&) = delete;
    ~FileReplacement();

    [[nodiscard]] expected<void, QString> write(QByteArrayView content);
    /// Brings to the disk what has been written, so that `commit` is quick.
    [[nodiscard]] expected<void, QString> sync() const;
    [[nodiscard]] expected<void, QString> commit();

private:
    FileReplacement(FileDescriptor file, QByteArray path, QByteArray target);

    FileDescriptor m_file;
    QByteArray m_path; ///< of the new content; empty once it is in place
    QByteArray m_target; ///< no link
};

} // namespace corvane
