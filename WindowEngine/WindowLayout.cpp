#include "WindowLayout.h"

#include "Decoding.h"
#include "Geometry.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// As few digits as bring the frame back to the point, thousandths at least: a third stays 0.333
/// where that is the same frame.
UnitRect rounded(const UnitRect &exact, const Rect &visibleFrame, double gap)
{
    constexpr double thousandths = 1e3;
    constexpr double finest = 1e9;
    const auto to = [](double value, double parts) { return std::round(value * parts) / parts; };
    const Rect frame = Geometry::frame(exact, visibleFrame, gap);
    for (double parts = thousandths; parts < finest; parts *= 10) {
        const UnitRect rect{
            to(exact.x, parts), to(exact.y, parts), to(exact.w, parts), to(exact.h, parts)};
        if (Geometry::frame(rect, visibleFrame, gap) == frame)
            return rect;
    }
    return exact;
}

bool isFinite(const Rect &rect)
{
    return std::isfinite(rect.minX()) && std::isfinite(rect.minY()) && std::isfinite(rect.maxX())
        && std::isfinite(rect.maxY());
}

QSet<DisplayKey> asSet(const QList<DisplayKey> &keys)
{
    return {keys.begin(), keys.end()};
}

} // namespace

UnitRect WindowLayout::unitRect(const Rect &frame, const Rect &visibleFrame, double gap)
{
    const Rect area = Geometry::inset(visibleFrame, gap * 0.5);
    const Rect cell = Geometry::inset(frame, gap * -0.5);
    const double left = std::max(cell.minX(), area.minX());
    const double top = std::max(cell.minY(), area.minY());
    const double width = std::min(cell.maxX(), area.maxX()) - left;
    const double height = std::min(cell.maxY(), area.maxY()) - top;
    if (!isFinite(cell) || !isFinite(area) || width <= 0 || height <= 0)
        return {0, 0, 1, 1};
    const UnitRect exact{(left - area.minX()) / area.width, (top - area.minY()) / area.height,
        width / area.width, height / area.height};
    return rounded(exact, visibleFrame, gap);
}

QList<Pane> WindowLayout::panesOn(int display) const
{
    QList<Pane> found;
    std::ranges::copy_if(panes, std::back_inserter(found),
        [display](const Pane &pane) { return pane.display == display; });
    return found;
}

bool WindowLayout::matches(const QList<DisplayKey> &connected) const
{
    return connected.size() == displays.size() && asSet(connected) == asSet(displays);
}

QString WindowLayout::displaySummary() const
{
    if (displays.isEmpty())
        return QCoreApplication::translate("WindowLayout", "No displays");
    QStringList labels;
    for (const DisplayKey &display : displays)
        labels << display.label();
    return labels.join(u", "_s);
}

QJsonObject WindowLayout::toJson() const
{
    QJsonObject json{
        {u"id"_s, encode(id)},
        {u"name"_s, name},
        {u"displays"_s, encode(displays)},
        {u"panes"_s, encode(panes)},
        {u"applyOnConnect"_s, applyOnConnect},
        {u"created"_s, encode(created)},
    };
    if (shortcut)
        json.insert(u"shortcut"_s, shortcut->toJson());
    return json;
}

std::optional<WindowLayout> WindowLayout::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    if (!json.isObject())
        return std::nullopt;
    LenientReader fields(json.toObject(), problems);
    return WindowLayout{
        .id = fields.read<QUuid>("id"_L1, QUuid::createUuid()),
        .name = fields.read<QString>("name"_L1, u"Layout"_s),
        .displays = fields.read<LossyArray<DisplayKey>>("displays"_L1, {}).elements,
        .panes = fields.read<LossyArray<Pane>>("panes"_L1, {}).elements,
        .applyOnConnect = fields.read<bool>("applyOnConnect"_L1, false),
        .shortcut = fields.readOptional<KeyCombo>("shortcut"_L1),
        .created = fields.read<QDateTime>("created"_L1, QDateTime::currentDateTimeUtc()),
    };
}

QString uniqueName(const QString &base, const QList<WindowLayout> &layouts)
{
    QSet<QString> taken;
    for (const WindowLayout &layout : layouts)
        taken.insert(layout.name);
    QString name = base;
    for (int number = 2; taken.contains(name); ++number)
        name = base + u' ' + QString::number(number);
    return name;
}

} // namespace corvane
