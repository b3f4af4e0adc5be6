#include "ResultTable.h"

#include <array>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<int, 6> widths{33, 26, 12, 18, 18, 6};

QString lineOf(const std::array<QString, 6> &cells, const QString &last)
{
    QString line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const bool isNumber = i + 1 == cells.size();
        line += isNumber ? cells[i].rightJustified(widths[i]) : cells[i].leftJustified(widths[i]);
        line += u"  "_s;
    }
    return line + last + u'\n';
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
    const QString head = lineOf({u"keys"_s, u"placement"_s, u"application"_s, u"frame asked"_s,
                                    u"frame reached"_s, u"ms"_s},
        {});
    return head + QString(head.trimmed().size() + 4, u'-') + u'\n';
}

QString tableLine(const StepResult &result)
{
    const QString duration =
        result.milliseconds ? QString::number(*result.milliseconds, 'f', 1) : u"-"_s;
    const QString line = lineOf({result.keys, text(result.step), title(result.step.application),
                                    text(result.asked), text(result.reached), duration},
        result.landed ? u"ok"_s : u"✗"_s);
    return result.landed ? line : line + u"    "_s + result.report + u'\n';
}

} // namespace corvane::demo
