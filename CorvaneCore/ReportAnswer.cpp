#include "ReportAnswer.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestNumber = 64;

/// The report's number, which people read to each other.
std::optional<QString> number(const QJsonObject &json)
{
    const QString id = json[u"id"].toString();
    const auto isGood = [](QChar each) { return each.isPrint() && !each.isSpace(); };
    const bool isNumber =
        !id.isEmpty() && id.size() <= longestNumber && std::ranges::all_of(id, isGood);
    return isNumber ? std::optional(id) : std::nullopt;
}

} // namespace

QByteArray ReportAnswer::toLine() const
{
    QJsonObject json;
    if (value)
        json = {{u"id"_s, *value}};
    else
        json = {{u"error"_s, sendProblems[value.error().problem].name},
            {u"detail"_s, value.error().detail}};
    return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<ReportAnswer> ReportAnswer::fromLine(const QByteArray &line)
{
    const QJsonObject json = QJsonDocument::fromJson(line).object();
    if (const auto id = number(json))
        return ReportAnswer{*id};
    if (const auto problem = sendProblems.named(json[u"error"].toString()))
        return ReportAnswer{
            unexpected<SendFailure>(SendFailure{*problem, json[u"detail"].toString()})};
    return std::nullopt;
}

ReportAnswer ReportAnswer::ofServer(const QByteArray &body)
{
    const auto id = number(QJsonDocument::fromJson(body).object());
    if (!id)
        return {unexpected<SendFailure>(SendFailure{SendProblem::answerNotUnderstood})};
    return {*id};
}

} // namespace corvane
