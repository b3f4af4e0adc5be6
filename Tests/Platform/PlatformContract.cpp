#include "PlatformContract.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>

namespace corvane {

void PlatformContract::SetUp()
{
    m_world = GetParam().make();
    world().settle();

    const auto note = [this](auto &sender, auto signal, auto take) {
        QObject::connect(&sender, signal, &m_listener, [this, take](const auto &told) {
            ++notices;
            take(told);
        });
    };
    note(windows(), &WindowAccess::windowCreated, [this](auto &window) { created << window; });
    note(windows(), &WindowAccess::windowClosed, [this](auto &window) { closed << window; });
    note(windows(), &WindowAccess::trustChanged, [this](bool trusted) { trust << trusted; });
    note(applications(), &Applications::launched, [this](auto &told) { launched << told.pid; });
    note(applications(), &Applications::terminated, [this](pid_t pid) { terminated << pid; });
    note(hotKeys(), &HotKeys::pressed, [this](quint32 id) { pressed << id; });
    QObject::connect(&displays(), &Displays::changed, &m_listener, [this] {
        ++notices;
        ++displayChanges;
    });
}

bool PlatformContract::eventually(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(std::chrono::seconds(15));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        world().pump();
    }
    return true;
}

testing::AssertionResult PlatformContract::reaches(const WindowElement &window, const Rect &frame)
{
    if (eventually([&] { return windows().frame(window) == frame; }))
        return testing::AssertionSuccess();
    const auto reached = windows().frame(window);
    return testing::AssertionFailure()
        << (reached ? testing::PrintToString(*reached) : std::to_string(int(reached.error())));
}

QList<AXError> PlatformContract::answersAbout(const WindowElement &window)
{
    const auto of = [](const auto &read) { return read ? AXError::success : read.error(); };
    return {of(windows().frame(window)), of(windows().title(window)),
        of(windows().isFullScreen(window)), of(windows().isMinimized(window)),
        of(windows().isWindow(window)), of(windows().isStandard(window)),
        windows().setPosition(window, {1, 1}), windows().setSize(window, {300, 300}),
        windows().restore(window, {1, 1, 300, 300}, std::nullopt)};
}

void PrintTo(const ContractWorldFactory &factory, std::ostream *stream)
{
    *stream << factory.name;
}

void PrintTo(const Rect &rect, std::ostream *stream)
{
    *stream << rect.width << 'x' << rect.height << " at " << rect.x << ',' << rect.y;
}

} // namespace corvane

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
