#pragma once

#include "ContractWorld.h"

#include <QtCore/QHash>

#include <gmock/gmock.h>

namespace corvane {

/// What every back end must do. A binary that links these tests runs them on its worlds:
///
///     INSTANTIATE_TEST_SUITE_P(Simulated, PlatformContract,
///         testing::Values(ContractWorldFactory {"plain", &makeWorld}), PlatformContract::nameOf);
class PlatformContract : public testing::TestWithParam<ContractWorldFactory>
{
public:
    static std::string nameOf(const testing::TestParamInfo<ContractWorldFactory> &info);

protected:
    using Ability = ContractWorld::Ability;
    using Kind = ContractWindow::Kind;

    void SetUp() override;

    ContractWorld &world() { return *m_world; }
    WindowAccess &windows() { return m_world->platform().windows(); }
    Displays &displays() { return m_world->platform().displays(); }
    Applications &applications() { return m_world->platform().applications(); }
    HotKeys &hotKeys() { return m_world->platform().hotKeys(); }

    /// Waits until the window is where it should be; on failure the frame it has.
    testing::AssertionResult reaches(const WindowElement &window, const Rect &frame);
    testing::AssertionResult takesFocus(const WindowElement &window);

    // Every notice that came, in order.
    QList<WindowElement> created;
    QList<WindowElement> closed;
    QList<pid_t> launched;
    QList<pid_t> terminated;
    QList<bool> trust;
    QList<quint32> pressed;
    int displayChanges = 0;
    [[nodiscard]] int noticeCount() const;

private:
    std::unique_ptr<ContractWorld> m_world;
    QObject m_listener; ///< before the world, so that no notice comes while it goes
};

void PrintTo(const Rect &rect, std::ostream *stream);
void PrintTo(const WindowElement &window, std::ostream *stream);

/// Skips the test in a world that cannot arrange what it needs.
#define CORVANE_NEEDS(ability)                                                                     \
    if (!world().can(Ability::ability))                                                            \
    GTEST_SKIP() << "this world cannot arrange it"

} // namespace corvane
