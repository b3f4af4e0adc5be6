#include "LineReader.h"

#include <cstring>

namespace corvane {

namespace {
constexpr qsizetype blockSize = 256LL * 1024;
} // namespace

LineReader::LineReader(const FileDescriptor &file, qint64 end, qsizetype lineLimit)
    : m_file(file), m_fileEnd(end), m_lineLimit(lineLimit)
{
}

std::optional<LineReader::Line> LineReader::next()
{
    for (;;) {
        if (const qsizetype length = rest().indexOf('\n'); length >= 0)
            return take(length, 1);
        if (rest().size() > m_lineLimit) {
            m_skipped += rest().size();
            m_start = m_end;
        }
        if (!fill())
            break;
    }
    if (rest().isEmpty() && m_skipped == 0)
        return std::nullopt;
    return take(rest().size(), 0);
}

QByteArrayView LineReader::rest() const
{
    return {m_buffer.constData() + m_start, m_end - m_start};
}

bool LineReader::fill()
{
    const qsizetype size = rest().size();
    if (m_start > 0)
        std::memmove(m_buffer.data(), rest().data(), size);
    m_start = 0;
    m_end = size;
    if (m_buffer.size() < m_end + blockSize)
        m_buffer.resize(m_end + blockSize);
    const qint64 offset = m_lineOffset + m_skipped + size;
    const auto count = m_file.readAt(
        offset, m_buffer.data() + m_end, qBound<qint64>(0, m_fileEnd - offset, blockSize));
    m_end += count.value_or(0);
    return count.value_or(0) > 0;
}

LineReader::Line LineReader::take(qsizetype length, qsizetype newline)
{
    const Line line{m_skipped > 0 ? QByteArrayView() : rest().first(length), m_lineOffset};
    m_start += length + newline;
    m_lineOffset += m_skipped + length + newline;
    m_skipped = 0;
    return line;
}

} // namespace corvane
