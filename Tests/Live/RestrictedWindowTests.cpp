#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class RestrictedWindowTests : public LiveTests
{
protected:
    // Panels take the focus themselves where the window manager gives them none.
    bool forceFocus(xcb_window_t window)
    {
        XConnection &connection = desktop().connection();
        pager().activate(window);
        const auto isFocused = [&] {
            const Reply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
                connection.raw(), xcb_get_input_focus(connection.raw()), nullptr));
            return reply && reply->focus == window;
        };
        if (waitUntil(isFocused, Milliseconds{500}))
            return true;
        xcb_set_input_focus(
            connection.raw(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
        connection.sync();
        return waitUntil(isFocused, Milliseconds{500});
    }
};

using Kind = WindowRequest::Kind;

} // namespace

TEST_F(RestrictedWindowTests, aFocusedDialogIsPlacedLikeAnyWindow)
{
    const xcb_window_t parent = showFocused({.geometry = {100, 100, 800, 600}});
    const Rect parentFrame = frame(parent);
    for (const Kind kind : {Kind::dialog, Kind::utility}) {
        const xcb_window_t dialog =
            showFocused({.geometry = {300, 300, 400, 250}, .kind = kind, .transientFor = parent});
        const Rect expected = frameOf(region(u"rightHalf"), standardDisplay);

        const auto answer = corvane().place(u"rightHalf"_s);

        EXPECT_TRUE(moved(answer));
        EXPECT_EQ(reached(dialog, expected), expected);
        EXPECT_EQ(frame(parent), parentFrame);
        client().close(dialog);
    }
}

TEST_F(RestrictedWindowTests, dialogsAreNotRememberedAsStandardWindowsAre)
{
    const xcb_window_t parent = showFocused({.geometry = {100, 100, 800, 600}});
    ASSERT_TRUE(waitUntil([&] { return corvane().place(u"original"_s).name() == u"moved"; }));
    const xcb_window_t dialog = showFocused(
        {.geometry = {300, 300, 400, 250}, .kind = Kind::dialog, .transientFor = parent});
    const xcb_window_t later = showFocused({.geometry = {500, 100, 300, 300}});
    // Once the later window is remembered, the dialog would be, too.
    ASSERT_TRUE(waitUntil([&] { return corvane().place(u"original"_s).name() == u"moved"; }));
    EXPECT_NE(later, dialog);
    ASSERT_TRUE(focus(dialog));

    const auto answer = corvane().place(u"original"_s);

    EXPECT_TRUE(refused(answer, u"original orientation: this window was not seen opening"_s));
}

TEST_F(RestrictedWindowTests, aFocusedPanelOrDesktopIsNoFocusedWindow)
{
    const xcb_window_t bystander = client().show({.geometry = {400, 400, 300, 200}});
    const Rect before = frame(bystander);
    const WindowRequest requests[]{
        WindowRequest::panel(standardDisplay, WindowRequest::Side::top, 40, standardDisplay),
        {.geometry = standardDisplay, .kind = Kind::desktop, .decorated = false},
    };
    for (const WindowRequest &request : requests) {
        const xcb_window_t window = client().show(request);
        const Rect frameBefore = frame(window);
        if (!forceFocus(window)
            || !waitUntil([&] { return probe().activeWindow() != bystander; }, Milliseconds{500})) {
            client().close(window);
            GTEST_SKIP() << "this window manager lets no panel have the focus";
        }

        const auto answer = corvane().place(u"leftHalf"_s);

        EXPECT_TRUE(refused(answer, u"no focused window"_s));
        EXPECT_EQ(frame(window), frameBefore);
        EXPECT_EQ(frame(bystander), before);
        client().close(window);
    }
}

TEST_F(RestrictedWindowTests, withoutAnyWindowThereIsNothingToPlace)
{
    ASSERT_TRUE(waitUntil([&] { return probe().clients().isEmpty(); }));

    const auto answer = corvane().place(u"leftHalf"_s);

    EXPECT_TRUE(refused(answer, u"no focused window"_s));
    EXPECT_EQ(answer.name(), u"noWindow");
}

} // namespace corvane::desktop
