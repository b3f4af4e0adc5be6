#include "SelfTest.h"

#include <QtCore/QProcess>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestDetail = 500;

} // namespace

InstallResult<void> runSelfTest(
    const QString &program, qint64 build, std::chrono::milliseconds patience)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, {u"--self-test"_s}, QProcess::ReadOnly);
    const bool hasEnded = process.waitForFinished(static_cast<int>(patience.count()));
    const bool isWell = hasEnded && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0
        && process.readAllStandardOutput().trimmed() == QByteArray::number(build);
    if (isWell)
        return {};
    process.kill();
    process.waitForFinished();
    const QByteArray said = process.readAllStandardError().trimmed();
    return installFailure(InstallProblem::doesNotRun,
        said.isEmpty() ? process.errorString()
                       : QString::fromUtf8(said.last(qMin(said.size(), longestDetail))));
}

} // namespace corvane
