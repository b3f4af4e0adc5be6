#include "LayoutReport.h"

#include "OneLine.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString counted(qsizetype count, const QString &noun)
{
    return u"%1 %2%3"_s.arg(count).arg(noun, count == 1 ? QString() : u"s"_s);
}

QString paneLine(const PaneResult &result, Titles titles = Titles::shown)
{
    if (const auto *placed = std::get_if<PaneStatus::Placed>(&result.status.value))
        return u"%1%2 %3 at %4"_s.arg(oneLine(result.appName()),
            titleBehind(placed->windowTitle, titles),
            placed->wasOpened ? u"opened and placed"_s : u"placed"_s, rectText(placed->frame));
    if (!result.pane.app)
        return u"empty pane"_s;
    return u"%1: %2"_s.arg(oneLine(result.appName()), oneLine(statusText(result.status), 200));
}

QJsonObject paneJson(const PaneResult &result)
{
    QJsonObject json{{u"pane"_s, result.pane.toJson()}, {u"status"_s, statusName(result.status)}};
    if (const auto *placed = std::get_if<PaneStatus::Placed>(&result.status.value)) {
        json[u"windowTitle"_s] = placed->windowTitle;
        json[u"frame"_s] = jsonRect(placed->frame);
        json[u"previous"_s] = jsonRect(placed->previous);
        json[u"opened"_s] = placed->wasOpened;
    } else if (const QString text = statusText(result.status); !text.isEmpty()) {
        json[u"reason"_s] = text;
    }
    return json;
}

} // namespace

QString layoutList(
    const QList<WindowLayout> &layouts, const QList<DisplayKey> &connected, ReportForm form)
{
    if (form == ReportForm::json) {
        QJsonArray array;
        for (const WindowLayout &layout : layouts) {
            QJsonObject object = layout.toJson();
            object[u"matches"_s] = layout.matches(connected);
            array.append(object);
        }
        return inOneLine(QJsonDocument(array));
    }
    if (layouts.isEmpty())
        return u"No layouts have been saved yet. corvane --capture NAME saves the windows as they "
               "stand.\n"_s;
    QList<QStringList> rows{{u" "_s, u"Name"_s, u"Panes"_s, u"Displays"_s, u"Id"_s}};
    for (const WindowLayout &layout : layouts)
        rows << QStringList{layout.matches(connected) ? u"*"_s : QString(), oneLine(layout.name),
            QString::number(layout.panes.size()), oneLine(layout.displaySummary(), 80),
            layout.id.toString(QUuid::WithoutBraces)};
    return textTable(rows) + u"* its displays are the ones connected now\n"_s;
}

QString noSuchLayout(const QString &nameOrID, const QList<WindowLayout> &layouts)
{
    QStringList names;
    for (const WindowLayout &layout : layouts)
        names << oneLine(layout.name);
    const QString known = names.isEmpty() ? u"none has been saved yet"_s
                                          : u"the layouts are: "_s + names.join(u", "_s);
    return u"There is no layout \"%1\"; %2."_s.arg(oneLine(nameOrID), known);
}

QString captureText(const WindowLayout &layout, ReportForm form)
{
    if (form == ReportForm::json)
        return inOneLine(QJsonDocument(layout.toJson()));
    return u"Captured %1 on %2 as \"%3\".\n"_s.arg(counted(layout.panes.size(), u"window"_s),
        counted(layout.displays.size(), u"display"_s), oneLine(layout.name));
}

QString captureSentence(const WindowLayout &layout)
{
    const auto count = [](const char *noun, qsizetype number) {
        return QCoreApplication::translate("LayoutReport", noun, nullptr, static_cast<int>(number));
    };
    return QCoreApplication::translate("LayoutReport", "Captured %1 on %2 as “%3”.")
        .arg(count(QT_TRANSLATE_N_NOOP("LayoutReport", "%n window(s)"), layout.panes.size()),
            count(QT_TRANSLATE_N_NOOP("LayoutReport", "%n display(s)"), layout.displays.size()),
            oneLine(layout.name));
}

QString applyLines(const QList<PaneResult> &results, Titles titles)
{
    if (results.isEmpty())
        return u"The layout has no panes.\n"_s;
    QString lines;
    for (const PaneResult &result : results)
        lines += paneLine(result, titles) + u'\n';
    return lines;
}

QString failureLines(const QList<PaneResult> &results)
{
    QStringList lines;
    for (const PaneResult &result : results) {
        if (!needsNothing(result.status))
            lines << paneLine(result);
    }
    return lines.join(u'\n');
}

CommandResult applyResult(
    const WindowLayout &layout, const QList<PaneResult> &results, ReportForm form)
{
    const bool isWhole = std::ranges::all_of(results, needsNothing, &PaneResult::status);
    const int status = isWhole ? CommandResult::done : CommandResult::refused;
    if (form == ReportForm::json) {
        QJsonArray panes;
        for (const PaneResult &result : results)
            panes.append(paneJson(result));
        const QJsonObject object{{u"layout"_s, layout.name},
            {u"id"_s, layout.id.toString(QUuid::WithoutBraces)}, {u"panes"_s, panes}};
        return {status, inOneLine(QJsonDocument(object)), {}};
    }
    return {status, applyLines(results), {}};
}

} // namespace corvane
