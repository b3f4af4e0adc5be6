#include "WaylandDesk.h"

#include "Pictures.h"
#include "WaylandPictures.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

// KWin's virtual displays are all of one size.
const QList<Rect> displaysOfSway{{0, 0, 1680, 1050}, {1680, 26, 1280, 1024}};
const QList<Rect> displaysOfKWin{{0, 0, 1680, 1050}, {1680, 0, 1680, 1050}};

const QString looksOfSway = uR"(
font pango:DejaVu Sans 10
title_align left
titlebar_padding 10 6
default_border normal 1
default_floating_border normal 1
client.focused #3D4452 #FFFFFF #1B1D22 #3D4452 #3D4452
client.focused_inactive #CBC7BC #F4F2EC #5C6069 #CBC7BC #CBC7BC
client.unfocused #CBC7BC #F4F2EC #5C6069 #CBC7BC #CBC7BC
)"_s;

} // namespace

expected<std::unique_ptr<Desk>, QString> WaylandDesk::begin(const QString &desktop)
{
    const bool isSway = desktop == u"sway";
    const QList<Rect> &displays = isSway ? displaysOfSway : displaysOfKWin;
    auto started = WaylandDesktop::start({.compositor = isSway ? desktop : u"kwin_wayland"_s,
        .displays = displays,
        .hasXwayland = !isSway,
        .configuration = isSway ? looksOfSway : QString(),
        .home = QStringLiteral(CORVANE_DEMO_HOME),
        .canBePictured = true});
    if (!started)
        return unexpected<QString>(started.error());
    return std::unique_ptr<Desk>(new WaylandDesk(std::move(*started), displays));
}

std::optional<Rect> WaylandDesk::frame(Window window)
{
    const auto seen = m_desktop->hand().window(window);
    return seen ? std::optional(seen->frame) : std::nullopt;
}

bool WaylandDesk::bringForward(Window window)
{
    Hand &hand = m_desktop->hand();
    hand.activate(window);
    return waitUntil([&] { return hand.activeWindow() == window; });
}

bool WaylandDesk::fillDisplay(Window window)
{
    Hand &hand = m_desktop->hand();
    if (m_desktop->isSway())
        hand.tile(window); // with no other one in the layout
    else
        hand.setMaximized(window, true);
    const bool isFilling = waitUntil([&] {
        const auto seen = hand.window(window);
        return seen && (seen->isMaximized || seen->isTiled);
    });
    static_cast<void>(settledFrame(window));
    return isFilling;
}

QString WaylandDesk::furnish()
{
    // A pointer over a window brings up its tips, and in a corner all windows. On sway there is none
    // until it moves.
    const Rect &first = m_displays.first();
    if (!m_desktop->isSway())
        keys().moveTo({first.midX(), first.y + panelHeight / 2});
    m_scenery = std::make_unique<Scenery>(m_desktop->environment().value(u"WAYLAND_DISPLAY"_s));
    const QImage board = boardPicture(m_displays);
    for (qsizetype display = 0; display < m_displays.size(); ++display) {
        const QImage part = board.copy(toQRect(m_displays[display]));
        if (!m_scenery->showBackground(display, part))
            return u"the background did not appear"_s;
    }
    const QSize panel(static_cast<int>(m_displays.first().width), panelHeight);
    return m_scenery->showPanel(0, panelPicture(panel)) ? QString() : u"the panel did not appear"_s;
}

QStringList WaylandDesk::command(const Terminal &terminal) const
{
    if (!m_desktop->isSway())
        return Desk::command(terminal); // on Xwayland
    const auto colour = [](const char *name, const QString &value) {
        return u"--override=colors.%1=%2"_s.arg(QLatin1StringView(name), value.mid(1));
    };
    return QStringList{u"foot"_s, u"--title"_s, terminal.title, u"--override=locked-title=yes"_s,
               u"--font=DejaVu Sans Mono:size=11"_s, u"--override=pad=12x12"_s,
               u"--override=dpi-aware=no"_s, colour("background", terminal.ground),
               colour("foreground", terminal.fore)}
    + terminal.command;
}

SizeLimits WaylandDesk::measureLimits(Window window)
{
    const Size least = sizeTaken(window, {100, 100});
    SizeLimits limits{.minimum = least};
    Size more{1, 1};
    Size tooLittle{};
    Size enough{64, 64};
    while (enough.width - tooLittle.width > 1 || enough.height - tooLittle.height > 1) {
        const Size size = sizeTaken(window, {least.width + more.width, least.height + more.height});
        (size.width > least.width ? enough : tooLittle).width = more.width;
        (size.height > least.height ? enough : tooLittle).height = more.height;
        more = {std::floor((tooLittle.width + enough.width) / 2),
            std::floor((tooLittle.height + enough.height) / 2)};
    }
    limits.increment = enough;
    return limits;
}

Size WaylandDesk::sizeTaken(Window window, Size asked)
{
    const Point corner = settledFrame(window).origin();
    m_desktop->hand().place(window, {corner.x, corner.y, asked.width, asked.height});
    return settledFrame(window).size();
}

QImage WaylandDesk::picture()
{
    const QImage seen = m_desktop->isSway() ? pictureOfSway(*m_desktop) : pictureOfKWin(*m_desktop);
    return onBoard(seen, m_displays);
}

} // namespace corvane::demo
