#include "OutcomeReport.h"

#include "OneLine.h"

#include <QtCore/QJsonDocument>

namespace corvane {

using namespace Qt::StringLiterals;

QString OutcomeReport::line(Titles titles) const
{
    const QString name = rawValue(pressed);
    const auto *moved = std::get_if<MoveOutcome::Moved>(&outcome.value);
    if (!moved) {
        const QString text = name + u": "_s + oneLine(refusalText(outcome, frontmostName), 200);
        return distrustReason.isEmpty() ? text : text + u". "_s + distrustReason;
    }
    const MoveRecord &record = moved->record;
    const QString recorded = rawValue(record.placement);
    return u"%1: %2%3 moved from %4 to %5 on %6%7"_s.arg(name, oneLine(record.appName),
        titleBehind(record.windowTitle, titles), rectText(record.from), rectText(record.to),
        oneLine(record.displayName), recorded == name ? QString() : u" (%1)"_s.arg(recorded));
}

QString OutcomeReport::sentence() const
{
    const QString name = frontmostName ? oneLine(*frontmostName) : QString();
    return distrustReason.isEmpty()
        ? refusalSentence(outcome, name.isEmpty() ? std::nullopt : std::optional(name))
        : distrustReason;
}

QJsonObject OutcomeReport::json() const
{
    QJsonObject object{{u"outcome"_s, outcomeName(outcome)}};
    const auto *moved = std::get_if<MoveOutcome::Moved>(&outcome.value);
    if (!moved) {
        object[u"reason"_s] = refusalText(outcome, frontmostName);
        if (!distrustReason.isEmpty())
            object[u"explanation"_s] = distrustReason;
        return object;
    }
    const MoveRecord &record = moved->record;
    object[u"date"_s] = record.date.toUTC().toString(Qt::ISODate);
    object[u"placement"_s] = rawValue(record.placement);
    object[u"appName"_s] = record.appName;
    object[u"windowTitle"_s] = record.windowTitle;
    object[u"from"_s] = jsonRect(record.from);
    object[u"to"_s] = jsonRect(record.to);
    object[u"displayName"_s] = record.displayName;
    return object;
}

CommandResult OutcomeReport::result(ReportForm form) const
{
    const bool moved = std::holds_alternative<MoveOutcome::Moved>(outcome.value);
    return {moved ? CommandResult::done : CommandResult::refused,
        form == ReportForm::json ? inOneLine(QJsonDocument(json())) : line() + u'\n', {}};
}

} // namespace corvane
