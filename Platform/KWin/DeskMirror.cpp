#include "AgentDesk.h"

#include <array>

namespace corvane::kwin {

using namespace Qt::StringLiterals;
using wayland::Toplevel;
using wayland::ToplevelKind;

namespace {

template <size_t count>
std::optional<std::array<double, count>> numbersIn(const QJsonValue &value)
{
    const QJsonArray array = value.toArray();
    if (array.size() != count)
        return std::nullopt;
    std::array<double, count> numbers{};
    for (size_t i = 0; i < count; ++i)
        numbers[i] = array.at(qsizetype(i)).toDouble();
    return numbers;
}

std::optional<Rect> rectIn(const QJsonValue &value)
{
    const auto numbers = numbersIn<4>(value);
    if (!numbers)
        return std::nullopt;
    const auto &[x, y, width, height] = *numbers;
    return Rect{x, y, width, height};
}

Size sizeIn(const QJsonValue &value)
{
    const auto [width, height] = numbersIn<2>(value).value_or(std::array{0.0, 0.0});
    return {width, height};
}

ToplevelKind kindIn(const QString &name)
{
    if (name == "panel"_L1)
        return ToplevelKind::panel;
    if (name == "desktop"_L1)
        return ToplevelKind::desktop;
    return name == "standard"_L1 ? ToplevelKind::standard : ToplevelKind::dialog;
}

std::optional<Toplevel> windowIn(const QJsonObject &window, WindowNumbers &numbers)
{
    const auto frame = rectIn(window["frame"_L1]);
    const QString identifier = window["id"_L1].toString();
    if (!frame || identifier.isEmpty())
        return std::nullopt;
    return Toplevel{.element = numbers.element(identifier),
        .traces = {.pid = window["pid"_L1].toInt(),
            .publishedId = window["desktopFile"_L1].toString(),
            .className = window["className"_L1].toString(),
            .instanceName = window["instance"_L1].toString()},
        .title = window["title"_L1].toString(),
        .frame = *frame,
        .kind = kindIn(window["kind"_L1].toString()),
        .maximizedHorizontally = window["horizontally"_L1].toBool(),
        .maximizedVertically = window["vertically"_L1].toBool(),
        .fullScreen = window["fullScreen"_L1].toBool(),
        .tiled = window["tiled"_L1].toBool(),
        .minimized = window["minimized"_L1].toBool(),
        .here = window["here"_L1].toBool(),
        .listed = window["listed"_L1].toBool(),
        .movable = window["movable"_L1].toBool(),
        .resizable = window["resizable"_L1].toBool(),
        .minimum = sizeIn(window["minimum"_L1]),
        .maximum = sizeIn(window["maximum"_L1]),
        .increment = sizeIn(window["increment"_L1])};
}

} // namespace

std::optional<wayland::Desk> deskIn(const QJsonObject &answer, WindowNumbers &numbers)
{
    wayland::Desk desk;
    const QJsonArray windows = answer["windows"_L1].toArray();
    for (const QJsonValue &window : windows) {
        const auto toplevel = windowIn(window.toObject(), numbers);
        if (!toplevel)
            return std::nullopt;
        desk.windows << *toplevel;
    }
    const QJsonArray areas = answer["areas"_L1].toArray();
    for (const QJsonValue &area : areas) {
        const auto output = rectIn(area["output"_L1]);
        const auto visible = rectIn(area["visible"_L1]);
        if (!output || !visible)
            return std::nullopt;
        desk.workAreas << wayland::WorkArea{.output = *output, .visible = *visible};
    }
    if (!answer["areas"_L1].isArray())
        return std::nullopt;
    if (const QString focused = answer["focused"_L1].toString(); !focused.isEmpty())
        desk.focused = numbers.element(focused);
    return desk;
}

QJsonArray written(const Rect &rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace corvane::kwin
