#include "HelperProcess.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace corvane::HelperProcess {

using namespace Qt::StringLiterals;

namespace {

constexpr int killPatience = 1000; ///< ms

} // namespace

QString path(const QString &name)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + u'/' + name;
    return QFileInfo::exists(beside) ? beside : folder + u"/../libexec/corvane/"_s + name;
}

void end(std::unique_ptr<QProcess> process)
{
    if (!process)
        return;
    process->disconnect();
    // It ends by the pipe, too, but a program that has gone wrong may not listen.
    process->kill();
    process->waitForFinished(killPatience);
    // Whoever is being called by it may not delete it.
    process.release()->deleteLater();
}

} // namespace corvane::HelperProcess
