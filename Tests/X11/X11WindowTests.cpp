#include "X11Desk.h"

namespace corvane {

using namespace desktop;

namespace {

using X11WindowTests = X11Desk;

} // namespace

TEST_F(X11WindowTests, theFirstTypeThatIsKnownDecidesWhatKindOfWindowItIs)
{
    struct Case {
        QByteArrayList types;
        bool isStandard;
        bool isTransient = false;
        bool isWindow = true;
    };
    const Case cases[]{
        {{}, true},
        {{}, false, true},
        {{"NORMAL"}, true},
        {{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE", "NORMAL"}, true},
        {{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE"}, true},
        {{"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE"}, false, true},
        {{"_KDE_NET_WM_WINDOW_TYPE_TOPMENU", "DOCK", "NORMAL"}, false, false, false},
        {{"_TOOLKITS_OWN", "COMBO", "NORMAL"}, false},
        {{"_TOOLKITS_OWN", "DND"}, false},
    };
    TestClient client(**desk);
    XConnection &connection = (*desk)->connection();
    WindowAccess &windows = (*platform)->windows();
    const xcb_window_t owner = client.show({});
    const xcb_window_t number = client.show({});
    EXPECT_TRUE(eventually([&] { return windows.focusedWindow().window.has_value(); }));
    const WindowElement window = *windows.focusedWindow().window;
    ASSERT_EQ(window.number, number);
    for (const auto &[types, isStandard, isTransient, isWindow] : cases) {
        SCOPED_TRACE(types.join(' ').constData());
        QList<quint32> atoms;
        for (const QByteArray &type : types)
            atoms << connection.atom(type.startsWith('_') ? type : "_NET_WM_WINDOW_TYPE_" + type);
        connection.setNumbers(number, "_NET_WM_WINDOW_TYPE", "ATOM", atoms);
        connection.setNumbers(number, "WM_TRANSIENT_FOR", "WINDOW", {isTransient ? owner : 0u});
        connection.sync();

        EXPECT_EQ(windows.isStandard(window), isStandard);
        EXPECT_EQ(windows.isWindow(window), isWindow);
    }
}

} // namespace corvane
