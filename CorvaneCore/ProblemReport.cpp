#include "ProblemReport.h"

#include "Decoding.h"

#include <QtCore/QJsonDocument>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr auto dateFormat = "yyyy-MM-dd HH:mm:ss"_L1;

/// What an application calls itself may hold what a terminal takes for a command.
QString printable(QString text)
{
    for (QChar &character : text) {
        if (!character.isPrint() && !character.isSurrogate())
            character = u' ';
    }
    return text;
}

QString section(const QString &title, const QStringList &lines)
{
    return u"\n%1\n%2\n"_s.arg(title, QString(title.size(), u'-')) + lines.join(u'\n') + u'\n';
}

} // namespace

QByteArray ProblemReport::toJson() const
{
    QJsonObject named;
    for (const Fact &fact : facts)
        named.insert(fact.key, fact.value);
    const QJsonObject document{
        {u"format"_s, 1},
        {u"date"_s, encode(date)},
        {u"text"_s, text},
        {u"facts"_s, named},
        {u"events"_s, encode(events)},
        {u"isShortened"_s, isShortened},
    };
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

QString ProblemReport::toText() const
{
    QStringList factLines;
    for (const Fact &fact : facts)
        factLines << printable(u"%1: %2"_s.arg(fact.title, fact.value));
    QStringList eventLines;
    if (isShortened)
        eventLines << u"(older ones were left out)"_s;
    for (const FlightRecorder::Event &event : events)
        eventLines << line(event);
    const int offset = date.toLocalTime().offsetFromUtc();
    const QString written = date.toOffsetFromUtc(offset).toString(Qt::ISODate);
    return u"Corvane problem report of %1\n"_s.arg(written) + section(u"What happened"_s, {text})
        + section(u"What goes with it"_s, factLines)
        + section(u"Diagnostics of thirty days"_s, eventLines);
}

QString ProblemReport::line(const FlightRecorder::Event &event)
{
    const QString date = event.date.toLocalTime().toString(dateFormat);
    return printable(u"%1  %2: %3"_s.arg(date, event.kind, event.detail));
}

} // namespace corvane
