#include "Decoding.h"

#include <cmath>
#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;

template <>
std::optional<bool> decode(const QJsonValue &json, DecodeProblems &)
{
    return json.isBool() ? std::optional(json.toBool()) : std::nullopt;
}

template <>
std::optional<int> decode(const QJsonValue &json, DecodeProblems &)
{
    constexpr qint64 notWhole = std::numeric_limits<qint64>::min();
    const qint64 number = json.toInteger(notWhole);
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(number);
}

template <>
std::optional<double> decode(const QJsonValue &json, DecodeProblems &)
{
    const double number = json.toDouble(std::numeric_limits<double>::quiet_NaN());
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

template <>
std::optional<QString> decode(const QJsonValue &json, DecodeProblems &)
{
    return json.isString() ? std::optional(json.toString()) : std::nullopt;
}

template <>
std::optional<QUuid> decode(const QJsonValue &json, DecodeProblems &)
{
    const QString text = json.toString();
    const QUuid id = QUuid::fromString(text);
    // Qt also takes braces and whatever follows them, and answers with the null id where it fails.
    const bool isStandard = text.size() == 36 && (!id.isNull() || text == encode(QUuid()));
    return isStandard ? std::optional(id) : std::nullopt;
}

template <>
std::optional<QDateTime> decode(const QJsonValue &json, DecodeProblems &)
{
    const QDateTime read = QDateTime::fromString(json.toString(), Qt::ISODate);
    if (!read.isValid() || read.timeSpec() == Qt::LocalTime)
        return std::nullopt;
    const QDateTime date = read.toUTC();
    // An offset can carry a date out of the years that have four digits.
    const int year = date.date().year();
    return year < 0 || year > 9999 ? std::nullopt : std::optional(date);
}

QString encode(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces);
}

QString encode(const QDateTime &date)
{
    const bool whole = date.time().msec() == 0;
    return date.toUTC().toString(whole ? Qt::ISODate : Qt::ISODateWithMs);
}

} // namespace corvane
