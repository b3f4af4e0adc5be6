#include "WaylandOwnWindows.h"

#include "QtWayland.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

#include <algorithm>
#include <cmath>
#include <unistd.h>

namespace corvane::wayland {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr auto patience = 3s; ///< until a window that is shown is seen by the compositor

} // namespace

WaylandOwnWindows::WaylandOwnWindows(ToplevelRegistry &registry, Placer &placer)
    : m_registry(registry), m_placer(placer)
{
    connect(&registry, &ToplevelRegistry::focusRead, this, [this] {
        if (!m_wishes.isEmpty())
            m_registry.defer([this] { grant(); });
    });
    m_keysRenewal.setInterval(1s); // a third of the time for which they are left
    connect(&m_keysRenewal, &QTimer::timeout, this,
        [this] { std::ignore = m_registry.compositor().leaveKeys(true); });
    QCoreApplication::instance()->installEventFilter(this);
}

bool WaylandOwnWindows::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Show && object->isWindowType()) {
        auto *window = static_cast<QWindow *>(object);
        m_wanted.insert(window, window->size());
        connect(window, &QObject::destroyed, this, [this, window] { m_wanted.remove(window); });
    }
    return false;
}

void WaylandOwnWindows::bringForward(quint64 window, const QString &token)
{
    if (QWindow *shown = QtWayland::window(window); shown && !token.isEmpty()) {
        // Where Qt's Wayland plug-in looks for it.
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
        shown->requestActivate();
    }
    wish(window, std::nullopt);
}

void WaylandOwnWindows::setTakesAllKeys(quint64 number, bool takesAll)
{
    m_inhibitor.reset();
    m_keysRenewal.stop();
    if (m_registry.compositor().leaveKeys(takesAll)) {
        if (takesAll)
            m_keysRenewal.start();
        return;
    }
    if (QWindow *window = takesAll ? QtWayland::window(number) : nullptr)
        m_inhibitor = std::make_unique<ShortcutsInhibitor>(*window);
}

void WaylandOwnWindows::setOverlay(quint64 window, const Rect &frame)
{
    wish(window, frame);
}

void WaylandOwnWindows::wish(quint64 window, const std::optional<Rect> &overlay)
{
    m_wishes.removeIf([window](const Wish &each) { return each.window == window; });
    m_wishes << Wish{window, Clock::now() + patience, overlay};
    m_registry.defer([this] { grant(); });
}

void WaylandOwnWindows::grant()
{
    const auto now = Clock::now();
    m_wishes.removeIf([now](const Wish &each) { return each.end < now; });
    if (m_wishes.isEmpty())
        return;
    m_registry.outdate();
    const auto desk = m_registry.desk(Compositor::Scope::all);
    if (!desk)
        return;
    m_wishes.removeIf([&](const Wish &wish) {
        const Toplevel *toplevel = toplevelOf(wish.window, *desk);
        if (!toplevel)
            return false;
        show(wish, *toplevel, *desk);
        return true;
    });
}

void WaylandOwnWindows::show(const Wish &wish, const Toplevel &toplevel, const Desk &desk)
{
    Compositor &compositor = m_registry.compositor();
    if (wish.overlay) {
        std::ignore = m_placer.place({{toplevel.element, *wish.overlay}});
        compositor.keepAbove(toplevel.element);
        return;
    }
    if (!toplevel.here)
        compositor.bringHere(toplevel.element);
    const QWindow &window = *QtWayland::window(wish.window);
    const bool isSheet = window.transientParent() && !toplevel.tiled;
    if (!m_placed.contains(toplevel.element) && !isSheet)
        placeInTheMiddle(window, toplevel, desk);
    m_placed.insert(toplevel.element);
    compositor.bringToFront({toplevel.element});
}

/// In the size that it was shown with, whatever the compositor's layout made of that.
void WaylandOwnWindows::placeInTheMiddle(
    const QWindow &window, const Toplevel &toplevel, const Desk &desk)
{
    const Rect &frame = toplevel.frame;
    const auto area = std::ranges::max_element(desk.workAreas, {},
        [&](const WorkArea &each) { return each.visible.intersectionArea(frame); });
    const Rect &around = area == desk.workAreas.end() ? frame : area->visible;
    Size size = frame.size();
    if (toplevel.tiled) {
        const QSize wanted = m_wanted.value(&window, window.size());
        const Size client = toplevel.client.width > 0 ? toplevel.client : size;
        size.width += wanted.width() - client.width;
        size.height += wanted.height() - client.height;
    }
    size = {std::min(size.width, around.width), std::min(size.height, around.height)};
    const Rect middle{std::floor(around.midX() - size.width / 2),
        std::floor(around.midY() - size.height / 2), size.width, size.height};
    if (!isSame(middle, frame) || toplevel.tiled)
        std::ignore = m_placer.place({{toplevel.element, middle}});
}

/// Neither Qt nor the compositor tells the other's name of a window: title and process must do.
const Toplevel *WaylandOwnWindows::toplevelOf(quint64 number, const Desk &desk) const
{
    const QWindow *window = QtWayland::window(number);
    if (!window)
        return nullptr;
    const QString title =
        window->title().isEmpty() ? QGuiApplication::applicationDisplayName() : window->title();
    const auto found = std::ranges::find_if(desk.windows,
        [&](const Toplevel &each) { return each.traces.pid == getpid() && each.title == title; });
    return found == desk.windows.end() ? nullptr : &*found;
}

} // namespace corvane::wayland
