#include "Measurement.h"

namespace corvane::bench {

using namespace Qt::StringLiterals;

namespace {

QString limitText(const Measurement &measurement)
{
    const auto &limit = measurement.limit;
    if (!limit)
        return {};
    const QString kind = limit->kind == Limit::Kind::atMost ? u"at most"_s : u"at least"_s;
    const QString verdict = measurement.holds() ? u"ok"_s : u"MISSED"_s;
    return u"%1 %2  %3"_s.arg(kind, -8).arg(limit->value, -5).arg(verdict);
}

} // namespace

bool Measurement::holds() const
{
    if (!limit)
        return true;
    return limit->kind == Limit::Kind::atMost ? value <= limit->value : value >= limit->value;
}

QString heading(const QString &title)
{
    return u'\n' + title + u'\n';
}

QString tableLine(const Measurement &measurement)
{
    const QString line = u"  %1 %2 %3 %4"_s.arg(measurement.name, -46)
                             .arg(measurement.value, 8, 'f', 2)
                             .arg(measurement.unit, -3)
                             .arg(limitText(measurement));
    return line.trimmed().prepend(u"  "_s) + u'\n';
}

} // namespace corvane::bench
