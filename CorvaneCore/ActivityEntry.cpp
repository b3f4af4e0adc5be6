#include "ActivityEntry.h"

#include "Decoding.h"

#include <QtCore/QJsonDocument>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QList<double> numbers(const Rect &frame)
{
    return {frame.x, frame.y, frame.width, frame.height};
}

QJsonArray encodeFrame(const QList<double> &frame)
{
    QJsonArray json;
    for (const double number : frame)
        json.append(number);
    return json;
}

/// Four numbers or none.
struct StoredFrame {
    QList<double> numbers;

    static std::optional<StoredFrame> fromJson(const QJsonValue &json)
    {
        DecodeProblems problems;
        const auto array = decode<LossyArray<double>>(json, problems);
        const bool isFrame = array && problems.count == 0
            && (array->elements.isEmpty() || array->elements.size() == 4);
        return isFrame ? std::optional(StoredFrame{array->elements}) : std::nullopt;
    }
};

} // namespace

ActivityEntry ActivityEntry::moved(const MoveRecord &record)
{
    return {record.date, rawValue(record.placement), corvane::title(record.placement),
        record.appName, record.windowTitle, record.displayName, numbers(record.from),
        numbers(record.to)};
}

ActivityEntry ActivityEntry::placedByLayout(const QString &layout, const QString &app,
    const QString &window, const QString &display, const Rect &from, const Rect &to,
    const QDateTime &date)
{
    return {date, layoutAction, layout, app, window, display, numbers(from), numbers(to)};
}

ActivityEntry ActivityEntry::refused(Placement placement, const QString &app, const QString &reason,
    const QString &display, const QDateTime &date)
{
    return {date, refusedAction, corvane::title(placement), app, reason, display, {}, {}};
}

QString ActivityEntry::id() const
{
    return QString::fromUtf8(QJsonDocument(toJson()).toJson(QJsonDocument::Compact));
}

QJsonObject ActivityEntry::toJson() const
{
    return {
        {u"date"_s, encode(date)},
        {u"action"_s, action},
        {u"title"_s, title},
        {u"app"_s, app},
        {u"window"_s, window},
        {u"display"_s, display},
        {u"from"_s, encodeFrame(from)},
        {u"to"_s, encodeFrame(to)},
    };
}

std::optional<ActivityEntry> ActivityEntry::fromJson(const QJsonValue &json)
{
    DecodeProblems problems;
    StrictReader reader(json, problems);
    ActivityEntry entry;
    entry.date = reader.require<QDateTime>("date"_L1);
    entry.action = reader.require<QString>("action"_L1);
    entry.title = reader.require<QString>("title"_L1);
    entry.app = reader.require<QString>("app"_L1);
    entry.window = reader.require<QString>("window"_L1);
    entry.display = reader.require<QString>("display"_L1);
    entry.from = reader.require<StoredFrame>("from"_L1).numbers;
    entry.to = reader.require<StoredFrame>("to"_L1).numbers;
    return reader.result(std::move(entry));
}

} // namespace corvane
