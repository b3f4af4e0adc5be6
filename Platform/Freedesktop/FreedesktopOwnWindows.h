#pragma once

#include "OwnWindows.h"
#include "TrayServices.h"

#include <optional>

namespace corvane::freedesktop {

/// Knows the panels that are told of icons over the session bus, and does nothing else: Wayland
/// compositors give the pointer to every menu, blend every window, and let none choose its place or to be
/// listed.
class FreedesktopOwnWindows : public OwnWindows
{
    Q_OBJECT

public:
    Tray tray() override;
    bool takePointer(quint64 window) override;
    bool showsTranslucency() override;
    void setListed(quint64 window, bool isListed) override;
    void setOverlay(quint64 window, const Rect &frame) override;

private:
    std::optional<TrayServicesWatch> m_services; ///< none before the tray was asked for
};

} // namespace corvane::freedesktop
