#pragma once

#include "ContractWorld.h"

#include <gmock/gmock.h>

namespace corvane {

/// What every back end must do. A binary that links these tests runs them on its worlds:
///
///     INSTANTIATE_TEST_SUITE_P(Simulated, PlatformContract,
///         testing::Values(ContractWorldFactory {"plain", &makeWorld}), PlatformContract::nameOf);
class PlatformContract : public testing::TestWithParam<ContractWorldFactory>
{
public:
    static std::string nameOf(const testing::TestParamInfo<ContractWorldFactory> &info)
    {
        return info.param.name;
    }

protected:
    using Kind = ContractWindow::Kind;

    void SetUp() override;

    ContractWorld &world() { return *m_world; }
    WindowAccess &windows() { return m_world->platform().windows(); }
    Displays &displays() { return m_world->platform().displays(); }
    Applications &applications() { return m_world->platform().applications(); }
    HotKeys &hotKeys() { return m_world->platform().hotKeys(); }

    /// A window of a process of its own.
    WindowElement open(const ContractWindow &window = {})
    {
        return world().openWindow(world().startApplication(), window);
    }
    /// Pumps until the condition holds; false when it does not in time.
    [[nodiscard]] bool eventually(const std::function<bool()> &condition);
    [[nodiscard]] bool takesFocus(const WindowElement &window)
    {
        return eventually([&] { return windows().focusedWindow().window == window; });
    }
    /// Waits until the window is where it should be; on failure the frame it has.
    testing::AssertionResult reaches(const WindowElement &window, const Rect &frame);
    /// The errors of all calls about one window.
    QList<AXError> answersAbout(const WindowElement &window);

    // Every notice that came, in order.
    QList<WindowElement> created;
    QList<WindowElement> closed;
    QList<pid_t> launched;
    QList<pid_t> terminated;
    QList<bool> trust;
    QList<quint32> pressed;
    int displayChanges = 0;
    int notices = 0; ///< of any kind

private:
    std::unique_ptr<ContractWorld> m_world;
    QObject m_listener; ///< before the world, so that no notice comes while it goes
};

void PrintTo(const ContractWorldFactory &factory, std::ostream *stream);
void PrintTo(const Rect &rect, std::ostream *stream);

} // namespace corvane
