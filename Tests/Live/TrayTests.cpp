#include "LiveDesk.h"
#include "PanelProcess.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using Button = KeyPresser::Button;

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
/// the icon, a new one for each test.
class TrayTests : public LiveTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(LiveTests::SetUp());
        keys().moveTo({900, 900});
        if (!isEmbedded()) {
            auto panel = PanelProcess::start(desktop());
            ASSERT_TRUE(panel) << qPrintable(panel.error());
            m_panel = std::move(*panel);
        }
        m_window = showFocused({.geometry = somewhere});
    }

    static bool isEmbedded() { return isManager({u"fluxbox-tray"_s}); }
    QList<xcb_window_t> menus() { return probe().openMenus(corvane().pid()); }
    void press(Key key) { keys().press({0, key}); }

    Rect icon()
    {
        if (m_panel)
            return m_panel->iconPlace();
        xcb_window_t icon = XCB_WINDOW_NONE;
        EXPECT_TRUE(waitUntil([&] {
            icon = probe().trayIcon(corvane().pid());
            return icon != XCB_WINDOW_NONE;
        }));
        return frame(icon);
    }

    /// Clicks on the icon; the menu's place once it is there.
    std::optional<Rect> openMenu()
    {
        keys().click(centre(icon()));
        if (!waitUntil([this] { return menus().size() == 1 && holdsPointer(); }))
            return std::nullopt;
        return probe().clientGeometry(menus().first());
    }

    /// A menu is on the screen a moment before it hears of clicks and keys.
    bool holdsPointer()
    {
        const bool isFree = grabPointer() == XCB_GRAB_STATUS_SUCCESS;
        if (isFree)
            ungrab();
        return !isFree;
    }

    int grabPointer()
    {
        XConnection &holder = desktop().connection();
        const auto cookie = xcb_grab_pointer(holder.raw(), 0, holder.root(),
            XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE,
            XCB_CURSOR_NONE, XCB_CURRENT_TIME);
        const auto reply = holder.reply<xcb_grab_pointer_reply>(cookie);
        return reply ? reply->status : quint8(XCB_GRAB_STATUS_FROZEN);
    }

    void ungrab()
    {
        xcb_ungrab_pointer(desktop().connection().raw(), XCB_CURRENT_TIME);
        xcb_ungrab_keyboard(desktop().connection().raw(), XCB_CURRENT_TIME);
        desktop().connection().sync();
    }

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

    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::unique_ptr<PanelProcess> m_panel;
};

} // namespace

TEST_F(TrayTests, aClickOpensTheMenuBesideTheIconUntilAKeyOrAClickClosesIt)
{
    const Rect place = icon();
    const std::function<void()> ways[]{[this] { press(Key::escape); },
        [this] { keys().click(elsewhere); }, [&] { keys().click(centre(place)); }};
    for (const auto &closeMenu : ways) {
        const auto menu = openMenu();
        ASSERT_TRUE(menu);
        const double apart =
            std::min(std::abs(menu->y - place.maxY()), std::abs(place.y - menu->maxY()));
        EXPECT_LE(apart, place.height);
        EXPECT_EQ(Geometry::clamp(*menu, standardDisplay), *menu);
        EXPECT_EQ(probe().activeWindow(), m_window);

        closeMenu();

        EXPECT_TRUE(waitUntil([this] { return menus().isEmpty(); }));
        EXPECT_FALSE(waitUntil([this] { return !menus().isEmpty(); }, Milliseconds{500}));
        EXPECT_EQ(probe().activeWindow(), m_window);
    }
}

TEST_F(TrayTests, aRightClickOpensAMenu)
{
    // A panel that never passes right clicks on draws the menu itself.
    keys().click(centre(icon()), Button::right);

    ASSERT_TRUE(waitUntil([&] { return !probe().openMenus().isEmpty(); }));
    EXPECT_EQ(menus().isEmpty(), !isEmbedded());
    EXPECT_EQ(probe().activeWindow(), m_window);
    EXPECT_TRUE(waitUntil([&] {
        press(Key::escape);
        return probe().openMenus().isEmpty();
    }));
}

TEST_F(TrayTests, aPlacementChosenWithKeysOrMouseMovesTheWindowThatHadTheFocus)
{
    std::optional<Rect> half; // beside the panel, as the hot key makes it
    const auto openSubmenu = [&] {
        ASSERT_TRUE(openMenu());
        for (int row = 0; row <= rowsAboveHalves; ++row)
            press(Key::down);
        press(Key::right);
        ASSERT_TRUE(waitUntil([this] { return menus().size() == 2; }));
    };
    const std::function<void()> choices[]{[&] { LiveTests::press(Placement::leftHalf); },
        [&] {
            openSubmenu();
            press(Key::enter);
        },
        [&] {
            openSubmenu();
            const Rect submenu = frame(menus().value(1));
            // It hears of the pointer once the second row is lit.
            const Rect second{submenu.midX(), submenu.y + 42, 1, 1};
            const QByteArray unlit = pixelsOn(desktop().connection(), second);
            EXPECT_TRUE(waitUntil([&, moved = 0]() mutable {
                keys().moveTo({second.x - ++moved % 2, second.y});
                return pixelsOn(desktop().connection(), second) != unlit;
            }));
            keys().click({submenu.midX(), submenu.y + 16});
        }};
    for (const auto &choose : choices) {
        choose();

        EXPECT_TRUE(waitUntil([&] { return frame(m_window).x == 0; }));
        EXPECT_EQ(frame(m_window), half.value_or(frame(m_window)));
        EXPECT_TRUE(waitUntil([this] { return menus().isEmpty(); }));
        EXPECT_EQ(probe().activeWindow(), m_window);
        half = frame(m_window);
        pager().moveResize(m_window, somewhere);
        EXPECT_TRUE(waitUntil([&] { return frame(m_window).x > 0; }));
    }
}

TEST_F(TrayTests, aMenuThatOpensWhileAnotherProgramHoldsKeyboardOrPointerGetsThemLater)
{
    XConnection &holder = desktop().connection();
    xcb_grab_keyboard(
        holder.raw(), 0, holder.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    popUp();
    ungrab();
    EXPECT_TRUE(closesBy([this] { press(Key::escape); }));

    ASSERT_EQ(grabPointer(), XCB_GRAB_STATUS_SUCCESS);
    popUp();
    ungrab();
    EXPECT_TRUE(closesBy([this] { keys().click(elsewhere); }));
}

} // namespace corvane::desktop
