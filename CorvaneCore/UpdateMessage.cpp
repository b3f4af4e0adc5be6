#include "UpdateMessage.h"

#include "Match.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Message = UpdateMessage;

constexpr auto kindKey = "kind"_L1;

/// The number of a build, or of bytes; nothing where there is none.
std::optional<qint64> number(const QJsonObject &json, QLatin1StringView key)
{
    const qint64 value = json[key].toInteger(-1);
    return value < 0 ? std::nullopt : std::optional(value);
}

QJsonObject toJson(const Message::Failed &failed)
{
    const auto [domain, name] = match(
        failed.problem,
        [](SendProblem problem) { return std::pair("network"_L1, sendProblems[problem].name); },
        [](UpdateProblem problem) { return std::pair("feed"_L1, updateProblems[problem].name); },
        [](InstallProblem problem) {
            return std::pair("install"_L1, installProblems[problem].name);
        });
    return {{kindKey, u"failed"_s}, {u"domain"_s, domain}, {u"problem"_s, name},
        {u"detail"_s, failed.detail}};
}

std::optional<Message> failedFrom(const QJsonObject &json)
{
    const QString domain = json[u"domain"].toString();
    const QString name = json[u"problem"].toString();
    const auto failed = [&](auto problem) {
        return problem
            ? std::optional(Message{Message::Failed{*problem, json[u"detail"].toString()}})
            : std::nullopt;
    };
    if (domain == "network"_L1)
        return failed(sendProblems.named(name));
    if (domain == "feed"_L1)
        return failed(updateProblems.named(name));
    return domain == "install"_L1 ? failed(installProblems.named(name)) : std::nullopt;
}

std::optional<Message> foundFrom(const QJsonObject &json)
{
    const auto build = number(json, "build"_L1);
    const QDateTime released = QDateTime::fromString(json[u"released"].toString(), Qt::ISODate);
    const QString version = json[u"version"].toString();
    if (!build || !released.isValid() || version.isEmpty())
        return std::nullopt;
    return Message{Message::Found{version, *build, released}};
}

std::optional<Message> installedFrom(const QJsonObject &json)
{
    const auto build = number(json, "build"_L1);
    if (!build)
        return std::nullopt;
    return Message{
        Message::Installed{*build, json[u"version"].toString(), number(json, "previous"_L1)}};
}

/// Of those that are a number and no more.
template <typename Kind>
std::optional<Message> countFrom(const QJsonObject &json)
{
    const auto bytes = number(json, "bytes"_L1);
    return bytes ? std::optional(Message{Kind{*bytes}}) : std::nullopt;
}

} // namespace

QByteArray UpdateMessage::toLine() const
{
    const auto content = match(
        value,
        [](const Found &found) {
            return QJsonObject{{kindKey, u"found"_s}, {u"version"_s, found.version},
                {u"build"_s, found.build},
                {u"released"_s, found.released.toUTC().toString(Qt::ISODate)}};
        },
        [](NotFound) {
            return QJsonObject{{kindKey, u"notFound"_s}};
        },
        [](const Notes &notes) {
            return QJsonObject{{kindKey, u"notes"_s}, {u"page"_s, QString::fromUtf8(notes.page)}};
        },
        [](NotesFailed failed) {
            return QJsonObject{
                {kindKey, u"notesFailed"_s}, {u"problem"_s, sendProblems[failed.problem].name}};
        },
        [](Downloading begun) {
            return QJsonObject{{kindKey, u"downloading"_s}, {u"bytes"_s, begun.size}};
        },
        [](Received received) {
            return QJsonObject{{kindKey, u"received"_s}, {u"bytes"_s, received.more}};
        },
        [](Extracting) {
            return QJsonObject{{kindKey, u"extracting"_s}};
        },
        [](Extracted extracted) {
            return QJsonObject{{kindKey, u"extracted"_s}, {u"share"_s, extracted.share}};
        },
        [](Ready) {
            return QJsonObject{{kindKey, u"ready"_s}};
        },
        [](const Installed &installed) {
            QJsonObject json{{kindKey, u"installed"_s}, {u"build"_s, installed.build},
                {u"version"_s, installed.version}};
            if (installed.previous)
                json[u"previous"] = *installed.previous;
            return json;
        },
        [](const Failed &failed) { return toJson(failed); });
    return QJsonDocument(content).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<UpdateMessage> UpdateMessage::fromLine(const QByteArray &line)
{
    const QJsonObject json = QJsonDocument::fromJson(line).object();
    const QString kind = json[kindKey].toString();
    if (kind == "found"_L1)
        return foundFrom(json);
    if (kind == "notFound"_L1)
        return UpdateMessage{NotFound{}};
    if (kind == "notes"_L1)
        return UpdateMessage{Notes{json[u"page"].toString().toUtf8()}};
    if (kind == "notesFailed"_L1)
        return UpdateMessage{NotesFailed{sendProblems.named(json[u"problem"].toString())
                                             .value_or(SendProblem::answerNotUnderstood)}};
    if (kind == "downloading"_L1)
        return countFrom<Downloading>(json);
    if (kind == "received"_L1)
        return countFrom<Received>(json);
    if (kind == "extracting"_L1)
        return UpdateMessage{Extracting{}};
    if (kind == "extracted"_L1)
        return UpdateMessage{Extracted{qBound(0.0, json[u"share"].toDouble(), 1.0)}};
    if (kind == "ready"_L1)
        return UpdateMessage{Ready{}};
    if (kind == "installed"_L1)
        return installedFrom(json);
    return kind == "failed"_L1 ? failedFrom(json) : std::nullopt;
}

} // namespace corvane
