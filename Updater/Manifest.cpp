#include "Manifest.h"

#include "Beneath.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

namespace corvane {

namespace {

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

unexpected<InstallFailure> differs(const QByteArray &path)
{
    return installFailure(InstallProblem::treeDiffers, QString::fromUtf8(path));
}

/// Only as it would be written: no sign, no zero in front.
std::optional<qint64> number(const QByteArray &text)
{
    bool isNumber = false;
    const qint64 value = text.toLongLong(&isNumber);
    return isNumber && value >= 0 && QByteArray::number(value) == text ? std::optional(value)
                                                                       : std::nullopt;
}

std::optional<QByteArray> hash(const QByteArray &text)
{
    const QByteArray bytes = QByteArray::fromHex(text);
    return bytes.size() == 32 && bytes.toHex() == text ? std::optional(bytes) : std::nullopt;
}

/// Takes from `awaited` what is there and as it should be.
class TreeCheck final
{
public:
    TreeCheck(int folder, const Manifest &manifest) : m_root(folder), m_awaited(manifest.files) { }

    InstallResult<void> run()
    {
        if (auto checked = checkFolder({}); !checked)
            return checked;
        return m_awaited.isEmpty() ? InstallResult<void>() : differs(m_awaited.firstKey());
    }

private:
    InstallResult<void> checkFolder(const QByteArray &path)
    {
        auto opened = Beneath::open(m_root, path.isEmpty() ? "." : path, O_RDONLY | O_DIRECTORY);
        if (!opened)
            return differs(path);
        const std::unique_ptr<DIR, CloseFolder> folder(
            ::fdopendir(::fcntl(opened->number(), F_DUPFD_CLOEXEC, 0)));
        if (!folder)
            return lastInstallError();
        qsizetype count = 0;
        for (;;) {
            errno = 0;
            const dirent *entry = ::readdir(folder.get());
            if (!entry && errno != 0)
                return lastInstallError();
            if (!entry)
                break;
            const QByteArray name(entry->d_name);
            if (name == "." || name == "..")
                continue;
            ++count;
            if (auto checked = checkEntry(path.isEmpty() ? name : path + '/' + name); !checked)
                return checked;
        }
        // No file asks for a folder that is empty.
        return count > 0 ? InstallResult<void>() : differs(path);
    }

    InstallResult<void> checkEntry(const QByteArray &path)
    {
        if (path == Manifest::fileName)
            return {};
        const auto entry = Beneath::open(m_root, path, O_RDONLY | O_NONBLOCK);
        struct stat status;
        if (!Beneath::isPlain(path) || !entry || ::fstat(entry->number(), &status) != 0)
            return differs(path);
        if (S_ISDIR(status.st_mode))
            return checkFolder(path);
        const auto awaited = m_awaited.constFind(path);
        // A file with a second name could be changed by that.
        if (!S_ISREG(status.st_mode) || status.st_nlink != 1 || awaited == m_awaited.cend()
            || awaited->size != status.st_size)
            return differs(path);
        const auto found = Beneath::sha256(*entry);
        if (!found)
            return installFailure(InstallProblem::cannotWrite, found.error());
        if (*found != awaited->sha256)
            return differs(path);
        m_awaited.erase(awaited);
        return {};
    }

    int m_root;
    QMap<QByteArray, Manifest::File> m_awaited;
};

} // namespace

InstallResult<Manifest> Manifest::fromText(const QByteArray &text)
{
    const auto misunderstood = [](const QByteArray &line) {
        return installFailure(InstallProblem::manifestNotUnderstood, QString::fromUtf8(line));
    };
    if (!text.endsWith('\n') || text.size() > longest)
        return misunderstood({});
    Manifest manifest;
    for (const QByteArray &line : text.chopped(1).split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() != 3 || !Beneath::isPlain(fields[0]) || fields[0] == fileName)
            return misunderstood(line);
        const auto size = number(fields[1]);
        const auto sha256 = hash(fields[2]);
        const bool isNext = manifest.files.isEmpty() || manifest.files.lastKey() < fields[0];
        if (!size || !sha256 || !isNext)
            return misunderstood(line);
        manifest.files.insert(fields[0], {*size, *sha256});
    }
    return manifest;
}

InstallResult<Manifest> Manifest::ofFolder(int folder)
{
    const auto file = Beneath::open(folder, fileName.toByteArray(), O_RDONLY | O_NONBLOCK);
    if (!file)
        return differs(fileName.toByteArray());
    if (file->size() > longest)
        return installFailure(InstallProblem::manifestNotUnderstood);
    QByteArray text(file->size(), Qt::Uninitialized);
    const auto length = file->readAt(0, text.data(), text.size());
    if (!length)
        return installFailure(InstallProblem::cannotWrite, length.error());
    return fromText(text.first(*length));
}

InstallResult<void> checkTree(int folder)
{
    const auto manifest = Manifest::ofFolder(folder);
    return manifest ? TreeCheck(folder, *manifest).run()
                    : unexpected<InstallFailure>(manifest.error());
}

} // namespace corvane
