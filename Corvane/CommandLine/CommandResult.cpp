#include "CommandResult.h"

#include "OneLine.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

CommandResult &CommandResult::operator+=(const CommandResult &next)
{
    status = std::max(status, next.status);
    output += next.output;
    error += next.error;
    return *this;
}

CommandResult failure(int status, const QString &sentence)
{
    constexpr qsizetype longest = 2000;
    return {status, {}, u"corvane: "_s + oneLine(sentence, longest) + u'\n'};
}

CommandResult later(const QString &window)
{
    return failure(CommandResult::done, u"The %1 comes in a later version."_s.arg(window));
}

} // namespace corvane
