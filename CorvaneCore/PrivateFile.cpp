#include "PrivateFile.h"

#include "FileDescriptor.h"
#include "FileError.h"
#include "FileReplacement.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace corvane {

namespace {

constexpr mode_t folderMode = 0700;
constexpr qsizetype blockSize = 64LL * 1024;

expected<FileDescriptor, int> openToRead(const QString &path)
{
    return FileDescriptor::open(QFile::encodeName(path), O_RDONLY);
}

QString tooLarge()
{
    return QCoreApplication::translate("FileError", "It is larger than %1 MiB.")
        .arg(PrivateFile::sizeLimit / (1024LL * 1024));
}

expected<void, QString> copyContent(const FileDescriptor &from, const FileDescriptor &to)
{
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 offset = 0;
    for (;;) {
        const auto count = from.readAt(offset, block.data(), block.size());
        if (!count)
            return unexpected<QString>(count.error());
        if (*count == 0)
            break;
        if (auto written = to.write(QByteArrayView(block).first(*count)); !written)
            return written;
        offset += *count;
    }
    // What it stands for may be replaced by content that is safe on the disk.
    return ::fsync(to.number()) == 0 ? expected<void, QString>() : lastFileError();
}

expected<void, QString> copyTo(const QByteArray &path, const FileDescriptor &from)
{
    const auto copy = FileDescriptor::open(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!copy)
        return fileError(copy.error());
    auto result = copyContent(from, *copy);
    if (!result)
        ::unlink(path.constData());
    return result;
}

} // namespace

expected<std::optional<QByteArray>, QString> PrivateFile::read(const QString &path)
{
    const auto file = openToRead(path);
    if (!file && file.error() == ENOENT)
        return std::nullopt;
    if (!file)
        return fileError(file.error());
    const qint64 size = file->size();
    if (size > sizeLimit)
        return unexpected<QString>(tooLarge());
    QByteArray content(size, Qt::Uninitialized);
    const auto length = file->readAt(0, content.data(), size);
    if (!length)
        return unexpected<QString>(length.error());
    content.truncate(*length);
    return content;
}

expected<void, QString> PrivateFile::replace(const QString &path, const QByteArray &content)
{
    auto replacement = FileReplacement::begin(path);
    if (!replacement)
        return unexpected<QString>(replacement.error());
    return replacement->write(content).and_then([&] { return replacement->commit(); });
}

expected<void, QString> PrivateFile::keepCopy(const QString &from, const QString &to)
{
    const QByteArray copy = QFile::encodeName(to);
    const auto file = openToRead(from);
    // A second name for the file costs no room and asks for no right to read it, and a replacement
    // leaves the file under that name alone. An editor might not, so it is for these two cases.
    if (!file || file->size() > sizeLimit) {
        const QByteArray original = QFile::encodeName(QFileInfo(from).canonicalFilePath());
        if (::link(original.constData(), copy.constData()) == 0)
            return {};
    }
    return file ? copyTo(copy, *file) : fileError(file.error());
}

expected<void, QString> PrivateFile::makeFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return {};
    if (auto parent = makeFolder(QFileInfo(path).path()); !parent)
        return parent;
    const bool isMade = ::mkdir(QFile::encodeName(path).constData(), folderMode) == 0;
    const int reason = errno == EEXIST ? ENOTDIR : errno;
    // Another process may have been quicker.
    return isMade || QFileInfo(path).isDir() ? expected<void, QString>() : fileError(reason);
}

} // namespace corvane
