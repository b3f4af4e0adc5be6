#include "KeyMap.h"
#include "KeyPresser.h"
#include "Pager.h"
#include "PlatformContract.h"
#include "PointerPresser.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "X11Platform.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <map>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const Rect display{0, 0, 1600, 1000};
const Rect secondDisplay{1600, 0, 1280, 900};

/// The back end in this process, on a virtual desktop with a real window manager.
class X11World final : public ContractWorld
{
public:
    explicit X11World(QString windowManager);

    Platform &platform() override { return *m_platform; }
    bool can(Ability ability) const override { return ability != Ability::otherWorkspaces; }

    void install(
        const QString &bundleIdentifier, const QString &name, Installation::State state) override;
    pid_t startApplication() override;
    pid_t startRival() override
    {
        m_rival = m_desktop->launchIdle(u"cortile"_s);
        return m_rival->pid();
    }
    void quitApplication(pid_t pid) override { m_clients.erase(pid); }
    WindowElement openWindow(pid_t pid, const ContractWindow &window) override;
    WindowElement openWindowNumbered(pid_t pid, quint64 number) override;
    void closeWindow(const WindowElement &window) override;
    void renameWindow(const WindowElement &window, const QString &application) override;
    void focus(const WindowElement &window) override;
    void drag(const WindowElement &window, Point origin) override;

    void plugDisplay() override
    {
        EXPECT_TRUE(m_desktop->displays().arrange({display, secondDisplay}));
    }
    void unplugDisplay() override { EXPECT_TRUE(m_desktop->displays().unplug(1)); }
    void addPanel(Edge edge, double thickness) override;

    void pressKey(quint16 keyCode, quint32 modifiers) override
    {
        m_keys->press(stroke(keyCode, modifiers));
    }
    void holdKey(quint16 keyCode, quint32 modifiers) override;
    void takeKeyByRival(quint16 keyCode, quint32 modifiers) override;
    quint16 missingKey() override { return 52; }

    void holdPointerButton(bool isDown) override
    {
        PointerPresser pointer(m_desktop->connection());
        pointer.moveTo({1500, 900});
        if (isDown)
            pointer.press(PointerPresser::Button::left);
        else
            pointer.release(PointerPresser::Button::left);
    }

    void loseTrust() override { m_windowManager->stop(); }
    void regainTrust() override { startWindowManager(); }

    void pump() override { QCoreApplication::processEvents(QEventLoop::AllEvents, 10); }
    void settle() override;

private:
    void startWindowManager();
    [[nodiscard]] static KeyStroke stroke(quint16 keyCode, quint32 modifiers);
    [[nodiscard]] WindowElement known(pid_t pid, xcb_window_t window, quint64 olderThan = 0);
    void apply(const ContractWindow &wanted, xcb_window_t window);

    QString m_windowManagerName;
    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<WindowManagerProcess> m_windowManager;
    std::unique_ptr<Pager> m_pager;
    std::unique_ptr<WindowProbe> m_probe;
    std::unique_ptr<KeyPresser> m_keys;
    std::map<pid_t, std::unique_ptr<TestClient>> m_clients;
    std::unique_ptr<ChildProcess> m_rival;
    std::map<quint64, quint64> m_generations; ///< the newest of each window number
    std::unique_ptr<Platform> m_platform;
};

X11World::X11World(QString windowManager) : m_windowManagerName(std::move(windowManager))
{
    auto desk = VirtualDesktop::start({DisplayServer::Kind::hotplug, {display}});
    if (!desk)
        qFatal("%s", qUtf8Printable(desk.error()));
    m_desktop = std::move(*desk);
    m_pager = std::make_unique<Pager>(m_desktop->connection());
    m_probe = std::make_unique<WindowProbe>(m_desktop->connection());
    m_keys = std::make_unique<KeyPresser>(m_desktop->connection());
    startWindowManager();
    // What the back end opens belongs to the virtual desktop, too.
    const QProcessEnvironment &variables = m_desktop->environment();
    for (const QString &name : variables.keys())
        qputenv(name.toUtf8().constData(), variables.value(name).toUtf8());
    auto opened = openX11Platform([] {});
    if (!opened)
        qFatal("%s", qUtf8Printable(opened.error()));
    m_platform = std::move(*opened);
}

void X11World::startWindowManager()
{
    m_windowManager.reset();
    auto started = WindowManagerProcess::start(*m_desktop, m_windowManagerName);
    if (!started)
        qFatal("%s", qUtf8Printable(started.error()));
    m_windowManager = std::move(*started);
}

void X11World::install(
    const QString &bundleIdentifier, const QString &name, Installation::State state)
{
    QString text =
        u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nStartupWMClass=%3\n"_s.arg(name,
            state == Installation::State::broken ? u"no-such-program"_s
                                                 : QStringLiteral(CORVANE_QT_TEST_CLIENT),
            u"corvane-test-qtclient"_s);
    if (state == Installation::State::hidden)
        text += u"NoDisplay=true\n"_s;
    const QString folder = m_desktop->folder() + u"/home/.local/share/applications/"_s;
    QDir().mkpath(folder);
    QFile file(folder + bundleIdentifier + u".desktop"_s);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0);
}

pid_t X11World::startApplication()
{
    auto client = std::make_unique<TestClient>(*m_desktop);
    const pid_t pid = client->pid();
    m_clients[pid] = std::move(client);
    return pid;
}

WindowElement X11World::openWindow(pid_t pid, const ContractWindow &wanted)
{
    WindowRequest request;
    request.geometry = wanted.frame;
    request.title = wanted.title.toUtf8();
    request.decorated = false;
    if (!wanted.application.isEmpty())
        request.className = wanted.application.toUtf8();
    request.hints.minimum = wanted.minimum.value_or(Size{});
    if (wanted.fixedSize)
        request.hints.minimum = request.hints.maximum = wanted.frame.size();
    if (wanted.kind == ContractWindow::Kind::dialog)
        request.kind = WindowRequest::Kind::dialog;
    else if (wanted.kind == ContractWindow::Kind::splash)
        request.kind = WindowRequest::Kind::splash;
    else if (wanted.kind == ContractWindow::Kind::panel)
        request.kind = WindowRequest::Kind::dock;
    else if (wanted.kind == ContractWindow::Kind::desktop)
        request.kind = WindowRequest::Kind::desktop;
    const xcb_window_t window = m_clients.at(pid)->show(request);
    apply(wanted, window);
    return known(pid, window);
}

void X11World::apply(const ContractWindow &wanted, xcb_window_t window)
{
    const bool takesFocus = wanted.kind == ContractWindow::Kind::standard
        || wanted.kind == ContractWindow::Kind::dialog;
    if (takesFocus && !wanted.minimised) {
        m_pager->activate(window);
        EXPECT_TRUE(desktop::waitUntil([&] { return m_probe->activeWindow() == window; }));
    }
    if (wanted.fullScreen) {
        m_pager->setFullScreen(window, Pager::Change::add);
        EXPECT_TRUE(desktop::waitUntil(
            [&] { return m_probe->hasState(window, "_NET_WM_STATE_FULLSCREEN"); }));
    }
    if (wanted.maximised) {
        m_pager->setMaximized(window, Pager::Change::add);
        EXPECT_TRUE(desktop::waitUntil(
            [&] { return m_probe->hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"); }));
    }
    if (wanted.minimised) {
        m_pager->minimize(window);
        EXPECT_TRUE(desktop::waitUntil([&] { return m_probe->isMinimized(window); }));
    }
    std::ignore = m_probe->settledFrame(window);
}

WindowElement X11World::openWindowNumbered(pid_t pid, quint64 number)
{
    WindowRequest request;
    request.number = static_cast<xcb_window_t>(number);
    return known(pid, m_clients.at(pid)->show(request), m_generations[number]);
}

/// The back end's identity of a window, once it has seen it.
WindowElement X11World::known(pid_t pid, xcb_window_t window, quint64 olderThan)
{
    WindowElement element;
    EXPECT_TRUE(ContractWorld::waitUntil([&] {
        const auto windows = platform().windows().windows(pid);
        for (const WindowElement &seen : windows.value_or(QList<WindowElement>())) {
            if (seen.number == window && seen.generation > olderThan)
                element = seen;
        }
        return element.number != 0;
    }));
    m_generations[element.number] = element.generation;
    return element;
}

void X11World::closeWindow(const WindowElement &window)
{
    const auto number = static_cast<xcb_window_t>(window.number);
    for (const auto &[pid, client] : m_clients) {
        if (m_probe->hasProcess(number, pid))
            client->close(number);
    }
    EXPECT_TRUE(desktop::waitUntil([&] { return !m_probe->clients().contains(number); }));
}

void X11World::renameWindow(const WindowElement &window, const QString &application)
{
    const QByteArray part = application.toUtf8() + '\0';
    m_desktop->connection().setBytes(
        static_cast<xcb_window_t>(window.number), "WM_CLASS", "STRING", part + part);
    m_desktop->connection().sync();
}

void X11World::focus(const WindowElement &window)
{
    const auto number = static_cast<xcb_window_t>(window.number);
    m_pager->activate(number);
    // A panel need not take the focus; whoever asks sees what the window manager made of it.
    static_cast<void>(
        desktop::waitUntil([&] { return m_probe->activeWindow() == number; }, Milliseconds(500)));
}

void X11World::drag(const WindowElement &window, Point origin)
{
    const auto number = static_cast<xcb_window_t>(window.number);
    const Size size = m_probe->clientGeometry(number).value_or(Rect()).size();
    m_pager->moveResize(number, {origin.x, origin.y, size.width, size.height});
}

void X11World::addPanel(Edge edge, double thickness)
{
    using enum WindowRequest::Side;
    constexpr std::array sides{top, bottom, left, right};
    const auto request = WindowRequest::panel(
        display, sides[static_cast<size_t>(edge)], static_cast<int>(thickness), display);
    std::ignore = m_clients.at(startApplication())->show(request);
}

KeyStroke X11World::stroke(quint16 keyCode, quint32 modifiers)
{
    quint8 held = 0;
    if (modifiers & HotKeys::controlKey)
        held |= KeyStroke::control;
    if (modifiers & HotKeys::optionKey)
        held |= KeyStroke::alt;
    if (modifiers & HotKeys::shiftKey)
        held |= KeyStroke::shift;
    if (modifiers & HotKeys::cmdKey)
        held |= KeyStroke::super;
    return {held, static_cast<Key>(*x11::keycodeFor(keyCode) - 8)};
}

void X11World::holdKey(quint16 keyCode, quint32 modifiers)
{
    // The server repeats after 660 ms, then 25 times a second.
    const auto start = std::chrono::steady_clock::now();
    std::ignore = m_keys->holdUntil(stroke(keyCode, modifiers), [&] {
        pump();
        return std::chrono::steady_clock::now() - start > std::chrono::seconds(1);
    });
}

void X11World::takeKeyByRival(quint16 keyCode, quint32 modifiers)
{
    const KeyStroke keys = stroke(keyCode, modifiers);
    quint16 bits = 0;
    if (keys.modifiers & KeyStroke::control)
        bits |= XCB_MOD_MASK_CONTROL;
    if (keys.modifiers & KeyStroke::alt)
        bits |= XCB_MOD_MASK_1;
    if (keys.modifiers & KeyStroke::shift)
        bits |= XCB_MOD_MASK_SHIFT;
    if (keys.modifiers & KeyStroke::super)
        bits |= XCB_MOD_MASK_4;
    XConnection &rival = m_desktop->connection();
    xcb_grab_key(rival.raw(), false, rival.root(), bits, *x11::keycodeFor(keyCode),
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    rival.sync();
}

void X11World::settle()
{
    // The back end gathers a burst of display changes for a tenth of a second.
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
    static_cast<void>(
        ContractWorld::waitUntil([end] { return std::chrono::steady_clock::now() > end; }));
}

} // namespace

INSTANTIATE_TEST_SUITE_P(X11, PlatformContract,
    testing::Values(
        ContractWorldFactory{"openbox", [] { return std::make_unique<X11World>(u"openbox"_s); }},
        ContractWorldFactory{"marco", [] { return std::make_unique<X11World>(u"marco"_s); }}),
    PlatformContract::nameOf);

} // namespace corvane
