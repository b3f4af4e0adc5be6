#include "Percent.h"

#include <QtCore/QLocale>

#include <cmath>

namespace corvane {

QString percentNumber(double fraction)
{
    return QLocale().toString(std::round(fraction * 1000) / 10, 'g', 4);
}

std::optional<double> fractionFromPercent(const QString &text)
{
    bool isNumber = false;
    const double percent = QLocale().toDouble(QString(text).remove(u'%').trimmed(), &isNumber);
    return isNumber ? std::optional(percent / 100) : std::nullopt;
}

} // namespace corvane
