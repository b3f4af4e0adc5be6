#include "PlatformContract.h"
#include "SimulatedPlatform.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The ways in which the simulated desktop may keep the contract.
enum class Manner { immediate, thrifty, resizingLate };

class SimulatedWorld final : public ContractWorld
{
public:
    explicit SimulatedWorld(Manner manner) : m_manner(manner)
    {
        m_desktop.holdsSizes = m_desktop.sharesReads = manner == Manner::thrifty;
        m_primary = m_desktop.plug({.frame = {0, 0, 1440, 900}, .name = u"Built-in"_s});
        m_keys.removeKey(missingKey);
    }

    Platform &platform() override { return m_platform; }

    void install(const QString &id, const QString &name, Installation::State state) override
    {
        m_desktop.install({id, name, state, {WindowSpec{}}});
    }
    pid_t startApplication() override { return m_desktop.start(u"org.example.App"_s, u"App"_s); }
    pid_t startRival() override
    {
        const pid_t pid = startApplication();
        m_desktop.application(pid).isRival = true;
        return pid;
    }
    void quitApplication(pid_t pid) override { m_desktop.quit(pid); }
    WindowElement openWindow(pid_t pid, const ContractWindow &window) override;
    void closeWindow(const WindowElement &window) override { m_desktop.closeWindow(window); }
    void renameWindow(const WindowElement &window, const QString &application) override
    {
        m_desktop.renameWindow(window, application);
    }
    void focus(const WindowElement &window) override { m_desktop.focus(window); }
    void drag(const WindowElement &window, Point origin) override
    {
        m_desktop.moveWindow(m_desktop.window(window), origin);
    }

    void plugDisplay() override { m_second = m_desktop.plug({{1440, -100, 1920, 1080}}); }
    void unplugDisplay() override { m_desktop.unplug(m_second); }
    void addPanel(Edge edge, double thickness) override
    {
        using enum SimulatedPanel::Edge;
        constexpr std::array edges{top, bottom, left, right};
        m_desktop.addPanel(m_primary, {edges[int(edge)], thickness});
    }

    void pressKey(quint16 key, quint32 modifiers) override { m_keys.press(key, modifiers); }
    void holdKey(quint16 key, quint32 modifiers) override
    {
        for (int repeat = 0; repeat < 3; ++repeat)
            m_keys.keyDown(key, modifiers);
        m_keys.keyUp(key);
    }
    void takeKeyByRival(quint16 key, quint32 modifiers) override
    {
        m_keys.takeByRival(key, modifiers);
    }
    void holdPointerButton(bool isDown) override { m_platform.session().isButtonDown = isDown; }

    void loseTrust() override { m_desktop.loseTrust(); }
    void regainTrust() override { m_desktop.regainTrust(); }

    void pump() override { m_platform.manualClock().advance(10ms); }
    void settle() override { m_platform.manualClock().advance(1s); }

private:
    Manner m_manner;
    SimulatedPlatform m_platform;
    SimulatedDesktop &m_desktop = m_platform.desktop();
    SimulatedHotKeys &m_keys = m_platform.hotKeys();
    quint32 m_primary = 0;
    quint32 m_second = 0;
};

WindowElement SimulatedWorld::openWindow(pid_t pid, const ContractWindow &window)
{
    using enum WindowKind;
    constexpr std::array kinds{standard, dialog, splash, panel, desktop};
    return m_desktop.openWindow(pid,
        {.title = window.title,
            .frame = window.frame,
            .kind = kinds[int(window.kind)],
            .minimum = window.minimum.value_or(Size{1, 1}),
            .fixedSize = window.fixedSize,
            .resizesAfter = m_manner == Manner::resizingLate ? 120ms : 0ms,
            .application = window.application,
            .fullScreen = window.fullScreen,
            .maximised = window.maximised,
            .minimised = window.minimised,
            .onOtherWorkspace = window.onOtherWorkspace,
            .number = window.number});
}

ContractWorldFactory factory(const char *name, Manner manner)
{
    return {name, [manner] { return std::make_unique<SimulatedWorld>(manner); }};
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, PlatformContract,
    testing::Values(factory("immediate", Manner::immediate), factory("thrifty", Manner::thrifty),
        factory("resizingLate", Manner::resizingLate)),
    PlatformContract::nameOf);

} // namespace corvane
