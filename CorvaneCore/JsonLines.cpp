#include "JsonLines.h"

#include "FileDescriptor.h"
#include "FileError.h"
#include "FileReplacement.h"
#include "LineReader.h"
#include "PrivateFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

#include <cerrno>
#include <fcntl.h>
#include <optional>

namespace corvane {

namespace {

using Lock = FileDescriptor::Lock;

constexpr qsizetype blockSize = 64LL * 1024;

expected<FileDescriptor, int> openToAppend(const QString &path)
{
    return FileDescriptor::open(
        QFile::encodeName(path), O_RDWR | O_APPEND | O_CREAT, Lock::exclusive);
}

/// All of it or nothing, in one call, so that a reader without the lock sees whole lines, too.
expected<void, QString> appendWhole(const FileDescriptor &file, QByteArray line)
{
    const qint64 size = file.size();
    char last = '\n';
    if (size > 0 && file.readAt(size - 1, &last, 1) && last != '\n')
        line.prepend('\n');
    const ssize_t written = ::write(file.number(), line.constData(), line.size());
    if (written == line.size())
        return {};
    const int reason = written < 0 ? errno : ENOSPC;
    if (written > 0 && ::ftruncate(file.number(), size) != 0)
        return lastFileError();
    return fileError(reason);
}

/// Shows the lines that end in `text`, which is the part of the file before the lines shown already,
/// and leaves in it the piece of a line that starts earlier. False once `visit` has had enough.
bool showLines(QByteArrayView &text, const std::function<bool(QByteArrayView)> &visit)
{
    for (qsizetype newline; (newline = text.lastIndexOf('\n')) >= 0;) {
        const QByteArrayView line = text.sliced(newline + 1);
        text = text.first(newline);
        if (!line.isEmpty() && !visit(line))
            return false;
    }
    return true;
}

/// One pass over a file that writes the lines to keep to its successor, which is begun with the first
/// line that goes: most passes find none.
class Shortening final
{
public:
    Shortening(const FileDescriptor &file, const QString &path) : m_file(file), m_path(path) { }

    expected<void, QString> drop(const LineReader::Line &line)
    {
        return m_successor ? expected<void, QString>() : begin(line.offset);
    }

    expected<void, QString> keep(const LineReader::Line &line)
    {
        if (!m_successor)
            return {};
        m_pending.append(line.text).append('\n');
        return m_pending.size() < blockSize ? expected<void, QString>() : flush();
    }

    expected<void, QString> finish()
    {
        if (!m_successor)
            return {};
        return flush().and_then([this] { return m_successor->commit(); });
    }

private:
    expected<void, QString> begin(qint64 keptSoFar)
    {
        auto successor = FileReplacement::begin(m_path);
        if (!successor)
            return unexpected<QString>(successor.error());
        m_successor.emplace(*std::move(successor));
        m_pending.resize(blockSize);
        for (qint64 offset = 0; offset < keptSoFar;) {
            const auto count = m_file.readAt(
                offset, m_pending.data(), qMin<qint64>(blockSize, keptSoFar - offset));
            if (!count || *count == 0)
                return count ? fileError(EIO) : unexpected<QString>(count.error());
            auto written = m_successor->write(QByteArrayView(m_pending).first(*count));
            if (!written)
                return written;
            offset += *count;
        }
        m_pending.resize(0);
        return {};
    }

    expected<void, QString> flush()
    {
        auto written = m_successor->write(m_pending);
        m_pending.resize(0);
        return written;
    }

    const FileDescriptor &m_file;
    const QString &m_path;
    std::optional<FileReplacement> m_successor;
    QByteArray m_pending;
};

} // namespace

JsonLines::JsonLines(QString path) : m_path(std::move(path)) { }

expected<void, QString> JsonLines::append(const QJsonObject &record) const
{
    const QByteArray line = QJsonDocument(record).toJson(QJsonDocument::Compact) + '\n';
    if (line.size() > lineLimit)
        return fileError(EFBIG);
    auto file = openToAppend(m_path);
    if (!file && file.error() == ENOENT) {
        if (auto folder = PrivateFile::makeFolder(QFileInfo(m_path).path()); !folder)
            return folder;
        file = openToAppend(m_path);
    }
    return file ? appendWhole(*file, line) : fileError(file.error());
}

void JsonLines::readBackward(const std::function<bool(QByteArrayView)> &visit) const
{
    const auto file = FileDescriptor::open(QFile::encodeName(m_path), O_RDONLY, Lock::shared);
    if (!file)
        return;
    QByteArray block;
    QByteArray piece; ///< of a line that starts before what has been read
    bool isTooLong = false; ///< that line
    for (qint64 offset = file->size(); offset > 0;) {
        const qsizetype size = qMin<qint64>(blockSize, offset);
        offset -= size;
        block.resize(size);
        if (file->readAt(offset, block.data(), size).value_or(0) != size)
            return;
        if (isTooLong) {
            block.truncate(block.lastIndexOf('\n') + 1);
            isTooLong = block.isEmpty();
        }
        piece.prepend(block);
        QByteArrayView text(piece);
        if (!showLines(text, visit))
            return;
        isTooLong = isTooLong || text.size() > lineLimit;
        piece = isTooLong ? QByteArray() : text.toByteArray();
    }
    if (!piece.isEmpty())
        visit(piece);
}

expected<void, QString> JsonLines::keep(
    const std::function<bool(QByteArrayView)> &wanted, qint64 limit) const
{
    const auto file = FileDescriptor::open(QFile::encodeName(m_path), O_RDONLY, Lock::exclusive);
    if (!file)
        return file.error() == ENOENT ? expected<void, QString>() : fileError(file.error());
    for (qint64 surplus = 0;;) {
        Shortening shortening(*file, m_path);
        LineReader reader(*file, lineLimit);
        qint64 found = 0;
        while (const auto line = reader.next()) {
            const bool isWanted = !line->text.isEmpty() && wanted(line->text);
            found += isWanted ? 1 : 0;
            auto result =
                isWanted && found > surplus ? shortening.keep(*line) : shortening.drop(*line);
            if (!result)
                return result;
        }
        if (found - surplus <= limit)
            return shortening.finish();
        surplus = found - limit;
    }
}

} // namespace corvane
