#include "HistoryReport.h"

#include "Decoding.h"
#include "OneLine.h"
#include "TerminalText.h"

#include <QtCore/QJsonDocument>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString frameText(const QList<double> &frame)
{
    return frame.size() == 4 ? rectText({frame[0], frame[1], frame[2], frame[3]}) : QString();
}

QStringList row(const ActivityEntry &entry)
{
    return {entry.date.toLocalTime().toString(u"yyyy-MM-dd HH:mm:ss"), oneLine(entry.title, 24),
        oneLine(entry.app, 24), oneLine(entry.window, 40), oneLine(entry.display, 24),
        entry.isRefusal() ? u"refused"_s : frameText(entry.from) + u" → "_s + frameText(entry.to)};
}

} // namespace

QString historyTable(const QList<ActivityEntry> &entries)
{
    if (entries.isEmpty())
        return u"No moves have been written down yet.\n"_s;
    QList<QStringList> rows{
        {u"When"_s, u"What"_s, u"Application"_s, u"Window"_s, u"Display"_s, u"From → to"_s}};
    std::ranges::transform(entries, std::back_inserter(rows), row);
    return textTable(rows);
}

QString historyJson(const QList<ActivityEntry> &entries)
{
    return inOneLine(QJsonDocument(encode(entries)));
}

} // namespace corvane
