#pragma once

#include "KeyMap.h"
#include "KeyPresser.h"
#include "Pager.h"
#include "PlatformContract.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"
#include "WindowRegistry.h"
#include "X11Platform.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <map>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace desktop;
using x11::numberOf;

/// The back end in this process, on a virtual desktop with a real window manager. The next world with
/// this window manager gets the same desktop.
struct X11World : ContractWorld {
    explicit X11World(const QString &windowManager) : desk(prepare(windowManager))
    {
        // What the back end opens belongs to the virtual desktop, too.
        const QProcessEnvironment &variables = desk.environment();
        for (const QString &name : variables.keys())
            qputenv(name.toUtf8().constData(), variables.value(name).toUtf8());
        backEnd = openX11Platform([] {}).value();
    }
    /// Leaves the desktop as it was. Grabbed keys go with the connection.
    ~X11World() override
    {
        backEnd.reset();
        for (const xcb_window_t window : probe.clients())
            xcb_kill_client(connection.raw(), window);
        clients.clear();
        keys.button(KeyPresser::Button::left, false);
        pager.setWorkspaceCount(1);
        QDir(entries).removeRecursively();
        unplugDisplay();
        EXPECT_TRUE(waitUntil([this] { return probe.clients().isEmpty(); }));
    }

    Platform &platform() override { return *backEnd; }

    void install(const QString &id, const QString &name, Installation::State state) override
    {
        writeEntry(entries, QStringLiteral(CORVANE_QT_TEST_CLIENT), id, name, state);
    }
    pid_t startApplication() override
    {
        auto client = std::make_unique<TestClient>(desk);
        const pid_t pid = client->pid();
        clients[pid] = std::move(client);
        return pid;
    }
    pid_t startRival() override
    {
        rival = desk.launchIdle(u"cortile"_s);
        return rival->pid();
    }
    void quitApplication(pid_t pid) override { clients.erase(pid); }
    WindowElement openWindow(pid_t pid, const WindowSpec &spec = {}) override
    {
        const xcb_window_t window = clients.at(pid)->show(requestFor(spec));

        // What a person, not the client, makes of the window.
        const bool isActive = !spec.minimised && !spec.onOtherWorkspace
            && (spec.kind == WindowKind::standard || spec.kind == WindowKind::dialog);
        if (isActive)
            pager.activate(window);
        if (spec.fullScreen)
            pager.setFullScreen(window, Pager::Change::add);
        if (spec.maximised)
            pager.setMaximized(window, Pager::Change::add);
        if (spec.minimised)
            pager.minimize(window);
        if (spec.onOtherWorkspace) {
            pager.setWorkspaceCount(2);
            const QByteArray count = "_NET_NUMBER_OF_DESKTOPS";
            EXPECT_TRUE(waitUntil(
                [&] { return connection.numbers(connection.root(), count) == QList{2u}; }));
            pager.moveToWorkspace(window, 1);
        }
        EXPECT_TRUE(waitUntil([&] {
            return (!isActive || probe.activeWindow() == window)
                && probe.hasState(window, "_NET_WM_STATE_FULLSCREEN") == spec.fullScreen
                && probe.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT") == spec.maximised
                && (!spec.minimised || probe.isMinimized(window))
                && connection.numbers(window, "_NET_WM_DESKTOP").contains(1)
                == spec.onOtherWorkspace;
        }));
        std::ignore = probe.settledFrame(window);

        WindowElement element;
        EXPECT_TRUE(eventually([&] {
            const auto known = platform().windows().windows(pid);
            for (const WindowElement &seen : known.value_or(QList<WindowElement>())) {
                if (seen.number == window && seen.generation > generations[window])
                    element = seen;
            }
            return element.number != 0 || spec.onOtherWorkspace;
        }));
        generations[window] = element.generation;
        return element;
    }
    void closeWindow(const WindowElement &window) override
    {
        const quint32 pid = connection.numbers(numberOf(window), "_NET_WM_PID").value(0);
        clients.at(pid_t(pid))->close(numberOf(window));
        EXPECT_TRUE(waitUntil([&] { return !probe.clients().contains(numberOf(window)); }));
    }
    void renameWindow(const WindowElement &window, const QString &application) override
    {
        const QByteArray part = application.toUtf8() + '\0';
        connection.setBytes(numberOf(window), "WM_CLASS", "STRING", part + part);
        connection.sync();
    }
    void focus(const WindowElement &window) override { pager.activate(numberOf(window)); }
    void drag(const WindowElement &window, Point origin) override
    {
        const Rect client = probe.clientGeometry(numberOf(window)).value_or(Rect());
        pager.moveResize(numberOf(window), {origin.x, origin.y, client.width, client.height});
    }

    void plugDisplay() override
    {
        EXPECT_TRUE(desk.displays().arrange({display, {1600, 0, 1280, 900}}));
    }
    void unplugDisplay() override
    {
        auto &displays = desk.displays();
        EXPECT_TRUE(displays.displays() == QList{display} || displays.arrange({display}));
    }
    void addPanel(const SimulatedPanel &panel) override
    {
        using enum WindowRequest::Side;
        constexpr std::array sides{top, bottom, left, right};
        std::ignore = clients.at(startApplication())
                          ->show(WindowRequest::panel(
                              display, sides[size_t(panel.edge)], int(panel.thickness), display));
    }

    void pressKey(quint16 key, quint32 modifiers) override { keys.press(stroke(key, modifiers)); }
    void holdKey(quint16 key, quint32 modifiers) override
    {
        // The server repeats after 660 ms, then 25 times a second.
        const auto never = [this] {
            pump();
            return false;
        };
        std::ignore = keys.holdUntil(stroke(key, modifiers), never, Milliseconds{1000});
    }
    void takeKeyByRival(quint16 key, quint32) override
    {
        xcb_grab_key(connection.raw(), false, connection.root(), XCB_MOD_MASK_ANY,
            *x11::keycodeFor(key), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        connection.sync();
    }
    void holdPointerButton(bool isDown) override
    {
        keys.moveTo({1500, 900});
        keys.button(KeyPresser::Button::left, isDown);
    }

    void loseTrust() override { s_manager->stop(); }
    void regainTrust() override { prepare(s_manager->name()); }

    void pump() override { QCoreApplication::processEvents(QEventLoop::AllEvents, 10); }
    void settle() override
    {
        // The back end gathers a burst of display changes for a tenth of a second.
        constexpr Milliseconds quiet{300};
        const auto reading = [this] {
            pump();
            return std::pair(probe.stacking(), probe.activeWindow());
        };
        std::ignore = settled(reading, quiet);
    }

    static VirtualDesktop &prepare(const QString &windowManager)
    {
        const bool isSame = s_manager && s_manager->name() == windowManager;
        if (isSame && s_manager->isRunning())
            return *s_desk;
        s_manager.reset();
        if (!isSame)
            s_desk = VirtualDesktop::start({.displays = {display}}).value();
        s_manager = WindowManagerProcess::start(*s_desk, windowManager).value();
        return *s_desk;
    }
    static WindowRequest requestFor(const WindowSpec &spec)
    {
        using enum WindowRequest::Kind;
        constexpr std::array kinds{
            normal, dialog, utility, splash, dock, WindowRequest::Kind::desktop};
        const Size fixed = spec.fixedSize ? spec.frame.size() : Size{};
        const QByteArray className = spec.application.toUtf8();
        return {.geometry = spec.frame,
            .title = spec.title.toUtf8(),
            .className = className.isEmpty() ? WindowRequest().className : Text(className),
            .kind = kinds[size_t(spec.kind)],
            .decorated = false,
            .hints = {.minimum = spec.fixedSize ? fixed : spec.minimum, .maximum = fixed},
            .number = static_cast<xcb_window_t>(spec.number)};
    }
    static KeyStroke stroke(quint16 keyCode, quint32 modifiers)
    {
        quint8 held = 0;
        for (const auto &[modifier, key] : {std::pair(HotKeys::controlKey, KeyStroke::control),
                 {HotKeys::optionKey, KeyStroke::alt}, {HotKeys::shiftKey, KeyStroke::shift},
                 {HotKeys::cmdKey, KeyStroke::super}})
            held |= modifiers & modifier ? key : 0;
        return {held, static_cast<Key>(*x11::keycodeFor(keyCode) - 8)};
    }

    static constexpr Rect display{0, 0, 1600, 1000};
    static inline std::unique_ptr<VirtualDesktop> s_desk;
    static inline std::unique_ptr<WindowManagerProcess> s_manager;

    VirtualDesktop &desk;
    XConnection connection{desk.displayName()};
    Pager pager{connection};
    WindowProbe probe{connection};
    KeyPresser keys{connection};
    const QString entries = desk.dataFolder() + u"/applications/"_s;
    std::map<pid_t, std::unique_ptr<TestClient>> clients;
    std::unique_ptr<ChildProcess> rival;
    std::map<quint64, quint64> generations; ///< the newest of each window number
    std::unique_ptr<Platform> backEnd;
};

} // namespace corvane
