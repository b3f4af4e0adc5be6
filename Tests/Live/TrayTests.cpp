#include "LiveDesk.h"
#include "PanelProcess.h"
#include "PointerPresser.h"
#include "PopupProbe.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using Button = PointerPresser::Button;

constexpr Rect somewhere{500, 300, 600, 400};
/// Where neither a window nor a menu stands.
constexpr Point elsewhere{200, 800};
/// Rows above the halves that the arrow keys stop at, without a problem to be told and without layouts.
constexpr int rowsAboveHalves = 4;

Point centre(const Rect &rect)
{
    return {rect.midX(), rect.midY()};
}

/// On fluxbox-tray the icon's window stands in the window manager's own toolbar, else a panel draws
/// the icon.
class TrayTests : public LiveTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(LiveTests::SetUp());
        pointer().moveTo({900, 900});
        if (!isEmbedded())
            startPanel();
        m_window = showFocused({.geometry = somewhere});
    }

    static bool isEmbedded() { return isManager({"fluxbox-tray"}); }
    PointerPresser pointer() { return PointerPresser(desktop().connection()); }
    QList<xcb_window_t> menus()
    {
        return PopupProbe(desktop().connection()).openMenus(corvane().pid());
    }

    void startPanel()
    {
        auto panel = PanelProcess::start(desktop());
        ASSERT_TRUE(panel) << qPrintable(panel.error());
        m_panel = std::move(*panel);
    }

    Rect icon()
    {
        if (m_panel) {
            EXPECT_TRUE(waitUntil([this] { return m_panel->showsIcon(); }));
            return m_panel->iconPlace();
        }
        xcb_window_t icon = XCB_WINDOW_NONE;
        EXPECT_TRUE(waitUntil([&] {
            icon = PopupProbe(desktop().connection()).trayIcon(corvane().pid());
            return icon != XCB_WINDOW_NONE;
        }));
        return frame(icon);
    }

    /// Clicks on the icon; the menu's place once it is there.
    std::optional<Rect> openMenu(Button button = Button::left)
    {
        pointer().click(centre(icon()), button);
        if (!waitUntil([this] { return menus().size() == 1 && holdsPointer(); }))
            return std::nullopt;
        return probe().clientGeometry(menus().first());
    }
    /// A menu is on the screen a moment before it hears of clicks and keys.
    bool holdsPointer()
    {
        xcb_connection_t *raw = desktop().connection().raw();
        const auto cookie = xcb_grab_pointer(raw, 0, desktop().connection().root(),
            XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE,
            XCB_CURSOR_NONE, XCB_CURRENT_TIME);
        const Reply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(raw, cookie, nullptr));
        xcb_ungrab_pointer(raw, XCB_CURRENT_TIME);
        desktop().connection().sync();
        return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
    }
    bool isClosed()
    {
        return waitUntil([this] { return menus().isEmpty(); });
    }

    void press(Key key) { LiveTests::press({0, key}); }

    void popUp()
    {
        desktop().connection().sync();
        ASSERT_EQ(corvane().ask({u"--pop-menu"_s}).exitStatus, 0);
        ASSERT_TRUE(waitUntil([this] { return menus().size() == 1; }));
    }
    /// Sooner than a menu gives up that neither keys nor clicks reach.
    bool closesBy(const std::function<void()> &doing)
    {
        const auto isClosing = [&] {
            doing();
            return menus().isEmpty();
        };
        return waitUntil(isClosing, Milliseconds{2000});
    }

    /// A point of the row that has just been lit, below the one that was.
    Point litRow(const Rect &menu, const QByteArray &before)
    {
        QByteArray now;
        EXPECT_TRUE(
            waitUntil([&] { return (now = pixelsOn(desktop().connection(), menu)) != before; }));
        const qsizetype line = static_cast<qsizetype>(menu.width) * bytesPerPixel;
        qsizetype lowest = static_cast<qsizetype>(menu.height) - 1;
        while (lowest > 0 && now.mid(lowest * line, line) == before.mid(lowest * line, line))
            --lowest;
        return {menu.midX(), menu.y + static_cast<double>(lowest) - 8};
    }

    /// What the hot key makes of the window, which is then put back.
    Rect leftHalf()
    {
        LiveTests::press(strokes::leftHalf);
        EXPECT_TRUE(waitUntil([this] { return frame(m_window).x == 0; }));
        const Rect half = frame(m_window);
        pager().moveResize(m_window, somewhere);
        EXPECT_TRUE(waitUntil([&] { return frame(m_window).x > half.x; }));
        return half;
    }

    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::unique_ptr<PanelProcess> m_panel;
};

} // namespace

TEST_F(TrayTests, aClickOpensTheMenuBesideTheIconUntilAKeyOrAClickClosesIt)
{
    const Rect place = icon();
    const std::function<void()> ways[]{[this] { press(Key::escape); },
        [this] { pointer().click(elsewhere); }, [&] { pointer().click(centre(place)); }};
    for (const auto &closeMenu : ways) {
        const auto menu = openMenu();
        ASSERT_TRUE(menu);
        const double apart =
            std::min(std::abs(menu->y - place.maxY()), std::abs(place.y - menu->maxY()));
        EXPECT_LE(apart, place.height);
        EXPECT_GE(std::min(menu->x, menu->y), 0);
        EXPECT_LE(menu->maxX(), standardDisplay.maxX());
        EXPECT_LE(menu->maxY(), standardDisplay.maxY());
        EXPECT_EQ(probe().activeWindow(), m_window);

        closeMenu();

        EXPECT_TRUE(isClosed());
        EXPECT_FALSE(waitUntil([this] { return !menus().isEmpty(); }, Milliseconds{500}));
        EXPECT_EQ(probe().activeWindow(), m_window);
    }
}

TEST_F(TrayTests, aRightClickOpensAMenu)
{
    // A panel that never passes right clicks on draws the menu itself.
    PopupProbe popups(desktop().connection());
    pointer().click(centre(icon()), Button::right);

    ASSERT_TRUE(waitUntil([&] { return !popups.openMenus().isEmpty(); }));
    EXPECT_EQ(menus().isEmpty(), !isEmbedded());
    EXPECT_EQ(probe().activeWindow(), m_window);
    EXPECT_TRUE(waitUntil([&] {
        press(Key::escape);
        return popups.openMenus().isEmpty();
    }));
}

TEST_F(TrayTests, aPlacementChosenWithTheKeyboardMovesTheWindowThatHadTheFocus)
{
    const Rect half = leftHalf();
    ASSERT_TRUE(openMenu());

    for (int row = 0; row <= rowsAboveHalves; ++row)
        press(Key::down);
    press(Key::right);
    ASSERT_TRUE(waitUntil([this] { return menus().size() == 2; }));
    press(Key::enter);

    EXPECT_EQ(reached(m_window, half), half);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(probe().activeWindow(), m_window);
}

TEST_F(TrayTests, aPlacementChosenWithTheMouseMovesTheWindowThatHadTheFocus)
{
    const Rect half = leftHalf();
    const auto menu = openMenu();
    ASSERT_TRUE(menu);
    for (int row = 0; row < rowsAboveHalves; ++row)
        press(Key::down);
    const QByteArray before = settled([&] { return pixelsOn(desktop().connection(), *menu); });
    press(Key::down);

    pointer().click(litRow(*menu, before));
    ASSERT_TRUE(waitUntil([this] { return menus().size() == 2; }));
    const Rect submenu = frame(menus().last());
    pointer().click({submenu.midX(), submenu.y + 16});

    EXPECT_EQ(reached(m_window, half), half);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(probe().activeWindow(), m_window);
}

TEST_F(TrayTests, aMenuThatOpensWhileAnotherProgramHoldsTheKeyboardGetsItLater)
{
    XConnection &holder = desktop().connection();
    xcb_grab_keyboard(
        holder.raw(), 0, holder.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    popUp();

    xcb_ungrab_keyboard(holder.raw(), XCB_CURRENT_TIME);

    EXPECT_TRUE(closesBy([this] { press(Key::escape); }));
}

TEST_F(TrayTests, aMenuThatOpensWhileAnotherProgramHoldsThePointerGetsItLater)
{
    XConnection &holder = desktop().connection();
    xcb_grab_pointer(holder.raw(), 0, holder.root(), XCB_EVENT_MASK_BUTTON_PRESS,
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE,
        XCB_CURRENT_TIME);
    popUp();

    xcb_ungrab_pointer(holder.raw(), XCB_CURRENT_TIME);

    EXPECT_TRUE(closesBy([this] { pointer().click(elsewhere); }));
}

TEST_F(TrayTests, aRivalWithoutAWindowIsInTheMenuAndQuitsWhenChosenOrAskedTo)
{
    auto rival = desktop().launchIdle(u"cortile"_s);
    popUp();

    EXPECT_TRUE(closesBy([this] {
        // After the row with the program's name.
        press(Key::down);
        press(Key::down);
        press(Key::enter);
    }));
    EXPECT_TRUE(waitUntil([&] { return !rival->isRunning(); }));

    rival = desktop().launchIdle(u"cortile"_s);
    EXPECT_EQ(corvane().ask({u"--quit-competitors"_s}).output, "Asked Cortile to quit.\n");
    EXPECT_TRUE(waitUntil([&] { return !rival->isRunning(); }));
}

TEST_F(TrayTests, withoutATrayTheProgramSaysSoOnceAndStaysReachable)
{
    if (isEmbedded())
        GTEST_SKIP() << "the tray is the window manager's";
    m_panel->stop();
    ASSERT_TRUE(waitUntil([this] { return !m_panel->isRunning(); }));
    corvane().stop();
    ASSERT_TRUE(corvane().start());

    ASSERT_TRUE(corvane().waitForLog(u"no tray"_s, 0, Milliseconds{20000}));
    EXPECT_TRUE(moved(corvane().place(u"rightHalf"_s)));
    popUp();
    EXPECT_TRUE(closesBy([this] { press(Key::escape); }));
    EXPECT_EQ(corvane().log().filter(u"no tray"_s).size(), 1);
}

} // namespace corvane::desktop
