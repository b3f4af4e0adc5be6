#include "SwayPlatform.h"

#include "SwayCompositor.h"
#include "SwayHotKeys.h"
#include "WaylandPlatform.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace sway;

namespace {

QByteArray socketPath()
{
    return qgetenv("SWAYSOCK");
}

} // namespace

bool swayAnswers()
{
    SwaySocket socket;
    return socket.open(socketPath())
        && socket
               .ask(Message::getVersion, {},
                   std::chrono::steady_clock::now() + std::chrono::seconds(1))
               .has_value();
}

expected<std::unique_ptr<Platform>, QString> openSwayPlatform(std::function<void()> onBroken)
{
    auto compositor = std::make_unique<SwayCompositor>(socketPath());
    if (!compositor->isPresent())
        return unexpected<QString>(QCoreApplication::translate(
            "corvane::sway", "sway does not answer at the socket \"%1\" that SWAYSOCK names.")
                                       .arg(QString::fromLocal8Bit(socketPath())));
    SwayCompositor &sway = *compositor;
    return wayland::openWaylandPlatform({.compositor = std::move(compositor),
                                            .makeHotKeys =
                                                [&sway](wayland::Keyboard &keyboard) {
                                                    return std::make_unique<SwayHotKeys>(
                                                        sway, keyboard);
                                                }},
        std::move(onBroken));
}

} // namespace corvane
