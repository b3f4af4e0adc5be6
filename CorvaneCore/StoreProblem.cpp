#include "StoreProblem.h"

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

} // namespace corvane
