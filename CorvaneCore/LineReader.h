#pragma once

#include "FileDescriptor.h"

#include <QtCore/QByteArray>

#include <optional>

namespace corvane {

/// Reads the start of a file line by line.
class LineReader final
{
public:
    struct Line {
        QByteArrayView text; ///< without its newline; empty when it is beyond the limit
        qint64 offset = 0; ///< in the file, where it starts
    };

    /// Ends where the file's byte `end` is, or the file itself. `file` is borrowed.
    LineReader(const FileDescriptor &file, qint64 end, qsizetype lineLimit);

    /// The next line; its text is good until the next call.
    [[nodiscard]] std::optional<Line> next();

private:
    [[nodiscard]] QByteArrayView rest() const;
    bool fill();
    Line take(qsizetype length, qsizetype newline);

    const FileDescriptor &m_file;
    qint64 m_fileEnd;
    qsizetype m_lineLimit;
    QByteArray m_buffer;
    qsizetype m_start = 0; ///< in the buffer, of what has not been returned
    qsizetype m_end = 0; ///< in the buffer, of what has been read
    qint64 m_lineOffset = 0; ///< in the file, of the line to return next
    qint64 m_skipped = 0; ///< of that line, since it is too long
};

} // namespace corvane
