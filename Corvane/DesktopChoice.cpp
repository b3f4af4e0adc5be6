#include "DesktopChoice.h"

#include "DeskFile.h"
#include "X11Platform.h"

namespace corvane {

using namespace Qt::StringLiterals;

expected<std::unique_ptr<Platform>, QString> openDesktop(std::function<void()> onBroken)
{
    const QString name = qEnvironmentVariable("CORVANE_BACKEND", u"x11"_s);
    if (name == "x11"_L1)
        return openX11Platform(std::move(onBroken));
    if (name == "simulated"_L1) {
        auto desk = loadDesk(qEnvironmentVariable("CORVANE_DESK"));
        if (!desk)
            return unexpected<QString>(desk.error());
        return std::move(*desk);
    }
    return unexpected<QString>(
        u"CORVANE_BACKEND names no back end: \"%1\" is neither x11 nor simulated."_s.arg(name));
}

} // namespace corvane
