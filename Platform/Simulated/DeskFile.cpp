#include "DeskFile.h"

#include "DeskReader.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <array>
#include <ranges>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Edge = SimulatedPanel::Edge;
using FurtherStart = SimulatedInstallation::FurtherStart;
using Time = SimulatedPlatform::Time;

constexpr EnumTable<Edge::right, NamedCase<Edge>> edgeTable{{{
    {Edge::top, "top"_L1},
    {Edge::bottom, "bottom"_L1},
    {Edge::left, "left"_L1},
    {Edge::right, "right"_L1},
}}};

constexpr EnumTable<WindowKind::desktop, NamedCase<WindowKind>> kindTable{{{
    {WindowKind::standard, "standard"_L1},
    {WindowKind::dialog, "dialog"_L1},
    {WindowKind::utility, "utility"_L1},
    {WindowKind::splash, "splash"_L1},
    {WindowKind::panel, "panel"_L1},
    {WindowKind::desktop, "desktop"_L1},
}}};

constexpr EnumTable<FurtherStart::windowIfItHasNone, NamedCase<FurtherStart>> startTable{{{
    {FurtherStart::process, "process"_L1},
    {FurtherStart::window, "window"_L1},
    {FurtherStart::windowIfItHasNone, "windowIfItHasNone"_L1},
}}};

constexpr EnumTable<Time::real, NamedCase<Time>> timeTable{{{
    {Time::manual, "manual"_L1},
    {Time::real, "real"_L1},
}}};

SimulatedPanel panelFrom(const DeskReader &reader)
{
    return {reader.at(u"edge"_s).oneOf(edgeTable, Edge::top),
        reader.at(u"thickness"_s).number(0, 1000, 30)};
}

SimulatedDisplay displayFrom(const DeskReader &reader)
{
    SimulatedDisplay display{reader.at(u"frame"_s).rect({0, 0, 1920, 1080})};
    display.name = reader.at(u"name"_s).text(u"Display"_s);
    for (const DeskReader &panel : reader.at(u"panels"_s).list())
        display.panels << panelFrom(panel);
    const Rect visible = display.info().visibleFrame;
    if (visible.width <= 0 || visible.height <= 0)
        reader.at(u"panels"_s).reject(u"thin enough to leave room between them"_s);
    return display;
}

std::optional<AXError> refusalFrom(const DeskReader &reader)
{
    if (!reader.isPresent())
        return std::nullopt;
    constexpr std::array errors{
        AXError::failure, AXError::invalidUIElement, AXError::cannotComplete, AXError::apiDisabled};
    const auto error = AXError(reader.integer(-30000, 0, int(AXError::failure)));
    if (std::ranges::find(errors, error) == errors.end())
        reader.reject(u"-25200, -25202, -25204 or -25211"_s);
    return error;
}

WindowSpec windowFrom(const DeskReader &reader)
{
    WindowSpec window;
    window.title = reader.at(u"title"_s).text();
    window.frame = reader.at(u"frame"_s).rect(window.frame);
    window.kind = reader.at(u"kind"_s).oneOf(kindTable, window.kind);
    window.minimum = reader.at(u"minimum"_s).size().value_or(window.minimum);
    window.maximum = reader.at(u"maximum"_s).size();
    window.fixedSize = reader.at(u"fixedSize"_s).boolean(false);
    window.base = reader.at(u"base"_s).size().value_or(window.base);
    window.increment = reader.at(u"increment"_s).size().value_or(window.increment);
    window.resizesAfter = reader.at(u"resizesAfter"_s).milliseconds(window.resizesAfter);
    window.application = reader.at(u"application"_s).text();
    window.fullScreen = reader.at(u"fullScreen"_s).boolean(false);
    window.maximised = reader.at(u"maximised"_s).boolean(false);
    window.minimised = reader.at(u"minimised"_s).boolean(false);
    window.onOtherWorkspace = reader.at(u"onOtherWorkspace"_s).boolean(false);
    window.refusesPosition = refusalFrom(reader.at(u"refusesPosition"_s));
    window.refusesSize = refusalFrom(reader.at(u"refusesSize"_s));
    window.refusalDetail = reader.at(u"refusalDetail"_s).text();
    if (const DeskReader calls = reader.at(u"vanishesAfterCalls"_s); calls.isPresent())
        window.vanishesAfterCalls = calls.integer(0, 1'000'000, 0);
    window.takesFocus = false;
    return window;
}

SimulatedInstallation applicationFrom(const DeskReader &reader)
{
    SimulatedInstallation application;
    application.bundleIdentifier = reader.at(u"id"_s).text();
    if (application.bundleIdentifier.isEmpty())
        reader.at(u"id"_s).reject(u"a text that names the application"_s);
    application.name = reader.at(u"name"_s).text(application.bundleIdentifier);
    application.purpose = reader.at(u"purpose"_s).text();
    for (const DeskReader &keyword : reader.at(u"keywords"_s).list())
        application.keywords << keyword.text();
    application.iconName = reader.at(u"icon"_s).text();
    if (reader.at(u"hidden"_s).boolean(false))
        application.state = Installation::State::hidden;
    for (const DeskReader &window : reader.at(u"windows"_s).list())
        application.windows << windowFrom(window);
    if (reader.at(u"opens"_s).boolean(true))
        application.opensAfter = reader.at(u"opensAfter"_s).milliseconds({});
    else
        application.opensAfter.reset();
    if (const DeskReader splash = reader.at(u"splash"_s); splash.isPresent()) {
        application.splash = windowFrom(splash);
        application.splash->kind = WindowKind::splash;
    }
    if (const DeskReader exits = reader.at(u"exitsAfter"_s); exits.isPresent())
        application.exitsAfter = exits.milliseconds({});
    application.furtherStart =
        reader.at(u"furtherStart"_s).oneOf(startTable, application.furtherStart);
    application.opensFurtherWindows = reader.at(u"opensFurtherWindows"_s).boolean(false);
    application.hasOneWindow = reader.at(u"hasOneWindow"_s).boolean(false);
    return application;
}

/// Applications and their windows stand in the file front to back.
void openApplications(const QList<DeskReader> &readers, SimulatedDesktop &desktop)
{
    std::optional<WindowElement> focused;
    std::optional<WindowElement> frontmost;
    for (const DeskReader &reader : readers | std::views::reverse) {
        const SimulatedInstallation application = applicationFrom(reader);
        desktop.install(application);
        if (!reader.at(u"running"_s).boolean(true))
            continue;
        const pid_t pid = desktop.start(application.bundleIdentifier, application.name);
        desktop.application(pid).hung = reader.at(u"hung"_s).boolean(false);
        const QList<DeskReader> windows = reader.at(u"windows"_s).list();
        for (qsizetype index = windows.size(); index-- > 0;) {
            const WindowElement element = desktop.openWindow(pid, application.windows[index]);
            if (windows[index].at(u"focused"_s).boolean(false))
                focused = element;
            if (desktop.window(element).canHaveFocus())
                frontmost = element;
        }
    }
    if (const auto chosen = focused ? focused : frontmost)
        desktop.focus(*chosen);
}

quint32 modifiersFrom(const DeskReader &reader)
{
    constexpr std::array bits{
        HotKeys::controlKey, HotKeys::optionKey, HotKeys::shiftKey, HotKeys::cmdKey};
    quint32 modifiers = 0;
    for (const DeskReader &modifier : reader.list())
        modifiers |=
            bits.at(modifier.oneOf({u"control"_s, u"option"_s, u"shift"_s, u"command"_s}, 0));
    return modifiers;
}

quint16 keyCodeFrom(const DeskReader &reader)
{
    if (!reader.isPresent())
        reader.reject(u"a key code"_s);
    return quint16(reader.integer(0, 127, 0));
}

void furnish(SimulatedPlatform &platform, const DeskReader &desk)
{
    SimulatedDesktop &desktop = platform.desktop();
    desktop.tiling = desk.at(u"tiling"_s).boolean(false);
    desktop.bringsOneForward = desk.at(u"bringsOneForward"_s).boolean(true);
    for (const DeskReader &display : desk.at(u"displays"_s).list())
        desktop.plug(displayFrom(display));
    openApplications(desk.at(u"applications"_s).list(), desktop);
    for (const DeskReader &key : desk.at(u"missingKeys"_s).list())
        platform.hotKeys().removeKey(keyCodeFrom(key));
    for (const DeskReader &rival : desk.at(u"rivals"_s).list())
        platform.hotKeys().takeByRival(
            keyCodeFrom(rival.at(u"keyCode"_s)), modifiersFrom(rival.at(u"modifiers"_s)));
    const QString reason = desk.at(u"distrustReason"_s).text();
    if (!desk.at(u"trusted"_s).boolean(true))
        desktop.loseTrust(
            reason.isEmpty() ? u"This desk does not let its windows be moved."_s : reason);
    desktop.notices().clear();
}

} // namespace

expected<std::unique_ptr<SimulatedPlatform>, QString> loadDesk(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return unexpected(
            u"The desk file \"%1\" cannot be opened: %2."_s.arg(path, file.errorString()));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError)
        return unexpected(u"The desk file \"%1\" is not JSON: %2 at byte %3."_s.arg(path)
                              .arg(error.errorString())
                              .arg(error.offset));

    QString problem;
    const QJsonValue root =
        document.isObject() ? QJsonValue(document.object()) : QJsonValue(QJsonValue::Null);
    const DeskReader desk(root, {}, problem);
    auto platform =
        std::make_unique<SimulatedPlatform>(desk.at(u"clock"_s).oneOf(timeTable, Time::real));
    furnish(*platform, desk);
    if (!problem.isEmpty())
        return unexpected(u"The desk file \"%1\" cannot be used: %2."_s.arg(path, problem));
    return platform;
}

} // namespace corvane
