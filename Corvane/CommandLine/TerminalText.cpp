#include "TerminalText.h"

#include "OneLine.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

QString textTable(const QList<QStringList> &rows)
{
    QList<qsizetype> widths;
    for (const QStringList &row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (qsizetype column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], row[column].size());
    }
    constexpr qsizetype space = 2;
    QString table;
    for (const QStringList &row : rows) {
        QString line;
        for (qsizetype column = 0; column < row.size(); ++column)
            line += row[column].leftJustified(widths[column] + space);
        while (line.endsWith(u' '))
            line.chop(1);
        table += line + u'\n';
    }
    return table;
}

QString inOneLine(const QJsonDocument &document)
{
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact)) + u'\n';
}

QString titleBehind(const QString &title, Titles titles)
{
    return titles == Titles::shown ? u" \"%1\""_s.arg(oneLine(title)) : QString();
}

QString rectText(const Rect &rect)
{
    return u"%1,%2 %3×%4"_s.arg(rect.x).arg(rect.y).arg(rect.width).arg(rect.height);
}

QJsonArray jsonRect(const Rect &rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace corvane
