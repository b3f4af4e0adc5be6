#include "RunMark.h"

#include "PrivateFile.h"

#include <QtCore/QFile>

#include <cerrno>
#include <fcntl.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int mostSessions = 8; ///< of one user at a time

QByteArray pathOf(const QString &folder, int number)
{
    const QString suffix = number == 1 ? QString() : u"-%1"_s.arg(number);
    return QFile::encodeName(folder + u"/running"_s + suffix);
}

} // namespace

// The lock on a mark ends with the process that set it, however that ends; the file stays then.
RunMark::RunMark(const QString &folder)
{
    if (!PrivateFile::makeFolder(folder))
        return;
    QByteArray missing;
    for (int number = 1; number <= mostSessions; ++number) {
        const QByteArray path = pathOf(folder, number);
        auto left = FileDescriptor::open(path, O_RDWR, FileDescriptor::Lock::exclusive, 0ms);
        if (!left && left.error() == ENOENT && missing.isEmpty())
            missing = path;
        if (!left)
            continue;
        m_foundAnother = true;
        ::unlink(path.constData());
        if (missing.isEmpty())
            missing = path;
    }
    if (missing.isEmpty())
        return;
    auto file =
        FileDescriptor::open(missing, O_RDWR | O_CREAT, FileDescriptor::Lock::exclusive, 0ms);
    if (!file)
        return;
    m_file.emplace(std::move(*file));
    m_path = missing;
}

RunMark::~RunMark()
{
    if (!m_path.isEmpty())
        ::unlink(m_path.constData());
}

} // namespace corvane
