#include "UpdateStatus.h"

#include "Match.h"

#include <QtCore/QCoreApplication>

namespace corvane {

namespace {

QString words(const char *text)
{
    return QCoreApplication::translate("UpdateStatus", text);
}

} // namespace

QString UpdateAvailability::statusLine(bool checking, bool failed, bool checkedBefore) const
{
    if (checking)
        return words(QT_TRANSLATE_NOOP("UpdateStatus", "Checking…"));
    return match(
        value,
        [](const Available &available) {
            return words(QT_TRANSLATE_NOOP("UpdateStatus", "v%1 is available."))
                .arg(available.version);
        },
        [](UpToDate) { return words(QT_TRANSLATE_NOOP("UpdateStatus", "You're up to date.")); },
        [&](Unknown) {
            if (failed)
                return words(
                    QT_TRANSLATE_NOOP("UpdateStatus", "The update server could not be reached."));
            return checkedBefore
                ? words(QT_TRANSLATE_NOOP("UpdateStatus", "Not checked since Corvane opened."))
                : words(QT_TRANSLATE_NOOP("UpdateStatus", "Not checked yet."));
        });
}

QString UpdateStatus::statusLine() const
{
    return availability.statusLine(checking, failed, lastChecked.has_value());
}

std::optional<QString> UpdateStatus::lastCheckLine(
    const QDateTime &now, const QTimeZone &zone, const QLocale &locale) const
{
    if (!lastChecked)
        return std::nullopt;
    const QDateTime checked = lastChecked->toTimeZone(zone);
    const qint64 days = checked.date().daysTo(now.toTimeZone(zone).date());
    const QString time =
        locale.toString(checked.time(), words(QT_TRANSLATE_NOOP("UpdateStatus", "h:mm AP")));
    if (days == 0)
        return words(QT_TRANSLATE_NOOP("UpdateStatus", "Last check: Today, %1")).arg(time);
    if (days == 1)
        return words(QT_TRANSLATE_NOOP("UpdateStatus", "Last check: Yesterday, %1")).arg(time);
    const QString day =
        locale.toString(checked.date(), words(QT_TRANSLATE_NOOP("UpdateStatus", "MMM d")));
    return words(QT_TRANSLATE_NOOP("UpdateStatus", "Last check: %1, %2")).arg(day, time);
}

} // namespace corvane
