#include "InstallProblem.h"

#include "FileError.h"

#include <cerrno>

namespace corvane {

unexpected<InstallFailure> installError(int number)
{
    const bool isFull = number == ENOSPC || number == EDQUOT;
    return installFailure(
        isFull ? InstallProblem::noSpace : InstallProblem::cannotWrite, fileErrorSentence(number));
}

unexpected<InstallFailure> lastInstallError()
{
    return installError(errno);
}

} // namespace corvane
