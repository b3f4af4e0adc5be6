#include "FreedesktopOwnWindows.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// The panels of these desktops are dark under light windows, too.
bool isPanelDark()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    const QStringList dark{u"GNOME"_s, u"XFCE"_s, u"X-Cinnamon"_s, u"Unity"_s, u"Budgie"_s};
    return std::ranges::any_of(
        desktops, [&dark](const QString &desktop) { return dark.contains(desktop); });
}

} // namespace

Tray FreedesktopOwnWindows::tray()
{
    if (!m_services) {
        m_services.emplace();
        connect(&*m_services, &TrayServicesWatch::changed, this, &OwnWindows::trayChanged);
    }
    return {.isKnown = m_services->isKnown(),
        .isOnBus = m_services->services().hasHost,
        .isDark = isPanelDark(),
        .menu = menuForm(m_services->services())};
}

bool FreedesktopOwnWindows::takePointer(quint64)
{
    return true;
}

bool FreedesktopOwnWindows::showsTranslucency()
{
    return true;
}

void FreedesktopOwnWindows::setListed(quint64, bool) { }

void FreedesktopOwnWindows::setOverlay(quint64, const Rect &) { }

} // namespace corvane::freedesktop
