#include "ResultTable.h"

#include <array>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

/// A column that is justified to the right has a negative width.
constexpr std::array widths{33, 26, 12, 18, 18, -6};
constexpr std::array layoutWidths{36, 12, 18, 18};

template <std::size_t Count>
QString lineOf(const std::array<QString, Count> &cells, const std::array<int, Count> &columns,
    const QString &last)
{
    QString line;
    for (std::size_t i = 0; i < Count; ++i) {
        line += columns[i] < 0 ? cells[i].rightJustified(-columns[i])
                               : cells[i].leftJustified(columns[i]);
        line += u"  "_s;
    }
    return line + last + u'\n';
}

QString underlined(const QString &head)
{
    return head + QString(head.trimmed().size() + 4, u'-') + u'\n';
}

QString text(const std::optional<Rect> &rect)
{
    return rect ? u"%1,%2 %3×%4"_s.arg(rect->x).arg(rect->y).arg(rect->width).arg(rect->height)
                : u"none"_s;
}

QString text(const Step &step)
{
    QString words = rawValue(step.pressed);
    if (step.becomes != step.pressed)
        words += u": "_s + rawValue(step.becomes);
    if (step.start == Step::Start::maximized)
        words += u", was maximised"_s;
    return words;
}

} // namespace

QString tableHead()
{
    return underlined(lineOf({u"keys"_s, u"placement"_s, u"application"_s, u"frame asked"_s,
                                 u"frame reached"_s, u"ms"_s},
        widths, {}));
}

QString tableLine(const StepResult &result)
{
    const QString duration =
        result.milliseconds ? QString::number(*result.milliseconds, 'f', 1) : u"-"_s;
    const QString line = lineOf({result.keys, text(result.step), title(result.step.application),
                                    text(result.asked), text(result.reached), duration},
        widths, result.landed ? u"ok"_s : u"✗"_s);
    return result.landed ? line : line + u"    "_s + result.report + u'\n';
}

QString layoutTableHead()
{
    return underlined(lineOf(
        {u"pane"_s, u"application"_s, u"frame asked"_s, u"frame reached"_s}, layoutWidths, {}));
}

QString layoutTableLine(const RestoredPane &restored)
{
    const UnitRect &rect = restored.pane.rect;
    const QString pane = u"display %1: %2,%3 %4×%5"_s.arg(restored.pane.display + 1)
                             .arg(rect.x)
                             .arg(rect.y)
                             .arg(rect.w)
                             .arg(rect.h);
    const QString name = restored.application ? title(*restored.application) : u"?"_s;
    return lineOf({pane, name, text(restored.asked), text(restored.reached)}, layoutWidths,
        restored.isBack ? u"ok"_s : u"✗ "_s + restored.status);
}

} // namespace corvane::demo
