#include "X11Desk.h"

namespace corvane {

using namespace desktop;

namespace {

struct X11WindowTests : X11Desk {
    WindowAccess &windows() { return (*platform)->windows(); }
    Applications &applications() { return (*platform)->applications(); }
    XConnection &connection() { return (*desk)->connection(); }

    /// A window of this process that says of itself what is given.
    WindowAccess::Focused openWindow(
        const QByteArray &className, const QByteArray &machine = {}, const QList<quint32> &pid = {})
    {
        const xcb_window_t window = xcb_generate_id(connection().raw());
        xcb_create_window(connection().raw(), XCB_COPY_FROM_PARENT, window, connection().root(), 0,
            0, 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        connection().setBytes(window, "WM_CLASS", "STRING", "any" + ('\0' + className) + '\0');
        connection().setBytes(window, "WM_CLIENT_MACHINE", "STRING", machine);
        connection().setNumbers(window, "_NET_WM_PID", "CARDINAL", pid);
        xcb_map_window(connection().raw(), window);
        connection().sync();
        WindowAccess::Focused focused;
        EXPECT_TRUE(eventually([&] {
            focused = windows().focusedWindow();
            return focused.window && focused.window->number == window;
        }));
        return focused;
    }
};

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
    const auto owner = quint32(openWindow("Owner").window->number);
    const WindowElement window = *openWindow("Typed").window;
    const auto number = static_cast<xcb_window_t>(window.number);
    for (const auto &[types, isStandard, isTransient, isWindow] : cases) {
        SCOPED_TRACE(types.join(' ').constData());
        QList<quint32> atoms;
        for (const QByteArray &type : types)
            atoms << connection().atom(type.startsWith('_') ? type : "_NET_WM_WINDOW_TYPE_" + type);
        connection().setNumbers(number, "_NET_WM_WINDOW_TYPE", "ATOM", atoms);
        connection().setNumbers(number, "WM_TRANSIENT_FOR", "WINDOW", {isTransient ? owner : 0});
        connection().sync();

        EXPECT_EQ(windows().isStandard(window), isStandard);
        EXPECT_EQ(windows().isWindow(window), isWindow);
    }
}

TEST_F(X11WindowTests, aWindowWithoutAProcessHereBelongsToTheApplicationOfItsClassAndMachine)
{
    constexpr pid_t elsewhere = 0;
    TestClient other(**desk);
    const QByteArray host = QSysInfo::machineHostName().toUtf8();
    const auto self = static_cast<pid_t>(QCoreApplication::applicationPid());
    const auto otherPid = static_cast<quint32>(other.pid());
    struct Case {
        QByteArray className;
        QByteArray machine;
        QList<quint32> stated;
        pid_t pid;
    };
    const Case cases[]{
        {"PassedOnHere", host, {otherPid}, other.pid()},
        {"NotRunning", host, {0x3ffffff}, self},
        {"SilentHere", host, {}, self},
        {"WithoutMachine", {}, {otherPid}, self},
        {"OldNameOfThisMachine", "mars", {quint32(self)}, self},
        {"Mail", "mars", {otherPid}, elsewhere},
        {"Mail", "venus", {}, elsewhere},
        {"Notes", "mars", {}, elsewhere},
        {"Mail", "mars", {}, elsewhere},
    };
    QHash<QByteArray, QList<pid_t>> pids;
    for (const auto &[className, machine, stated, pid] : cases) {
        SCOPED_TRACE(className.constData());
        const auto [window, told, status] = openWindow(className, machine, stated);
        EXPECT_TRUE(pid == elsewhere ? told < -1 : told == pid) << told;
        EXPECT_EQ(windows().setPosition(*window, {30, 40}), AXError::success);
        if (pid == elsewhere) {
            EXPECT_EQ(applications().application(told)->localizedName.toUtf8(), className);
            pids[className + machine] << told;
        }
    }
    const pid_t mail = pids["Mailmars"].first();
    EXPECT_EQ(pids["Mailmars"], (QList{mail, mail}));
    EXPECT_EQ((QSet{mail, pids["Mailvenus"].first(), pids["Notesmars"].first()}).size(), 3);

    const QList<WindowElement> its = *windows().windows(mail);
    ASSERT_EQ(its.size(), 2);
    for (const WindowElement &window : its)
        xcb_destroy_window(connection().raw(), static_cast<xcb_window_t>(window.number));
    connection().sync();
    EXPECT_TRUE(eventually([&] { return !applications().application(mail); }));
}

TEST_F(X11WindowTests, aProgramIsRegularWhileTheTaskBarListsAWindowOfIt)
{
    TestClient client(**desk);
    int launches = 0;
    QObject::connect(
        &applications(), &Applications::launched, &applications(), [&] { ++launches; });
    const xcb_window_t window = client.show({});
    for (const auto &[isListed, told] : {std::pair{true, 1}, {false, 1}, {true, 2}}) {
        (*platform)->ownWindows().setListed(window, isListed);
        EXPECT_TRUE(eventually([&] {
            const auto application = applications().application(client.pid());
            return application && application->isRegular == isListed && launches == told;
        }));
    }
    client.close(window);
    EXPECT_TRUE(eventually([&] { return windows().windows(client.pid())->isEmpty(); }));

    EXPECT_TRUE(applications().application(client.pid())->isRegular);
    EXPECT_EQ(launches, 2);
}

} // namespace corvane
