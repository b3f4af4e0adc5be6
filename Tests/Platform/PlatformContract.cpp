#include "PlatformContract.h"

#include "Waiting.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

namespace corvane {

using namespace Qt::StringLiterals;

bool ContractWorld::eventually(const std::function<bool()> &condition)
{
    const auto holdsLater = [&] {
        pump();
        return condition();
    };
    return condition() || desktop::waitUntil(holdsLater, desktop::Milliseconds{15000});
}

void ContractWorld::writeEntry(const QString &folder, const QString &program, const QString &id,
    const QString &name, Installation::State state)
{
    const bool isBroken = state == Installation::State::broken;
    const QString text =
        u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nNoDisplay=%3\n"
        "StartupWMClass=%4\n"_s.arg(name, isBroken ? u"no-such-program"_s : program,
            state == Installation::State::hidden ? u"true"_s : u"false"_s,
            program.section(u'/', -1));
    QDir().mkpath(folder);
    QFile file(folder + id + u".desktop"_s);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0);
}

PlatformContract::PlatformContract()
{
    world().settle();
    const auto note = [this](auto &sender, auto signal, auto take) {
        QObject::connect(&sender, signal, &m_listener, [this, take](const auto &...told) {
            ++notices;
            take(told...);
        });
    };
    note(windows(), &WindowAccess::windowCreated,
        [this](auto &window, pid_t) { created << window; });
    note(windows(), &WindowAccess::windowClosed, [this](auto &window) { closed << window; });
    note(windows(), &WindowAccess::trustChanged, [this](bool trusted) { trust << trusted; });
    note(applications(), &Applications::launched, [this](auto &told) { launched << told.pid; });
    note(applications(), &Applications::terminated, [this](pid_t pid) { terminated << pid; });
    note(hotKeys(), &HotKeys::pressed, [this](quint32 id) { pressed << id; });
    note(displays(), &Displays::changed, [this] { ++displayChanges; });
}

testing::AssertionResult PlatformContract::reaches(const WindowElement &window, const Rect &frame)
{
    if (eventually([&] { return windows().frame(window) == frame; }))
        return testing::AssertionSuccess();
    const auto [x, y, width, height] = windows().frame(window).value_or(Rect());
    return testing::AssertionFailure() << width << 'x' << height << " at " << x << ',' << y;
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

} // namespace corvane

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
