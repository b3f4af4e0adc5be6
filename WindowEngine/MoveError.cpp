#include "MoveError.h"

#include "Match.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString refusal(QStringView attribute, AXError code, const QString &detail)
{
    const QString text =
        u"could not set %1 (AXError %2)"_s.arg(attribute).arg(static_cast<int>(code));
    return detail.isEmpty() ? text : text + u": "_s + detail;
}

} // namespace

QString MoveError::description() const
{
    return match(
        value, [](const Position &error) { return refusal(u"position", error.code, error.detail); },
        [](const Size &error) { return refusal(u"size", error.code, error.detail); },
        [](const FullScreen &) { return u"window is in native full screen"_s; });
}

AXError MoveError::code() const
{
    return match(
        value, [](const Position &error) { return error.code; },
        [](const Size &error) { return error.code; }, [](FullScreen) { return AXError::failure; });
}

} // namespace corvane
