#pragma once

#include "CorvaneProcess.h"
#include "KeyPresser.h"
#include "Pager.h"
#include "Placements.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "WindowProbe.h"

#include <gtest/gtest.h>

namespace corvane {

void PrintTo(const Rect &rect, std::ostream *stream);
void PrintTo(const Point &point, std::ostream *stream);
void PrintTo(const Size &size, std::ostream *stream);

} // namespace corvane

namespace corvane::desktop {

/// The program under test: $CORVANE_PROGRAM, else the one of this build.
[[nodiscard]] QString programUnderTest();

/// One desktop with one window manager and the resident program, shared by every test of the process.
class LiveDesk
{
public:
    /// Null when it could not be started; the reason is in `error()`.
    static LiveDesk *shared();
    static QString error();
    /// The window manager under test: $CORVANE_TEST_WM, by default openbox.
    static QString managerName();
    static void end();

    std::unique_ptr<VirtualDesktop> desktop;
    std::unique_ptr<WindowManagerProcess> manager;
    std::unique_ptr<CorvaneProcess> corvane;

private:
    QString start();
};

/// A test on the shared desktop. It begins with one display of 1920 × 1080, the window manager and
/// the program running, and no windows.
class LiveTests : public testing::Test
{
protected:
    static constexpr Rect standardDisplay{0, 0, 1920, 1080};

    void SetUp() override;
    void TearDown() override;

    VirtualDesktop &desktop() { return *m_desk->desktop; }
    CorvaneProcess &corvane() { return *m_desk->corvane; }
    LiveDesk &desk() { return *m_desk; }
    WindowProbe probe() { return WindowProbe(desktop().connection()); }
    Pager pager() { return Pager(desktop().connection()); }
    KeyPresser keys() { return KeyPresser(desktop().connection()); }
    TestClient &client() { return *m_client; }

    /// Puts a window on the desktop and the focus into it.
    xcb_window_t showFocused(const WindowRequest &request = {});
    /// As `showFocused`, in the upper left of the display; i3 opens windows where the focus was.
    xcb_window_t showFocusedOn(const Rect &display);
    [[nodiscard]] bool focus(xcb_window_t window);
    /// The window's frame: the expected one as soon as it is that and stays so, else the one at which
    /// it came to rest.
    Rect reached(xcb_window_t window, const Rect &expected);
    Rect frame(xcb_window_t window);
    void press(const KeyStroke &stroke) { keys().press(stroke); }
    /// Starts the window manager again if it has ended.
    void ensureManager();
    static bool isManager(std::initializer_list<const char *> names);

private:
    LiveDesk *m_desk = nullptr;
    std::unique_ptr<TestClient> m_client;
};

/// An outcome in which the window moved, told in the exit status, too.
testing::AssertionResult moved(const CorvaneProcess::Answer &answer);
/// A refusal with status 1 whose reason contains the text.
testing::AssertionResult refused(const CorvaneProcess::Answer &answer, const QString &reason);

} // namespace corvane::desktop
