#include "Installation.h"

#include "Manifest.h"
#include "SelfTest.h"

#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

InstallResult<void> tryStaged(
    const InstallFolder &folder, const FileDescriptor &staging, qint64 build)
{
    if (auto whole = checkTree(staging.number()); !whole)
        return whole;
    return runSelfTest(folder.stagingPath() + u"/bin/corvane"_s, build);
}

InstallResult<std::optional<qint64>> adoptStaged(InstallFolder &folder, qint64 build)
{
    const auto current = folder.current();
    if (!current)
        return unexpected<InstallFailure>(current.error());
    const std::optional<qint64> previous = *current;
    const auto adopted = previous == build ? folder.repairCurrent() : folder.adopt(build);
    if (!adopted)
        return unexpected<InstallFailure>(adopted.error());
    if (const auto changed = folder.makeCurrent(build); !changed)
        return unexpected<InstallFailure>(changed.error());
    // What cannot be removed now is removed by the next installation.
    if (previous != build)
        std::ignore = folder.keepOnly(previous ? QList{*previous} : QList<qint64>());
    return previous;
}

} // namespace corvane
