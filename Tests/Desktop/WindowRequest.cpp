#include "WindowRequest.h"

#include <QtCore/QJsonArray>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

QJsonArray toArray(std::initializer_list<double> values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

QJsonArray toArray(Size size)
{
    return toArray({size.width, size.height});
}

Size toSize(const QJsonValue &value)
{
    return {value[0].toDouble(), value[1].toDouble()};
}

WindowRequest::SizeHints hintsFrom(const QJsonObject &object)
{
    return {toSize(object["minimum"_L1]), toSize(object["maximum"_L1]),
        toSize(object["increment"_L1]), toSize(object["base"_L1]),
        toSize(object["minimumAspect"_L1]), toSize(object["maximumAspect"_L1]),
        object["gravity"_L1].toInt()};
}

QJsonObject toObject(const WindowRequest::SizeHints &hints)
{
    return {{u"minimum"_s, toArray(hints.minimum)}, {u"maximum"_s, toArray(hints.maximum)},
        {u"increment"_s, toArray(hints.increment)}, {u"base"_s, toArray(hints.base)},
        {u"minimumAspect"_s, toArray(hints.minimumAspect)},
        {u"maximumAspect"_s, toArray(hints.maximumAspect)}, {u"gravity"_s, hints.gravity}};
}

} // namespace

QJsonObject WindowRequest::toJson() const
{
    QJsonArray strutArray;
    for (const quint32 value : strut)
        strutArray.append(static_cast<qint64>(value));
    return {{u"geometry"_s, toArray({geometry.x, geometry.y, geometry.width, geometry.height})},
        {u"title"_s, QString::fromLatin1(title.toHex())}, {u"titleRepeats"_s, titleRepeats},
        {u"className"_s, QString::fromLatin1(className)}, {u"kind"_s, static_cast<int>(kind)},
        {u"decorated"_s, decorated}, {u"overrideRedirect"_s, overrideRedirect},
        {u"placed"_s, placed}, {u"hints"_s, toObject(hints)},
        {u"shadow"_s,
            toArray({double(shadow.left), double(shadow.right), double(shadow.top),
                double(shadow.bottom)})},
        {u"shadowDelay"_s, shadowDelay}, {u"strut"_s, strutArray},
        {u"transientFor"_s, static_cast<qint64>(transientFor)},
        {u"transientForItself"_s, transientForItself}, {u"number"_s, static_cast<qint64>(number)}};
}

WindowRequest WindowRequest::fromJson(const QJsonObject &object)
{
    WindowRequest request;
    const QJsonValue geometry = object["geometry"_L1];
    request.geometry = {geometry[0].toDouble(), geometry[1].toDouble(), geometry[2].toDouble(),
        geometry[3].toDouble()};
    request.title = QByteArray::fromHex(object["title"_L1].toString().toLatin1());
    request.titleRepeats = object["titleRepeats"_L1].toInt();
    request.className = object["className"_L1].toString().toLatin1();
    request.kind = static_cast<Kind>(object["kind"_L1].toInt());
    request.decorated = object["decorated"_L1].toBool();
    request.overrideRedirect = object["overrideRedirect"_L1].toBool();
    request.placed = object["placed"_L1].toBool();
    request.hints = hintsFrom(object["hints"_L1].toObject());
    const QJsonValue shadow = object["shadow"_L1];
    request.shadow = {shadow[0].toInt(), shadow[1].toInt(), shadow[2].toInt(), shadow[3].toInt()};
    request.shadowDelay = object["shadowDelay"_L1].toInt();
    const QJsonArray strut = object["strut"_L1].toArray();
    for (const QJsonValue &value : strut)
        request.strut << static_cast<quint32>(value.toInteger());
    request.transientFor = static_cast<xcb_window_t>(object["transientFor"_L1].toInteger());
    request.transientForItself = object["transientForItself"_L1].toBool();
    request.number = static_cast<xcb_window_t>(object["number"_L1].toInteger());
    return request;
}

WindowRequest WindowRequest::panel(const Rect &display, Side side, int thickness, const Rect &desk)
{
    const auto number = [](double value) { return static_cast<quint32>(value); };
    const double t = thickness;
    const quint32 firstRow = number(display.y);
    const quint32 lastRow = number(display.maxY() - 1);
    const quint32 firstColumn = number(display.x);
    const quint32 lastColumn = number(display.maxX() - 1);
    WindowRequest request;
    request.kind = Kind::dock;
    request.title = "Panel";
    switch (side) {
    case Side::left:
        request.geometry = {display.x, display.y, t, display.height};
        request.strut = {number(display.x + t), 0, 0, 0, firstRow, lastRow, 0, 0, 0, 0, 0, 0};
        break;
    case Side::right:
        request.geometry = {display.maxX() - t, display.y, t, display.height};
        request.strut = {
            0, number(desk.maxX() - display.maxX() + t), 0, 0, 0, 0, firstRow, lastRow, 0, 0, 0, 0};
        break;
    case Side::top:
        request.geometry = {display.x, display.y, display.width, t};
        request.strut = {0, 0, number(display.y + t), 0, 0, 0, 0, 0, firstColumn, lastColumn, 0, 0};
        break;
    case Side::bottom:
        request.geometry = {display.x, display.maxY() - t, display.width, t};
        request.strut = {0, 0, 0, number(desk.maxY() - display.maxY() + t), 0, 0, 0, 0, 0, 0,
            firstColumn, lastColumn};
        break;
    }
    return request;
}

} // namespace corvane::desktop
