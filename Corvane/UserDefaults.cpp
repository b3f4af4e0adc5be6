#include "UserDefaults.h"

#include "FileDescriptor.h"
#include "FlightRecorder.h"
#include "PrivateFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <fcntl.h>

namespace corvane::UserDefaults {

using namespace Qt::StringLiterals;

void prepare()
{
    QCoreApplication::setOrganizationName(u"Corvane"_s);
    QCoreApplication::setApplicationName(u"Corvane"_s);
    // Qt would make them open to others, but keeps what it finds. Where this fails, so do its writes.
    const QString path = QSettings().fileName();
    if (PrivateFile::makeFolder(QFileInfo(path).path()))
        static_cast<void>(FileDescriptor::open(QFile::encodeName(path), O_WRONLY | O_CREAT));
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

} // namespace corvane::UserDefaults
