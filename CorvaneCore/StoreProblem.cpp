#include "StoreProblem.h"

#include "DataFolder.h"
#include "PrivateFile.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

namespace corvane {

using namespace Qt::StringLiterals;

StoreProblem StoreProblem::keep(const QUrl &url, const QString &reason, const QDateTime &now)
{
    const QString path = url.toLocalFile();
    // The C locale, so that the name has the same digits wherever it is read.
    const QString copy =
        path + u".unreadable-"_s + QLocale::c().toString(now, u"yyyyMMdd-HHmmss"_s);
    const bool isKept = QFileInfo::exists(copy) || PrivateFile::keepCopy(path, copy);
    return {QFileInfo(path).fileName(),
        isKept ? std::optional(QUrl::fromLocalFile(copy)) : std::nullopt, reason};
}

QString sentence(const StoreProblem &problem)
{
    const QString subject =
        problem.file == "layouts.json"_L1 ? u"some of your layouts"_s : u"some of your settings"_s;
    QString text = u"Corvane could not read "_s + subject + u" in "_s + problem.file
        + u", so it used defaults for them."_s;
    if (!problem.kept)
        return text;
    const QFileInfo copy(problem.kept->toLocalFile());
    return text + u" The old file is kept in "_s + abbreviatedPath(copy.path()) + u" as "_s
        + copy.fileName() + u'.';
}

QString detail(const StoreProblem &problem)
{
    return problem.file + u" kept as "_s + (problem.kept ? problem.kept->fileName() : u"nothing"_s);
}

} // namespace corvane
