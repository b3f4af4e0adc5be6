#include "Beneath.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QList>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

namespace corvane::Beneath {

namespace {

constexpr qsizetype longestPath = 512;
constexpr qsizetype longestName = 128;
constexpr qsizetype pieceSize = 256LL * 1024;

bool isPlainLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z')
        || (letter >= '0' && letter <= '9') || QByteArrayView("._+-").contains(letter);
}

bool isPlainName(const QByteArray &name)
{
    return !name.isEmpty() && name.size() <= longestName && name != "." && name != ".."
        && std::ranges::all_of(name, isPlainLetter);
}

} // namespace

bool isPlain(QByteArrayView path)
{
    return path.size() <= longestPath
        && std::ranges::all_of(path.toByteArray().split('/'), isPlainName);
}

expected<FileDescriptor, int> open(int folder, const QByteArray &path, int flags, mode_t mode)
{
    open_how how{};
    how.flags = static_cast<quint64>(flags | O_CLOEXEC | O_NOFOLLOW);
    how.mode = mode;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_XDEV;
    long number = -1;
    do
        number = ::syscall(SYS_openat2, folder, path.constData(), &how, sizeof how);
    while (number < 0 && (errno == EINTR || errno == EAGAIN));
    if (number < 0)
        return unexpected<int>(errno);
    return FileDescriptor(static_cast<int>(number));
}

expected<QByteArray, QString> sha256(const FileDescriptor &file)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (qint64 at = 0;;) {
        const auto length = file.readAt(at, piece.data(), piece.size());
        if (!length)
            return unexpected<QString>(length.error());
        if (*length == 0)
            return hash.result();
        hash.addData(QByteArrayView(piece).first(*length));
        at += *length;
    }
}

} // namespace corvane::Beneath
