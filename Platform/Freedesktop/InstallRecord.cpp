#include "InstallRecord.h"

#include "EnumTable.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 longest = 64LL * 1024;

constexpr EnumTable<InstallKind::bundle, NamedCase<InstallKind>> kinds({{
    {InstallKind::development, "development"_L1},
    {InstallKind::package, "package"_L1},
    {InstallKind::flatpak, "flatpak"_L1},
    {InstallKind::image, "image"_L1},
    {InstallKind::bundle, "bundle"_L1},
}});

QString ownFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/.."_s);
}

/// Whether this program is one of the versions that the user's folder holds.
bool isInPlace()
{
    const QString versions = QFileInfo(bundlesFolder() + u"/versions"_s).canonicalFilePath();
    return !versions.isEmpty() && QFileInfo(ownFolder()).canonicalPath() == versions;
}

} // namespace

InstallRecord InstallRecord::read(const QString &folder)
{
    QFile file(folder + u"/share/corvane/install.json"_s);
    if (!file.open(QFile::ReadOnly))
        return {};
    const QJsonObject json = QJsonDocument::fromJson(file.read(longest)).object();
    const QDateTime built = QDateTime::fromString(json[u"built"].toString(), Qt::ISODate);
    return {.kind = kinds.named(json[u"kind"].toString()).value_or(InstallKind::development),
        .build = qMax(json[u"build"].toInteger(), qint64(0)),
        .built = built.isValid() ? std::optional(built) : std::nullopt,
        .command = json[u"command"].toString(),
        .maker = json[u"maker"].toString()};
}

QString bundlesFolder()
{
    return QDir::homePath() + u"/.local/lib/corvane"_s;
}

InstallRecord ownRecord()
{
    return InstallRecord::read(ownFolder());
}

InstalledCopy ownCopy()
{
    const InstallRecord record = ownRecord();
    InstalledCopy copy{.kind = record.kind,
        .maker = record.maker,
        .command = record.command,
        .build = record.build};
    // Whoever packs the program for these need not know the file.
    if (QFileInfo::exists(u"/.flatpak-info"_s))
        copy.kind = InstallKind::flatpak;
    else if (qEnvironmentVariableIsSet("APPIMAGE"))
        copy.kind = InstallKind::image;
    copy.isInPlace = copy.kind != InstallKind::bundle || isInPlace();
    return copy;
}

QString ownProgram()
{
    const QString program = QCoreApplication::applicationFilePath();
    const bool isOneOfSeveral = ownRecord().kind == InstallKind::bundle && isInPlace();
    return isOneOfSeveral ? bundlesFolder() + u"/current/bin/"_s + QFileInfo(program).fileName()
                          : program;
}

} // namespace corvane::freedesktop
