#include "WaylandWorld.h"

#include "GnomeHand.h"
#include "GnomePlatform.h"
#include "KWinPlatform.h"
#include "PhysicalKey.h"
#include "SwayPlatform.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <stdexcept>

namespace corvane {

namespace {

constexpr std::array modifierKeys{std::pair{HotKeys::controlKey, KeyStroke::control},
    std::pair{HotKeys::optionKey, KeyStroke::alt}, std::pair{HotKeys::shiftKey, KeyStroke::shift},
    std::pair{HotKeys::cmdKey, KeyStroke::super}};

/// What is there, or the end of the test.
template <typename T>
T orFail(expected<T, QString> made)
{
    if (!made)
        throw std::runtime_error(made.error().toStdString());
    return std::move(*made);
}

class SwayWorld final : public WaylandWorld
{
public:
    SwayWorld() : WaylandWorld("sway") { }
    ~SwayWorld() override { EXPECT_TRUE(!m_hasRival || desk().reload()); }

    // sway's tree has Wayland's toplevels, whatever they are, and nothing else.
    bool tells(WindowKind kind) const override { return kind == WindowKind::standard; }
    // It believes that a window took what it was asked to.
    bool tellsLimits() const override { return false; }
    bool announcesPanels() const override { return false; }
    bool raisesWithoutFocus() const override { return false; }
    WindowState maximisedState(const Rect &, const Rect &now) const override
    {
        return {.normalFrame = now, .tiled = true};
    }

    void takeKeyByRival(quint16 key, quint32 modifiers) override
    {
        QByteArray keys;
        for (const auto &[modifier, name] :
            {std::pair(HotKeys::controlKey, "Ctrl+"), {HotKeys::optionKey, "Mod1+"},
                {HotKeys::shiftKey, "Shift+"}, {HotKeys::cmdKey, "Mod4+"}})
            keys += modifiers & modifier ? name : "";
        m_hasRival = desk().reload(u"bindcode %1%2 exec true\n"_s.arg(QLatin1StringView(keys))
                                       .arg(PhysicalKey::withVirtualKeyCode(key)->xkbKeycode()));
        EXPECT_TRUE(m_hasRival);
        settle();
    }

protected:
    void maximise(quint32 window) override { hand().tile(window); }
    bool isMaximised(const SeenWindow &window) const override { return window.isTiled; }

private:
    bool m_hasRival = false;
};

class KWinWorld final : public WaylandWorld
{
public:
    KWinWorld() : WaylandWorld("kwin") { }
    ~KWinWorld() override
    {
        if (m_hasRival)
            call(u"unregister"_s, {rival.first(), rival.at(1)});
    }

    // Only what has a parent is more than a plain window, and what is in a layer.
    bool tells(WindowKind kind) const override
    {
        return kind != WindowKind::splash && kind != WindowKind::utility;
    }
    // Nor has what is in a layer.
    bool hasTitle(WindowKind kind) const override
    {
        return kind != WindowKind::panel && kind != WindowKind::desktop;
    }
    bool bringsParentsOfDialogs() const override { return true; }
    // A dialog stays above its parent, and KWin 5.27 raises nothing at all.
    bool raisesWithoutFocus() const override { return false; }

    void takeKeyByRival(quint16, quint32 modifiers) override
    {
        int keys = Qt::Key_J;
        for (const auto &[modifier, flag] : {std::pair(HotKeys::controlKey, Qt::ControlModifier),
                 {HotKeys::optionKey, Qt::AltModifier}, {HotKeys::shiftKey, Qt::ShiftModifier},
                 {HotKeys::cmdKey, Qt::MetaModifier}})
            keys |= modifiers & modifier ? int(flag) : 0;
        constexpr uint setPresent = 2;
        constexpr uint noAutoloading = 4;
        call(u"doRegister"_s, {rival});
        call(u"setShortcut"_s,
            {rival, QVariant::fromValue(QList<int>{keys}), setPresent | noAutoloading});
        m_hasRival = true;
    }

protected:
    void maximise(quint32 window) override { hand().setMaximized(window, true); }
    bool isMaximised(const SeenWindow &window) const override { return window.isMaximized; }

private:
    void call(const QString &method, const QVariantList &arguments)
    {
        auto message = QDBusMessage::createMethodCall(
            u"org.kde.kglobalaccel"_s, u"/kglobalaccel"_s, u"org.kde.KGlobalAccel"_s, method);
        message.setArguments(arguments);
        const auto answer = QDBusConnection::sessionBus().call(message);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    }

    const QStringList rival{u"contract-rival"_s, u"hold"_s, u"Rival"_s, u"Hold"_s};
    bool m_hasRival = false;
};

class GnomeWorld final : public WaylandWorld
{
public:
    GnomeWorld() : WaylandWorld("gnome") { }
    ~GnomeWorld() override
    {
        gnome().removePanels();
        evaluate(u"global.corvaneRival && (global.display.ungrab_accelerator(global.corvaneRival),"
                 " global.corvaneRival = 0)"_s);
        if (!m_isTrusted)
            regainTrust();
    }

    // There are no layers, and only what has a parent is more than a plain window.
    bool tells(WindowKind kind) const override
    {
        return kind == WindowKind::standard || kind == WindowKind::dialog;
    }
    // The extension cannot see them.
    bool tellsLimits() const override { return false; }
    bool bringsParentsOfDialogs() const override { return true; }
    // A dialog stays above its parent.
    bool raisesWithoutFocus() const override { return false; }
    bool losesTrust() const override { return true; }

    void addPanel(const SimulatedPanel &panel) override
    {
        constexpr std::array edges{"top", "bottom", "left", "right"};
        gnome().addPanel(edges[size_t(panel.edge)], int(panel.thickness));
    }
    void takeKeyByRival(quint16, quint32 modifiers) override
    {
        QString keys;
        for (const auto &[modifier, name] :
            {std::pair(HotKeys::controlKey, "<Control>"), {HotKeys::optionKey, "<Alt>"},
                {HotKeys::shiftKey, "<Shift>"}, {HotKeys::cmdKey, "<Super>"}})
            keys += QLatin1StringView(modifiers & modifier ? name : "");
        evaluate(u"global.corvaneRival = global.display.grab_accelerator('%1j', 0)"_s.arg(keys));
    }

    void loseTrust() override { setSwitchedOn(false); }
    void regainTrust() override { setSwitchedOn(true); }

protected:
    void maximise(quint32 window) override { hand().setMaximized(window, true); }
    bool isMaximised(const SeenWindow &window) const override { return window.isMaximized; }

private:
    GnomeHand &gnome() { return static_cast<GnomeHand &>(hand()); }
    void evaluate(const QString &expression) { gnome().shell().evaluate(expression); }
    void setSwitchedOn(bool isOn)
    {
        m_isTrusted = isOn;
        evaluate(u"main.extensionManager.%1('corvane@corvane.app')"_s.arg(
            isOn ? u"enableExtension"_s : u"disableExtension"_s));
    }

    bool m_isTrusted = true;
};

QString compositorOf(const std::string &world)
{
    if (world == "gnome")
        return u"gnome-shell"_s;
    return world == "sway" ? u"sway"_s : u"kwin_wayland"_s;
}

} // namespace

WaylandWorld::WaylandWorld(const std::string &name) : m_desk(prepare(compositorOf(name)))
{
    // What the back end opens belongs to the desktop, too.
    const QProcessEnvironment &variables = m_desk.environment();
    for (const QString &variable : variables.keys())
        qputenv(variable.toUtf8().constData(), variables.value(variable).toUtf8());
    const auto open = m_desk.isSway() ? &openSwayPlatform
        : m_desk.isGnome()            ? &openGnomePlatform
                                      : &openKWinPlatform;
    m_backEnd = orFail(open([] {}));
}

WaylandWorld::~WaylandWorld()
{
    m_backEnd.reset();
    m_clients.clear();
    for (const SeenWindow &window : hand().windows())
        hand().close(window.number);
    QDir(m_entries).removeRecursively();
    unplugDisplay();
    EXPECT_TRUE(waitUntil([this] { return hand().windows().isEmpty(); }));
}

void WaylandWorld::install(const QString &id, const QString &name, Installation::State state)
{
    writeEntry(m_entries, QStringLiteral(CORVANE_QT_TEST_CLIENT), id, name, state);
}

pid_t WaylandWorld::startApplication()
{
    auto client = std::make_unique<WaylandClient>(m_desk);
    const pid_t pid = client->pid();
    m_clients[pid] = std::move(client);
    return pid;
}

pid_t WaylandWorld::startRival()
{
    m_rival = m_desk.launchIdle(u"cortile"_s);
    return m_rival->pid();
}

WindowElement WaylandWorld::openWindow(pid_t pid, const WindowSpec &spec)
{
    const WindowRequest request = requestFor(pid, spec);
    if ((spec.kind == WindowKind::panel || spec.kind == WindowKind::desktop) && !tells(spec.kind)) {
        if (m_desk.isSway()) // others have no layers
            client(pid).showPanel(request);
        return {};
    }
    const quint32 number = client(pid).show(request);
    EXPECT_NE(number, 0u);
    handle(number, spec);
    const WindowElement element = spec.onOtherWorkspace ? WindowElement() : newcomer(pid);
    m_shown[element] = {pid, number};
    return element;
}

WindowElement WaylandWorld::open(const WindowRequest &request)
{
    const pid_t pid = startApplication();
    const quint32 number = client(pid).show(request);
    const WindowElement element = newcomer(pid);
    m_shown[element] = {pid, number};
    return element;
}

void WaylandWorld::handle(quint32 number, const WindowSpec &spec)
{
    if (spec.kind == WindowKind::panel || spec.kind == WindowKind::desktop)
        return;
    const Rect &frame = spec.frame;
    EXPECT_TRUE(hand().putAt(number,
        {frame.x, frame.y, std::max(frame.width, spec.minimum.width),
            std::max(frame.height, spec.minimum.height)}));
    const bool isActive = !spec.minimised && !spec.onOtherWorkspace;
    if (isActive)
        hand().activate(number);
    if (spec.fullScreen)
        hand().setFullScreen(number, true);
    if (spec.maximised)
        maximise(number);
    if (spec.minimised)
        hand().setMinimized(number, true);
    if (spec.onOtherWorkspace)
        hand().moveElsewhere(number);
    EXPECT_TRUE(waitUntil([&] {
        const SeenWindow now = hand().window(number).value_or(SeenWindow());
        return (!isActive || now.isActive) && now.isFullScreen == spec.fullScreen
            && isMaximised(now) == spec.maximised && now.isMinimized == spec.minimised
            && now.isHere != spec.onOtherWorkspace;
    }));
    std::ignore = hand().settledFrame(number);
}

WindowElement WaylandWorld::newcomer(pid_t pid)
{
    WindowElement element;
    EXPECT_TRUE(eventually([&] {
        const auto known = platform().windows().windows(pid);
        for (const WindowElement &each : known.value_or(QList<WindowElement>())) {
            if (!m_shown.contains(each))
                element = each;
        }
        return element.number != 0;
    }));
    return element;
}

void WaylandWorld::closeWindow(const WindowElement &window)
{
    const auto [pid, number] = m_shown.at(window);
    client(pid).close(number);
    EXPECT_FALSE(hand().window(number));
}

void WaylandWorld::renameWindow(const WindowElement &window, const QString &application)
{
    const auto [pid, number] = m_shown.at(window);
    client(pid).rename(number, application.toUtf8());
}

void WaylandWorld::focus(const WindowElement &window)
{
    hand().activate(numberOf(window));
}

void WaylandWorld::drag(const WindowElement &window, Point origin)
{
    const Size size = hand().frame(numberOf(window)).size();
    hand().place(numberOf(window), {origin.x, origin.y, size.width, size.height});
}

void WaylandWorld::plugDisplay()
{
    EXPECT_TRUE(hand().arrange({display, {1600, 0, 1600, 1000}}));
}

void WaylandWorld::unplugDisplay()
{
    EXPECT_TRUE(hand().displays() == QList{display} || hand().arrange({display}));
}

void WaylandWorld::addPanel(const SimulatedPanel &panel)
{
    using enum WindowRequest::Side;
    constexpr std::array sides{top, bottom, left, right};
    client(startApplication())
        .showPanel(WindowRequest::panel(
            display, sides[size_t(panel.edge)], int(panel.thickness), display));
}

void WaylandWorld::pressKey(quint16 key, quint32 modifiers)
{
    m_desk.keys().press(stroke(key, modifiers));
}

void WaylandWorld::holdKey(quint16 key, quint32 modifiers)
{
    // Compositors repeat after 600 ms, then 25 times a second.
    const auto never = [this] {
        pump();
        return false;
    };
    std::ignore = m_desk.keys().holdUntil(stroke(key, modifiers), never, Milliseconds{1000});
}

void WaylandWorld::pump()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void WaylandWorld::settle()
{
    // The back end gathers a burst of display changes for a tenth of a second.
    constexpr Milliseconds quiet{300};
    const auto reading = [this] {
        pump();
        return hand().windows();
    };
    std::ignore = settled(reading, quiet);
}

WaylandDesktop &WaylandWorld::prepare(const QString &compositor)
{
    const bool isThere = s_desk && s_compositor == compositor && s_desk->compositor().isRunning();
    if (!isThere) {
        s_desk.reset();
        s_compositor = compositor;
        s_desk = orFail(WaylandDesktop::start({.compositor = compositor, .displays = {display}}));
    }
    return *s_desk;
}

WindowRequest WaylandWorld::requestFor(pid_t pid, const WindowSpec &spec)
{
    using enum WindowRequest::Kind;
    constexpr std::array kinds{normal, dialog, utility, splash, dock, WindowRequest::Kind::desktop};
    const Size fixed = spec.fixedSize ? spec.frame.size() : Size{};
    WindowRequest request{.geometry = spec.frame,
        .title = spec.title.toUtf8(),
        .kind = kinds[size_t(spec.kind)],
        .decorated = false,
        .hints = {.minimum = spec.fixedSize ? fixed : spec.minimum, .maximum = fixed},
        .takesKeys = tells(WindowKind::panel)};
    if (!spec.application.isEmpty())
        request.className = spec.application.toUtf8();
    const QList<quint32> others = hand().windowsOf(pid);
    if (spec.kind == WindowKind::dialog && !others.isEmpty())
        request.transientFor = others.first();
    return request;
}

KeyStroke WaylandWorld::stroke(quint16 key, quint32 modifiers)
{
    quint8 held = 0;
    for (const auto &[modifier, bit] : modifierKeys)
        held |= modifiers & modifier ? bit : 0;
    return {held, Key(PhysicalKey::withVirtualKeyCode(key)->evdevCode)};
}

std::unique_ptr<ContractWorld> ContractWorld::make(const std::string &name)
{
    if (name == "gnome")
        return std::make_unique<GnomeWorld>();
    if (name == "sway")
        return std::make_unique<SwayWorld>();
    return std::make_unique<KWinWorld>();
}

INSTANTIATE_TEST_SUITE_P(Wayland, PlatformContract, testing::Values("sway", "kwin", "gnome"),
    [](const auto &each) { return each.param; });

} // namespace corvane
