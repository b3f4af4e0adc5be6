#include "StoreProblem.h"

#include "DataFolder.h"
#include "PrivateFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString translated(const char *sentence)
{
    return QCoreApplication::translate("StoreProblem", sentence);
}

const char *pattern(bool isLayouts, StoreProblem::Instead instead)
{
    if (instead == StoreProblem::Instead::present)
        return isLayouts ? QT_TRANSLATE_NOOP("StoreProblem",
                   "Corvane could not read some of your layouts in %1, so those it had stay.")
                         : QT_TRANSLATE_NOOP("StoreProblem",
                             "Corvane could not read some of your settings in %1, so those in "
                             "force stay.");
    return isLayouts
        ? QT_TRANSLATE_NOOP("StoreProblem",
            "Corvane could not read some of your layouts in %1, so it used defaults for them.")
        : QT_TRANSLATE_NOOP("StoreProblem",
            "Corvane could not read some of your settings in %1, so it used defaults for them.");
}

} // namespace

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

QString sentence(const StoreProblem &problem, StoreProblem::Instead instead)
{
    const QString text =
        translated(pattern(problem.file == "layouts.json"_L1, instead)).arg(problem.file);
    if (!problem.kept)
        return text;
    const QFileInfo copy(problem.kept->toLocalFile());
    return text + u' '
        + translated(QT_TRANSLATE_NOOP("StoreProblem", "The old file is kept in %1 as %2."))
              .arg(abbreviatedPath(copy.path()), copy.fileName());
}

QString detail(const StoreProblem &problem)
{
    return problem.file + u" kept as "_s + (problem.kept ? problem.kept->fileName() : u"nothing"_s);
}

} // namespace corvane
