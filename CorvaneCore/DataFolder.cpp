#include "DataFolder.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString dataLocation()
{
    const QString location = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // A relative $XDG_DATA_HOME is void, and would scatter files over the working directories.
    return QDir::isAbsolutePath(location) ? location : QDir::homePath() + u"/.local/share"_s;
}

} // namespace

const QString &dataFolder()
{
    static const QString folder = dataLocation() + u"/Corvane"_s;
    return folder;
}

QString abbreviatedPath(const QString &path)
{
    const QString home = QDir::homePath();
    return path == home || path.startsWith(home + u'/') ? u'~' + path.mid(home.size()) : path;
}

} // namespace corvane
