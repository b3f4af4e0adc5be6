#include "DeskMirror.h"

#include "Json.h"

#include <array>

namespace corvane::wayland {

using namespace wayland;

namespace {

template <size_t count>
std::optional<std::array<double, count>> numbersIn(std::span<const Json> values)
{
    if (values.size() != count)
        return std::nullopt;
    std::array<double, count> numbers{};
    for (size_t i = 0; i < count; ++i)
        numbers[i] = numberOf(values[i]);
    return numbers;
}

std::optional<Rect> rectIn(std::span<const Json> values)
{
    const auto numbers = numbersIn<4>(values);
    if (!numbers)
        return std::nullopt;
    const auto &[x, y, width, height] = *numbers;
    return Rect{x, y, width, height};
}

Size sizeIn(const Json &value)
{
    const auto [width, height] = numbersIn<2>(itemsOf(value)).value_or(std::array{0.0, 0.0});
    return {width, height};
}

ToplevelKind kindIn(std::string_view name)
{
    if (name == "panel")
        return ToplevelKind::panel;
    if (name == "desktop")
        return ToplevelKind::desktop;
    return name == "standard" ? ToplevelKind::standard : ToplevelKind::dialog;
}

std::optional<Toplevel> windowIn(const Json &window, WindowNumbers &numbers)
{
    const auto frame = rectIn(itemsOf(at(window, "frame")));
    const QString identifier = stringOf(at(window, "id"));
    if (!frame || identifier.isEmpty())
        return std::nullopt;
    return Toplevel{.element = numbers.element(identifier),
        .traces = {.pid = static_cast<pid_t>(integerOf(at(window, "pid"))),
            .publishedId = stringOf(at(window, "desktopFile")),
            .className = stringOf(at(window, "className")),
            .instanceName = stringOf(at(window, "instance"))},
        .title = stringOf(at(window, "title")),
        .frame = *frame,
        .kind = kindIn(textOf(at(window, "kind"))),
        .maximizedHorizontally = at(window, "horizontally").IsTrue(),
        .maximizedVertically = at(window, "vertically").IsTrue(),
        .fullScreen = at(window, "fullScreen").IsTrue(),
        .tiled = at(window, "tiled").IsTrue(),
        .minimized = at(window, "minimized").IsTrue(),
        .here = at(window, "here").IsTrue(),
        .listed = at(window, "listed").IsTrue(),
        .movable = at(window, "movable").IsTrue(),
        .resizable = at(window, "resizable").IsTrue(),
        .minimum = sizeIn(at(window, "minimum")),
        .maximum = sizeIn(at(window, "maximum")),
        .increment = sizeIn(at(window, "increment"))};
}

std::optional<QList<WorkArea>> workAreasIn(const Json &areas)
{
    QList<WorkArea> found;
    for (const Json &area : itemsOf(areas)) {
        const auto output = rectIn(itemsOf(at(area, "output")));
        const auto visible = rectIn(itemsOf(at(area, "visible")));
        if (!output || !visible)
            return std::nullopt;
        found << WorkArea{.output = *output, .visible = *visible};
    }
    return found;
}

} // namespace

std::optional<DeskMirror::Changes> DeskMirror::take(const QString &news)
{
    rapidjson::Document told;
    const QByteArray text = news.toUtf8();
    told.Parse(text.constData(), static_cast<size_t>(text.size()));
    if (told.HasParseError() || !told.IsObject())
        return std::nullopt;
    const Json &order = at(told, "order");
    const Json &focused = at(told, "focused");
    const Json &areas = at(told, "areas");
    const auto workAreas = workAreasIn(areas);
    if (!workAreas)
        return std::nullopt;

    Changes changes;
    for (const Json &each : itemsOf(at(told, "windows"))) {
        if (const auto window = windowIn(each, m_numbers)) {
            m_windows.insert(window->element, *window);
            changes.windows = changes.frames = true;
        }
    }
    for (const Json &each : itemsOf(at(told, "frames"))) {
        const auto values = itemsOf(each);
        const auto frame = values.empty() ? std::nullopt : rectIn(values.subspan(1));
        const auto window =
            frame ? m_windows.find(m_numbers.element(stringOf(values.front()))) : m_windows.end();
        if (window != m_windows.end()) {
            window->frame = *frame;
            changes.frames = true;
        }
    }
    if (order.IsArray()) {
        QSet<QString> identifiers;
        m_order.emplace();
        for (const Json &each : itemsOf(order)) {
            const QString identifier = stringOf(each);
            identifiers << identifier;
            *m_order << m_numbers.element(identifier);
        }
        m_numbers.keep(identifiers);
        m_windows.removeIf(
            [this](const auto &entry) { return m_numbers.identifier(entry.key()).isEmpty(); });
        changes.windows = true;
    }
    if (focused.IsString()) {
        m_focused = stringOf(focused);
        changes.windows = true;
    }
    if (areas.IsArray()) {
        m_workAreas = *workAreas;
        changes.workAreas = true;
    }
    return changes;
}

std::optional<Desk> DeskMirror::desk() const
{
    if (!m_order || !m_workAreas)
        return std::nullopt;
    Desk desk;
    desk.workAreas = *m_workAreas;
    for (const WindowElement &element : *m_order) {
        const auto window = m_windows.constFind(element);
        if (window == m_windows.cend())
            continue;
        desk.windows << *window;
        const bool isOfTheUser =
            window->kind != ToplevelKind::panel && window->kind != ToplevelKind::desktop;
        if (isOfTheUser && m_numbers.identifier(element) == m_focused)
            desk.focused = element;
    }
    return desk;
}

} // namespace corvane::wayland
