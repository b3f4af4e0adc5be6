#include "ReportFile.h"

#include "DataFolder.h"
#include "FileDescriptor.h"
#include "FileError.h"
#include "PrivateFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <cerrno>
#include <fcntl.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostFilesOfASecond = 100;

/// The error is the system's number.
expected<void, int> writeNew(const QString &path, const QByteArray &content)
{
    const QByteArray name = QFile::encodeName(path);
    const auto file = FileDescriptor::open(name, O_WRONLY | O_CREAT | O_EXCL);
    if (!file)
        return unexpected<int>(file.error());
    errno = 0;
    if (file->write(content) && ::fsync(file->number()) == 0)
        return {};
    const int reason = errno;
    ::unlink(name.constData());
    return unexpected<int>(reason);
}

/// The error is the system's number.
expected<QString, int> saveIn(const QString &folder, const ProblemReport &report)
{
    const QString name = u"%1/Corvane report %2"_s.arg(
        folder, report.date.toLocalTime().toString(u"yyyy-MM-dd hh.mm.ss"_s));
    const QByteArray content = report.toText().toUtf8();
    int reason = EEXIST;
    for (int number = 1; number <= mostFilesOfASecond && reason == EEXIST; ++number) {
        const QString path = name + (number == 1 ? u".txt"_s : u" %1.txt"_s.arg(number));
        const auto written = writeNew(path, content);
        if (written)
            return path;
        reason = written.error();
    }
    return unexpected<int>(reason);
}

QString sentence(const QString &path, int error)
{
    if (error == EEXIST)
        return QCoreApplication::translate("ReportFile", "“%1” exists already.").arg(path);
    const QString reason = error == ENOENT
        ? QCoreApplication::translate("ReportFile", "Its folder does not exist.")
        : fileErrorSentence(error);
    return QCoreApplication::translate("ReportFile", "“%1” was not written. %2").arg(path, reason);
}

} // namespace

expected<QString, QString> saveReport(const ProblemReport &report)
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    if (QFileInfo(desktop).isDir()) {
        if (const auto saved = saveIn(desktop, report))
            return *saved;
    }
    if (const auto folder = PrivateFile::makeFolder(dataFolder()); !folder)
        return unexpected<QString>(folder.error());
    return saveIn(dataFolder(), report).map_error(fileErrorSentence);
}

expected<void, QString> saveReport(const ProblemReport &report, const QString &path)
{
    const auto written = writeNew(path, report.toText().toUtf8());
    if (written)
        return {};
    return unexpected<QString>(sentence(path, written.error()));
}

} // namespace corvane
