#include "GnomePlatform.h"

#include "AgentCompositor.h"
#include "BusCall.h"
#include "ExtensionHost.h"
#include "GnomeHotKeys.h"
#include "WaylandListener.h"
#include "WaylandPlatform.h"

namespace corvane {

using namespace gnome;

namespace {

class GnomeCompositor final : public wayland::AgentCompositor
{
public:
    using AgentCompositor::AgentCompositor;

    /// A window has its position at once, and its size when it has drawn itself.
    Duration resizeTime() const override { return Duration(250); }
    /// By itself GNOME would ask its user whether a window may have all keys.
    bool leaveKeys(bool isLeft) override
    {
        return ask(QLatin1StringView("block"), {{QStringLiteral("blocked"), isLeft}}).has_value();
    }
};

} // namespace

/// On X11, GNOME Shell has the same name on the bus.
bool gnomeAnswers()
{
    const auto listener = freedesktop::waylandListener();
    return listener && freedesktop::processOf(QStringLiteral("org.gnome.Shell")) == listener->pid;
}

expected<std::unique_ptr<Platform>, QString> openGnomePlatform(std::function<void()> onBroken)
{
    constexpr std::chrono::milliseconds startTime(500); // where it is switched on, it is quick
    ExtensionHost *extension = nullptr;
    const auto makeHost = [&extension](wayland::AgentMailbox &mailbox) {
        auto host = std::make_unique<ExtensionHost>(mailbox);
        extension = host.get();
        return host;
    };
    auto compositor = std::make_unique<GnomeCompositor>(makeHost, startTime);
    auto makeHotKeys = [extension, &compositor = *compositor](wayland::Keyboard &keyboard) {
        return std::make_unique<GnomeHotKeys>(keyboard, compositor, *extension);
    };
    return wayland::openWaylandPlatform(
        {.compositor = std::move(compositor), .makeHotKeys = std::move(makeHotKeys)},
        std::move(onBroken));
}

} // namespace corvane
