#include "PlatformContract.h"

#include <ostream>

namespace corvane {

std::string PlatformContract::nameOf(const testing::TestParamInfo<ContractWorldFactory> &info)
{
    return info.param.name;
}

void PlatformContract::SetUp()
{
    m_world = GetParam().make();
    ASSERT_TRUE(m_world);
    world().settle();

    QObject *listener = &m_listener;
    QObject::connect(&windows(), &WindowAccess::windowCreated, listener,
        [this](const WindowElement &window) { created << window; });
    QObject::connect(&windows(), &WindowAccess::windowClosed, listener,
        [this](const WindowElement &window) { closed << window; });
    QObject::connect(&windows(), &WindowAccess::trustChanged, listener,
        [this](bool trusted) { trust << trusted; });
    QObject::connect(&applications(), &Applications::launched, listener,
        [this](const RunningApplication &application) { launched << application.pid; });
    QObject::connect(&applications(), &Applications::terminated, listener,
        [this](pid_t pid) { terminated << pid; });
    QObject::connect(
        &hotKeys(), &HotKeys::pressed, listener, [this](quint32 id) { pressed << id; });
    QObject::connect(&displays(), &Displays::changed, listener, [this] { ++displayChanges; });
}

testing::AssertionResult PlatformContract::reaches(const WindowElement &window, const Rect &frame)
{
    if (world().waitUntil([&] { return windows().frame(window) == frame; }))
        return testing::AssertionSuccess();
    const auto reached = windows().frame(window);
    if (!reached)
        return testing::AssertionFailure() << "its frame reads error " << int(reached.error());
    return testing::AssertionFailure() << "it is at " << testing::PrintToString(*reached);
}

testing::AssertionResult PlatformContract::takesFocus(const WindowElement &window)
{
    if (world().waitUntil([&] { return windows().focusedWindow().window == window; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "another one has it";
}

int PlatformContract::noticeCount() const
{
    return int(created.size() + closed.size() + launched.size() + terminated.size() + trust.size()
               + pressed.size())
        + displayChanges;
}

void PrintTo(const Rect &rect, std::ostream *stream)
{
    *stream << rect.width << 'x' << rect.height << " at " << rect.x << ',' << rect.y;
}

void PrintTo(const WindowElement &window, std::ostream *stream)
{
    *stream << "window " << window.number << " of generation " << window.generation;
}

} // namespace corvane
