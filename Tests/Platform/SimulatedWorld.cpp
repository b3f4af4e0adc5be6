#include "PlatformContract.h"
#include "SimulatedPlatform.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The simulated desktop, in one of the manners in which it may keep the contract.
class SimulatedWorld final : public ContractWorld
{
public:
    explicit SimulatedWorld(const std::string &manner)
        : m_resizesAfter(manner == "resizingLate" ? 120ms : 0ms)
    {
        m_desktop.holdsSizes = m_desktop.sharesReads = manner == "thrifty";
        m_desktop.plug({.frame = {0, 0, 1440, 900}, .name = u"Built-in"_s});
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
    WindowElement openWindow(pid_t pid, const WindowSpec &spec) override
    {
        WindowSpec ours = spec;
        ours.resizesAfter = m_resizesAfter;
        return m_desktop.openWindow(pid, ours);
    }
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

    void plugDisplay() override { m_desktop.plug({{1440, -100, 1920, 1080}}); }
    void unplugDisplay() override { m_desktop.unplug(m_desktop.screens().last().displayID); }
    void addPanel(const SimulatedPanel &panel) override
    {
        m_desktop.addPanel(m_desktop.screens().first().displayID, panel);
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
    Clock::Duration m_resizesAfter;
    SimulatedPlatform m_platform;
    SimulatedDesktop &m_desktop = m_platform.desktop();
    SimulatedHotKeys &m_keys = m_platform.hotKeys();
};

} // namespace

std::unique_ptr<ContractWorld> ContractWorld::make(const std::string &name)
{
    return std::make_unique<SimulatedWorld>(name);
}

INSTANTIATE_TEST_SUITE_P(Simulated, PlatformContract,
    testing::Values("immediate", "thrifty", "resizingLate"),
    [](const auto &each) { return each.param; });

} // namespace corvane
