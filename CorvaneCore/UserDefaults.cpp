#include "UserDefaults.h"

#include "FileDescriptor.h"
#include "FlightRecorder.h"
#include "PrivateFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <fcntl.h>
#include <tuple>

namespace corvane::UserDefaults {

using namespace Qt::StringLiterals;

namespace {

constexpr auto checksForUpdatesKey = "checksForUpdates"_L1;

QString sizeKey(QLatin1StringView name)
{
    return name + "Size"_L1;
}

} // namespace

void prepare()
{
    QCoreApplication::setOrganizationName(u"Corvane"_s);
    QCoreApplication::setApplicationName(u"Corvane"_s);
    // Qt would make a file that others can read, but does not change one that is there. Where this fails,
    // Qt's own writing fails, too.
    const QString path = QSettings().fileName();
    if (PrivateFile::makeFolder(QFileInfo(path).path()))
        std::ignore = FileDescriptor::open(QFile::encodeName(path), O_WRONLY | O_CREAT);
}

bool isFlag(const QString &key)
{
    return key == carriedOverLegacyDefaults || key == clearedLegacyPermissions
        || key == loginItemCarriedOver;
}

bool testAndSet(QLatin1StringView key)
{
    QSettings defaults;
    if (defaults.value(key).toBool())
        return true;
    defaults.setValue(key, true);
    defaults.sync();
    if (defaults.status() != QSettings::NoError)
        FlightRecorder::shared().record(
            u"save-failed"_s, u"user defaults: %1 cannot be written"_s.arg(defaults.fileName()));
    return false;
}

QUuid installID()
{
    constexpr auto key = "installID"_L1;
    QSettings defaults;
    QUuid id = QUuid::fromString(defaults.value(key).toString());
    if (id.isNull()) {
        id = QUuid::createUuid();
        defaults.setValue(key, id.toString(QUuid::WithoutBraces));
    }
    return id;
}

bool checksForUpdates()
{
    return QSettings().value(checksForUpdatesKey, true).toBool();
}

void setChecksForUpdates(bool checks)
{
    QSettings().setValue(checksForUpdatesKey, checks);
}

QSize windowSize(QLatin1StringView name)
{
    return QSettings().value(sizeKey(name)).toSize();
}

void setWindowSize(QLatin1StringView name, const QSize &size)
{
    QSettings().setValue(sizeKey(name), size);
}

} // namespace corvane::UserDefaults
