#include "KeyMap.h"
#include "KeyPresser.h"
#include "Pager.h"
#include "PlatformContract.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "X11Platform.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <map>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const Rect display{0, 0, 1600, 1000};

template <typename Value>
Value orEnd(expected<Value, QString> value)
{
    if (!value)
        qFatal("%s", qUtf8Printable(value.error()));
    return std::move(*value);
}

xcb_window_t numberOf(const WindowElement &window)
{
    return static_cast<xcb_window_t>(window.number);
}

KeyStroke stroke(quint16 keyCode, quint32 modifiers)
{
    quint8 held = 0;
    for (const auto &[modifier, key] :
        {std::pair(HotKeys::controlKey, KeyStroke::control), {HotKeys::optionKey, KeyStroke::alt},
            {HotKeys::shiftKey, KeyStroke::shift}, {HotKeys::cmdKey, KeyStroke::super}})
        held |= modifiers & modifier ? key : 0;
    return {held, static_cast<Key>(*x11::keycodeFor(keyCode) - 8)};
}

/// The back end in this process, on a virtual desktop with a real window manager.
class X11World final : public ContractWorld
{
public:
    explicit X11World(QString windowManager);

    Platform &platform() override { return *m_platform; }

    void install(const QString &id, const QString &name, Installation::State state) override;
    pid_t startApplication() override
    {
        auto client = std::make_unique<TestClient>(*m_desktop);
        const pid_t pid = client->pid();
        m_clients[pid] = std::move(client);
        return pid;
    }
    pid_t startRival() override
    {
        m_rival = m_desktop->launchIdle(u"cortile"_s);
        return m_rival->pid();
    }
    void quitApplication(pid_t pid) override { m_clients.erase(pid); }
    WindowElement openWindow(pid_t pid, const ContractWindow &window) override;
    void closeWindow(const WindowElement &window) override;
    void renameWindow(const WindowElement &window, const QString &application) override
    {
        const QByteArray part = application.toUtf8() + '\0';
        m_connection.setBytes(numberOf(window), "WM_CLASS", "STRING", part + part);
        m_connection.sync();
    }
    void focus(const WindowElement &window) override { m_pager.activate(numberOf(window)); }
    void drag(const WindowElement &window, Point origin) override
    {
        const Rect client = m_probe.clientGeometry(numberOf(window)).value_or(Rect());
        m_pager.moveResize(numberOf(window), {origin.x, origin.y, client.width, client.height});
    }

    void plugDisplay() override
    {
        EXPECT_TRUE(m_desktop->displays().arrange({display, {1600, 0, 1280, 900}}));
    }
    void unplugDisplay() override { EXPECT_TRUE(m_desktop->displays().arrange({display})); }
    void addPanel(Edge edge, double thickness) override;

    void pressKey(quint16 key, quint32 modifiers) override { m_keys.press(stroke(key, modifiers)); }
    void holdKey(quint16 keyCode, quint32 modifiers) override;
    void takeKeyByRival(quint16 keyCode, quint32 modifiers) override;
    void holdPointerButton(bool isDown) override
    {
        m_keys.moveTo({1500, 900});
        m_keys.button(KeyPresser::Button::left, isDown);
    }

    void loseTrust() override { m_windowManager->stop(); }
    void regainTrust() override { startWindowManager(); }

    void pump() override { QCoreApplication::processEvents(QEventLoop::AllEvents, 10); }
    void settle() override;

private:
    void startWindowManager()
    {
        m_windowManager.reset();
        m_windowManager = orEnd(WindowManagerProcess::start(*m_desktop, m_windowManagerName));
    }
    void bringAbout(const ContractWindow &wanted, xcb_window_t window);

    QString m_windowManagerName;
    std::unique_ptr<VirtualDesktop> m_desktop =
        orEnd(VirtualDesktop::start({.displays = {display}}));
    XConnection &m_connection = m_desktop->connection();
    std::unique_ptr<WindowManagerProcess> m_windowManager;
    Pager m_pager{m_connection};
    WindowProbe m_probe{m_connection};
    KeyPresser m_keys{m_connection};
    std::map<pid_t, std::unique_ptr<TestClient>> m_clients;
    std::unique_ptr<ChildProcess> m_rival;
    std::map<quint64, quint64> m_generations; ///< the newest of each window number
    std::unique_ptr<Platform> m_platform;
};

X11World::X11World(QString windowManager) : m_windowManagerName(std::move(windowManager))
{
    startWindowManager();
    // What the back end opens belongs to the virtual desktop, too.
    const QProcessEnvironment &variables = m_desktop->environment();
    for (const QString &name : variables.keys())
        qputenv(name.toUtf8().constData(), variables.value(name).toUtf8());
    m_platform = orEnd(openX11Platform([] {}));
}

void X11World::install(const QString &id, const QString &name, Installation::State state)
{
    const bool isBroken = state == Installation::State::broken;
    const QString text =
        u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nNoDisplay=%3\n"
        "StartupWMClass=corvane-test-qtclient\n"_s.arg(name,
            isBroken ? u"no-such-program"_s : QStringLiteral(CORVANE_QT_TEST_CLIENT),
            state == Installation::State::hidden ? u"true"_s : u"false"_s);
    const QString folder = m_desktop->folder() + u"/home/.local/share/applications/"_s;
    QDir().mkpath(folder);
    QFile file(folder + id + u".desktop"_s);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0);
}

WindowElement X11World::openWindow(pid_t pid, const ContractWindow &wanted)
{
    using enum WindowRequest::Kind;
    constexpr std::array kinds{normal, dialog, splash, dock, WindowRequest::Kind::desktop};
    WindowRequest request;
    request.geometry = wanted.frame;
    request.title = wanted.title.toUtf8();
    request.decorated = false;
    request.kind = kinds[size_t(wanted.kind)];
    request.number = static_cast<xcb_window_t>(wanted.number);
    if (!wanted.application.isEmpty())
        request.className = wanted.application.toUtf8();
    request.hints.minimum = wanted.minimum.value_or(Size{});
    if (wanted.fixedSize)
        request.hints.minimum = request.hints.maximum = wanted.frame.size();
    const xcb_window_t window = m_clients.at(pid)->show(request);
    bringAbout(wanted, window);

    WindowElement element;
    EXPECT_TRUE(desktop::waitUntil([&] {
        pump();
        const auto known = platform().windows().windows(pid);
        for (const WindowElement &seen : known.value_or(QList<WindowElement>())) {
            if (seen.number == window && seen.generation > m_generations[window])
                element = seen;
        }
        return element.number != 0 || wanted.onOtherWorkspace;
    }));
    m_generations[window] = element.generation;
    return element;
}

/// What a person, not the client, makes of the window.
void X11World::bringAbout(const ContractWindow &wanted, xcb_window_t window)
{
    const auto becomes = [](auto &&condition) { EXPECT_TRUE(desktop::waitUntil(condition)); };
    const bool takesFocus = wanted.kind == ContractWindow::Kind::standard
        || wanted.kind == ContractWindow::Kind::dialog;
    if (takesFocus && !wanted.minimised && !wanted.onOtherWorkspace) {
        m_pager.activate(window);
        becomes([&] { return m_probe.activeWindow() == window; });
    }
    if (wanted.fullScreen) {
        m_pager.setFullScreen(window, Pager::Change::add);
        becomes([&] { return m_probe.hasState(window, "_NET_WM_STATE_FULLSCREEN"); });
    }
    if (wanted.maximised) {
        m_pager.setMaximized(window, Pager::Change::add);
        becomes([&] { return m_probe.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"); });
    }
    if (wanted.minimised) {
        m_pager.minimize(window);
        becomes([&] { return m_probe.isMinimized(window); });
    }
    if (wanted.onOtherWorkspace) {
        m_pager.setWorkspaceCount(2);
        const auto number = [this](xcb_window_t of, const char *what) {
            return m_connection.numbers(of, what).value(0);
        };
        becomes([&] { return number(m_connection.root(), "_NET_NUMBER_OF_DESKTOPS") == 2; });
        m_pager.moveToWorkspace(window, 1);
        becomes([&] { return number(window, "_NET_WM_DESKTOP") == 1; });
    }
    std::ignore = m_probe.settledFrame(window);
}

void X11World::closeWindow(const WindowElement &window)
{
    for (const auto &[pid, client] : m_clients) {
        if (m_probe.hasProcess(numberOf(window), pid))
            client->close(numberOf(window));
    }
    EXPECT_TRUE(desktop::waitUntil([&] { return !m_probe.clients().contains(numberOf(window)); }));
}

void X11World::addPanel(Edge edge, double thickness)
{
    using enum WindowRequest::Side;
    constexpr std::array sides{top, bottom, left, right};
    std::ignore = m_clients.at(startApplication())
                      ->show(WindowRequest::panel(
                          display, sides[size_t(edge)], static_cast<int>(thickness), display));
}

void X11World::holdKey(quint16 keyCode, quint32 modifiers)
{
    // The server repeats after 660 ms, then 25 times a second.
    const QDeadlineTimer repeated(1000);
    std::ignore = m_keys.holdUntil(stroke(keyCode, modifiers), [&] {
        pump();
        return repeated.hasExpired();
    });
}

void X11World::takeKeyByRival(quint16 keyCode, quint32 modifiers)
{
    quint16 bits = 0;
    for (const auto &[modifier, bit] :
        {std::pair(HotKeys::controlKey, XCB_MOD_MASK_CONTROL), {HotKeys::optionKey, XCB_MOD_MASK_1},
            {HotKeys::shiftKey, XCB_MOD_MASK_SHIFT}, {HotKeys::cmdKey, XCB_MOD_MASK_4}})
        bits |= modifiers & modifier ? bit : 0;
    xcb_grab_key(m_connection.raw(), false, m_connection.root(), bits, *x11::keycodeFor(keyCode),
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    m_connection.sync();
}

void X11World::settle()
{
    // The back end gathers a burst of display changes for a tenth of a second.
    std::ignore = desktop::settled(
        [this] {
            pump();
            return std::pair(m_probe.stacking(), m_probe.activeWindow());
        },
        Milliseconds{300});
}

ContractWorldFactory under(const char *windowManager)
{
    return {windowManager,
        [windowManager] { return std::make_unique<X11World>(QString::fromLatin1(windowManager)); }};
}

} // namespace

INSTANTIATE_TEST_SUITE_P(X11, PlatformContract,
    testing::Values(under("openbox"), under("xfwm4"), under("marco"), under("kwin_x11")),
    PlatformContract::nameOf);

} // namespace corvane
