#pragma once

#include "CorvaneProcess.h"
#include "Geometry.h"
#include "Placement.h"
#include "WaylandClient.h"
#include "WindowManagerProcess.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane {

void PrintTo(const Rect &rect, std::ostream *stream);

} // namespace corvane

namespace corvane::desktop {

/// A placement and the keys that it has from the start.
using Shortcut = std::pair<Placement, KeyStroke>;

namespace strokes {
inline constexpr quint8 plain = KeyStroke::control | KeyStroke::alt;
inline constexpr quint8 shifted = plain | KeyStroke::shift;
inline constexpr quint8 hyper = plain | KeyStroke::super;
} // namespace strokes

/// Those that the tests press.
inline constexpr std::array shortcuts{
    Shortcut{Placement::leftHalf, {strokes::hyper, Key::left}},
    Shortcut{Placement::rightHalf, {strokes::hyper, Key::right}},
    Shortcut{Placement::topLeft, {strokes::shifted, Key::left}},
    Shortcut{Placement::topRight, {strokes::shifted, Key::up}},
    Shortcut{Placement::bottomRight, {strokes::shifted, Key::right}},
    Shortcut{Placement::leftThird, {strokes::plain, Key::d}},
    Shortcut{Placement::centerThird, {strokes::plain, Key::f}},
    Shortcut{Placement::maximize, {strokes::hyper, Key::m}},
    Shortcut{Placement::snapBack, {strokes::hyper, Key::slash}},
    Shortcut{Placement::original, {strokes::hyper, Key::o}},
    Shortcut{Placement::nextDisplay, {strokes::plain, Key::right}},
    Shortcut{Placement::previousDisplay, {strokes::plain, Key::left}},
};

/// The keys of one of the shortcuts above.
[[nodiscard]] KeyStroke strokeOf(Placement placement);
[[nodiscard]] Rect frameOf(Placement placement, const Rect &area);

/// A test on the desktop that every test of the process shares. It begins with one display of
/// 1920 × 1080, the window manager or the Wayland compositor and the program running, and no windows.
class LiveTests : public testing::Test
{
public:
    static void endDesk();

protected:
    static constexpr Rect standardDisplay{0, 0, 1920, 1080};
    /// Beside the other one; KWin's virtual displays are of one size.
    static Rect secondDisplay()
    {
        return isWayland() && !isSway() ? Rect{1920, 0, 1920, 1080} : Rect{1920, 0, 1600, 900};
    }
    static inline QStringList s_without; ///< extensions of the server that a next desktop gets

    void SetUp() override;
    void TearDown() override;
    /// Before the test, unless it runs.
    virtual void startProgram();

    PrivateSession &session();
    Hand &hand() { return s_wayland ? s_wayland->hand() : s_desktop->hand(); }
    Keys &keys();
    CorvaneProcess &corvane() { return *s_corvane; }
    WindowClient &client() { return *m_client; }

    WaylandDesktop &waylandDesktop() { return *s_wayland; }
    /// X11's, for what only X11 has.
    VirtualDesktop &desktop() { return *s_desktop; }
    std::unique_ptr<WindowManagerProcess> &manager() { return s_manager; }
    WindowProbe probe() { return WindowProbe(desktop().connection()); }
    Pager pager() { return Pager(desktop().connection()); }

    /// The window manager or compositor under test: $CORVANE_TEST_WM, by default openbox.
    static QString managerName()
    {
        return qEnvironmentVariable("CORVANE_TEST_WM", QStringLiteral("openbox"));
    }
    static bool isManager(const QStringList &names) { return names.contains(managerName()); }
    static bool isSway() { return isManager({QStringLiteral("sway")}); }
    static bool isWayland() { return isSway() || isManager({QStringLiteral("kwin_wayland")}); }
    /// Of the display with this index, as the desktop calls it.
    static QString displayName(int index)
    {
        const QString swayName = index == 0 ? QStringLiteral("HEADLESS-1") : QStringLiteral("WL-1");
        return isSway()
            ? swayName
            : (isWayland() ? QStringLiteral("Virtual-%1") : QStringLiteral("DUMMY%1")).arg(index);
    }
    void ensureManager(const QString &name = managerName());

    [[nodiscard]] std::unique_ptr<WindowClient> startClient();
    /// Puts a window on the desktop and the focus into it.
    quint32 showFocused(const WindowRequest &request = {});
    [[nodiscard]] bool focus(quint32 window);

    Rect frame(quint32 window) { return hand().settledFrame(window); }
    /// Whether the window comes to rest there, however often it moves before.
    testing::AssertionResult rests(
        quint32 window, const Rect &expected, Milliseconds deadline = patience);
    /// Whether the placement's shortcut puts the window on its part of the area.
    testing::AssertionResult lands(
        quint32 window, Placement placement, const Rect &area = standardDisplay);
    /// Returns once the program is done with it.
    void press(Placement placement);
    [[nodiscard]] CorvaneProcess::Answer place(Placement placement)
    {
        return corvane().place(rawValue(placement));
    }

private:
    void startDesk();

    static inline std::unique_ptr<WaylandDesktop> s_wayland;
    static inline std::unique_ptr<VirtualDesktop> s_desktop;
    static inline std::unique_ptr<WindowManagerProcess> s_manager;
    static inline std::unique_ptr<CorvaneProcess> s_corvane;
    std::unique_ptr<WindowClient> m_client;
};

} // namespace corvane::desktop
