#include "DeskReader.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double farthest = 1'000'000; ///< from the origin, in points
constexpr double longest = 86'400'000; ///< a day of milliseconds

bool isPositive(double length)
{
    return length > 0;
}

} // namespace

DeskReader::DeskReader(QJsonValue value, QString path, QString &problem)
    : m_value(std::move(value)), m_path(std::move(path)), m_problem(&problem)
{
    if (m_path.isEmpty() && !m_value.isObject())
        reject(u"an object"_s);
}

DeskReader DeskReader::at(const QString &key) const
{
    if (isPresent() && !m_value.isObject())
        reject(u"an object"_s);
    return {
        m_value.toObject().value(key), m_path.isEmpty() ? key : m_path + u'.' + key, *m_problem};
}

QList<DeskReader> DeskReader::list() const
{
    if (isPresent() && !m_value.isArray())
        reject(u"a list"_s);
    const QJsonArray array = m_value.toArray();
    QList<DeskReader> items;
    for (qsizetype index = 0; index < array.size(); ++index)
        items << DeskReader(array.at(index), u"%1[%2]"_s.arg(m_path).arg(index), *m_problem);
    return items;
}

bool DeskReader::boolean(bool fallback) const
{
    if (isPresent() && !m_value.isBool())
        reject(u"true or false"_s);
    return m_value.toBool(fallback);
}

QString DeskReader::text(const QString &fallback) const
{
    if (isPresent() && !m_value.isString())
        reject(u"a text"_s);
    return m_value.toString(fallback);
}

double DeskReader::number(double least, double most, double fallback) const
{
    if (!isPresent())
        return fallback;
    const double value = m_value.toDouble(std::nan(""));
    if (value >= least && value <= most)
        return value;
    reject(u"a number from %1 to %2"_s.arg(least, 0, 'f', 0).arg(most, 0, 'f', 0));
    return fallback;
}

int DeskReader::integer(int least, int most, int fallback) const
{
    const double value = number(least, most, fallback);
    if (value != std::trunc(value))
        reject(u"a whole number"_s);
    return static_cast<int>(value);
}

Clock::Duration DeskReader::milliseconds(Clock::Duration fallback) const
{
    return Clock::Duration(std::llround(number(0, longest, double(fallback.count()))));
}

std::optional<Size> DeskReader::size() const
{
    const QString expectation = u"a list of two numbers above 0: width and height"_s;
    const QList<double> parts = numbers(2, expectation);
    if (parts.isEmpty())
        return std::nullopt;
    if (!isPositive(parts[0]) || !isPositive(parts[1]))
        reject(expectation);
    return Size{parts[0], parts[1]};
}

Rect DeskReader::rect(Rect fallback) const
{
    const QString expectation = u"a list of four numbers: x, y, and width and height above 0"_s;
    const QList<double> parts = numbers(4, expectation);
    if (parts.isEmpty())
        return fallback;
    if (!isPositive(parts[2]) || !isPositive(parts[3]))
        reject(expectation);
    return {parts[0], parts[1], parts[2], parts[3]};
}

int DeskReader::oneOf(const QStringList &words, int fallback) const
{
    if (!isPresent())
        return fallback;
    const auto index = words.indexOf(m_value.toString());
    if (index >= 0)
        return int(index);
    reject(u"one of \"%1\""_s.arg(words.join(u"\", \""_s)));
    return fallback;
}

void DeskReader::reject(const QString &expectation) const
{
    if (!m_problem->isEmpty())
        return;
    const QString place = m_path.isEmpty() ? u"the whole of it"_s : u'"' + m_path + u'"';
    *m_problem = place + u" must be "_s + expectation;
}

QList<double> DeskReader::numbers(int count, const QString &expectation) const
{
    if (!isPresent())
        return {};
    const QJsonArray array = m_value.toArray();
    QList<double> numbers;
    for (const QJsonValue &value : array) {
        const double number = value.toDouble(std::nan(""));
        if (std::abs(number) <= farthest)
            numbers << number;
    }
    if (numbers.size() == count && array.size() == count)
        return numbers;
    reject(expectation);
    return {};
}

} // namespace corvane
