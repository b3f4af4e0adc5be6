#include "X11Desk.h"

namespace corvane {

using namespace desktop;

namespace {

struct X11WindowTests : X11Desk {
    /// A window of this process that says of itself what is given.
    xcb_window_t openWindow(
        const QByteArray &className, const QByteArray &machine, QList<quint32> pid)
    {
        XConnection &connection = (*desk)->connection();
        const xcb_window_t window = xcb_generate_id(connection.raw());
        xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0,
            200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        connection.setBytes(window, "WM_CLASS", "STRING", "any" + ('\0' + className) + '\0');
        connection.setBytes(window, "WM_CLIENT_MACHINE", "STRING", machine);
        connection.setNumbers(window, "_NET_WM_PID", "CARDINAL", pid);
        xcb_map_window(connection.raw(), window);
        connection.sync();
        EXPECT_TRUE(eventually([&] {
            const auto focused = windows().focusedWindow();
            return focused.window && focused.window->number == window;
        }));
        return window;
    }

    WindowAccess &windows() { return (*platform)->windows(); }
    Applications &applications() { return (*platform)->applications(); }
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
    TestClient client(**desk);
    XConnection &connection = (*desk)->connection();
    const xcb_window_t owner = client.show({});
    const xcb_window_t number = client.show({});
    EXPECT_TRUE(eventually([&] { return windows().windows(client.pid())->size() == 2; }));
    const WindowElement window = windows().windows(client.pid())->first();
    ASSERT_EQ(window.number, number);
    for (const auto &[types, isStandard, isTransient, isWindow] : cases) {
        SCOPED_TRACE(types.join(' ').constData());
        QList<quint32> atoms;
        for (const QByteArray &type : types)
            atoms << connection.atom(type.startsWith('_') ? type : "_NET_WM_WINDOW_TYPE_" + type);
        connection.setNumbers(number, "_NET_WM_WINDOW_TYPE", "ATOM", atoms);
        connection.setNumbers(number, "WM_TRANSIENT_FOR", "WINDOW", {isTransient ? owner : 0u});
        connection.sync();

        EXPECT_EQ(windows().isStandard(window), isStandard);
        EXPECT_EQ(windows().isWindow(window), isWindow);
    }
}

TEST_F(X11WindowTests, aProcessNumberCountsOnTheMachineThatItsWindowNames)
{
    struct Case {
        const char *name;
        QByteArray machine;
        QList<quint32> stated;
        std::optional<pid_t> pid;
    };
    TestClient other(**desk);
    const QByteArray host = QSysInfo::machineHostName().toUtf8();
    const auto self = static_cast<pid_t>(QCoreApplication::applicationPid());
    const auto otherPid = static_cast<quint32>(other.pid());
    const Case cases[]{
        {"one that is passed on here", host, {otherPid}, other.pid()},
        {"one that does not run", host, {0x3ffffff}, self},
        {"none here", host, {}, self},
        {"one without a machine", {}, {otherPid}, self},
        {"its own under another name of this machine", "mars", {quint32(self)}, self},
        {"one of another machine", "mars", {otherPid}, std::nullopt},
        {"none of another machine", "mars", {}, std::nullopt},
    };
    for (const auto &[name, machine, stated, pid] : cases) {
        SCOPED_TRACE(name);
        std::ignore = openWindow("Mail", machine, stated);

        const pid_t told = windows().focusedWindow().pid;
        if (pid)
            EXPECT_EQ(told, *pid);
        else
            EXPECT_LT(told, -1);
    }
}

TEST_F(X11WindowTests, windowsFromElsewhereBelongToTheApplicationOfTheirClassAndMachine)
{
    QHash<QByteArray, pid_t> pids;
    QList<xcb_window_t> numbers;
    for (const auto &[name, machine] :
        {std::pair{"Mail", "mars"}, {"Mail", "venus"}, {"Notes", "mars"}, {"Mail", "mars"}}) {
        numbers << openWindow(name, machine, {});
        const auto focused = windows().focusedWindow();
        const auto application = applications().application(focused.pid);
        ASSERT_TRUE(application);
        EXPECT_EQ(application->localizedName, QLatin1StringView(name));
        EXPECT_TRUE(application->isRegular);
        EXPECT_EQ(windows().setPosition(*focused.window, {30, 40}), AXError::success);
        const QByteArray key = QByteArray(name) + machine;
        EXPECT_EQ(pids.value(key, focused.pid), focused.pid);
        pids[key] = focused.pid;
    }
    EXPECT_EQ(QSet<pid_t>(pids.cbegin(), pids.cend()).size(), 3);
    const pid_t marsMail = pids["Mailmars"];
    EXPECT_EQ(windows().windows(marsMail)->size(), 2);

    QList<pid_t> ended;
    QObject::connect(&applications(), &Applications::terminated, &applications(),
        [&](pid_t pid) { ended << pid; });
    for (const xcb_window_t window : {numbers[0], numbers[3]})
        xcb_destroy_window((*desk)->connection().raw(), window);
    (*desk)->connection().sync();
    EXPECT_TRUE(eventually([&] { return ended == QList{marsMail}; }));
    applications().quit(marsMail);
    EXPECT_EQ(applications().application(marsMail), std::nullopt);
}

TEST_F(X11WindowTests, aProgramIsRegularWhileTheTaskBarListsAWindowOfIt)
{
    TestClient client(**desk);
    int launches = 0;
    QObject::connect(
        &applications(), &Applications::launched, &applications(), [&] { ++launches; });
    const xcb_window_t window = client.show({});
    const auto becomesRegular = [&](bool isRegular) {
        return eventually([&] {
            const auto application = applications().application(client.pid());
            return application && application->isRegular == isRegular;
        });
    };

    EXPECT_TRUE(becomesRegular(true));
    (*platform)->session().setListed(window, false);
    EXPECT_TRUE(becomesRegular(false));
    (*platform)->session().setListed(window, true);
    EXPECT_TRUE(becomesRegular(true));
    client.close(window);
    EXPECT_TRUE(eventually([&] { return windows().windows(client.pid())->isEmpty(); }));

    EXPECT_TRUE(applications().application(client.pid())->isRegular);
    EXPECT_EQ(launches, 2);
}

} // namespace corvane
