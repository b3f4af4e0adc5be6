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
#include <tuple>

namespace corvane {

namespace {

using namespace std::chrono_literals;
using Lock = FileDescriptor::Lock;

constexpr qsizetype blockSize = 64LL * 1024;
// Nobody waits for a revision.
constexpr std::chrono::milliseconds revisionPatience = 1s;
constexpr int mostRevisions = 10;

expected<FileDescriptor, int> openToAppend(const QString &path, std::chrono::milliseconds patience)
{
    return FileDescriptor::open(
        QFile::encodeName(path), O_RDWR | O_APPEND | O_CREAT, Lock::exclusive, patience);
}

/// All of it or nothing, in one call, so that a reader without the lock sees whole lines, too.
expected<void, QString> appendWhole(const FileDescriptor &file, QByteArray lines)
{
    const qint64 size = file.size();
    char last = '\n';
    if (size > 0 && file.readAt(size - 1, &last, 1) && last != '\n')
        lines.prepend('\n');
    const ssize_t written = ::write(file.number(), lines.constData(), lines.size());
    if (written == lines.size())
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
    // In an empty view Qt 6.8 looks at the byte behind it.
    for (qsizetype newline; !text.isEmpty() && (newline = text.lastIndexOf('\n')) >= 0;) {
        const QByteArrayView line = text.sliced(newline + 1);
        text = text.first(newline);
        if (!line.isEmpty() && !visit(line))
            return false;
    }
    return true;
}

/// One pass over the start of a file that writes the lines to keep to its successor, which is begun
/// with the first line that does not stay as it is: most passes find none.
class Shortening final
{
public:
    /// Up to `end`. Both are borrowed.
    Shortening(const FileDescriptor &file, qint64 end, const QString &path)
        : m_file(file), m_end(end), m_path(path)
    {
    }

    [[nodiscard]] bool changesAnything() const { return m_successor.has_value(); }

    expected<void, QString> put(
        const LineReader::Line &line, const std::optional<QByteArrayView> &revised)
    {
        const bool isSame = revised && revised->data() == line.text.data();
        if (!m_successor && isSame)
            return {};
        if (auto begun = m_successor ? expected<void, QString>() : begin(line.offset); !begun)
            return begun;
        if (!revised)
            return {};
        m_pending.append(*revised).append('\n');
        return m_pending.size() < blockSize ? expected<void, QString>() : flush();
    }

    /// The long part of the work.
    expected<void, QString> write()
    {
        return flush().and_then([this] { return m_successor->sync(); });
    }

    /// While the file is locked: takes along what others have appended meanwhile.
    expected<void, QString> exchange()
    {
        return copy(m_end, m_file.size()).and_then([this] { return m_successor->commit(); });
    }

private:
    expected<void, QString> begin(qint64 keptSoFar)
    {
        auto successor = FileReplacement::begin(m_path);
        if (!successor)
            return unexpected<QString>(successor.error());
        m_successor.emplace(*std::move(successor));
        return copy(0, keptSoFar);
    }

    expected<void, QString> copy(qint64 from, qint64 to)
    {
        QByteArray block(blockSize, Qt::Uninitialized);
        while (from < to) {
            const auto count =
                m_file.readAt(from, block.data(), qMin<qint64>(blockSize, to - from));
            if (!count || *count == 0)
                return count ? fileError(EIO) : unexpected<QString>(count.error());
            if (auto written = m_successor->write(QByteArrayView(block).first(*count)); !written)
                return written;
            from += *count;
        }
        return {};
    }

    expected<void, QString> flush()
    {
        auto written = m_successor->write(m_pending);
        m_pending.resize(0);
        return written;
    }

    const FileDescriptor &m_file;
    qint64 m_end;
    const QString &m_path;
    std::optional<FileReplacement> m_successor;
    QByteArray m_pending;
};

/// Writes the successor of the first `end` bytes, if there is to be one.
expected<void, QString> shorten(std::optional<Shortening> &shortening, const FileDescriptor &file,
    qint64 end, const QString &path, const JsonLines::Revision &revision, qint64 limit)
{
    for (qint64 surplus = 0;;) {
        shortening.emplace(file, end, path);
        LineReader reader(file, end, JsonLines::lineLimit);
        qint64 found = 0;
        while (const auto line = reader.next()) {
            auto revised = line->text.isEmpty() ? std::nullopt : revision(line->text);
            if (revised && ++found <= surplus)
                revised.reset();
            if (auto result = shortening->put(*line, revised); !result)
                return result;
        }
        if (found - surplus <= limit)
            return shortening->changesAnything() ? shortening->write() : expected<void, QString>();
        surplus = found - limit;
    }
}

} // namespace

JsonLines::JsonLines(QString path) : m_path(std::move(path)) { }

JsonLines::~JsonLines()
{
    m_isHeld = false;
    std::ignore = flush();
}

expected<void, QString> JsonLines::add(const QJsonObject &record)
{
    const QByteArray line = QJsonDocument(record).toJson(QJsonDocument::Compact) + '\n';
    if (line.size() > lineLimit)
        return fileError(EFBIG);
    m_waiting += line;
    if (const qsizetype surplus = m_waiting.size() - waitingLimit; surplus > 0)
        m_waiting.remove(0, m_waiting.indexOf('\n', surplus) + 1);
    return {};
}

expected<bool, QString> JsonLines::flush()
{
    if (m_waiting.isEmpty())
        return true;
    const auto patience = m_isHeld ? 0ms : FileDescriptor::lockPatience;
    auto file = openToAppend(m_path, patience);
    if (!file && file.error() == ENOENT) {
        if (auto folder = PrivateFile::makeFolder(QFileInfo(m_path).path()); !folder)
            return unexpected<QString>(folder.error());
        file = openToAppend(m_path, patience);
    }
    m_isHeld = !file && file.error() == EWOULDBLOCK;
    if (!file)
        return m_isHeld ? expected<bool, QString>(false) : fileError(file.error());
    return appendWhole(*file, m_waiting).map([this] {
        m_waiting.clear();
        return true;
    });
}

void JsonLines::readBackward(const std::function<bool(QByteArrayView)> &visit) const
{
    // Without a lock: lines are whole from the moment they can be seen.
    const auto file = FileDescriptor::open(QFile::encodeName(m_path), O_RDONLY);
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

expected<void, QString> JsonLines::revise(const Revision &revision, qint64 limit) const
{
    const QByteArray path = QFile::encodeName(m_path);
    for (int attempt = 0; attempt < mostRevisions; ++attempt) {
        const auto file = FileDescriptor::open(path, O_RDONLY, Lock::exclusive, revisionPatience);
        if (!file)
            return file.error() == ENOENT ? expected<void, QString>() : fileError(file.error());
        // Whatever stands in it while it is locked stands on whole lines.
        const qint64 end = file->size();
        file->unlock();
        std::optional<Shortening> shortening;
        auto written = shorten(shortening, *file, end, m_path, revision, limit);
        if (!written || !shortening->changesAnything())
            return written;
        if (!file->lock(revisionPatience))
            return fileError(EWOULDBLOCK);
        if (file->isAt(path) && file->size() >= end)
            return shortening->exchange();
    }
    return fileError(EWOULDBLOCK);
}

} // namespace corvane
