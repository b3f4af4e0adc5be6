#include "DesktopEntries.h"

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace corvane::freedesktop {

namespace {

struct Unref {
    void operator()(void *object) const { g_object_unref(object); }
};

std::optional<DesktopEntry> entryWithId(const QString &id)
{
    if (id.isEmpty() || id.contains(u'/'))
        return std::nullopt;
    const QByteArray file = id.toUtf8() + ".desktop";
    const std::unique_ptr<GDesktopAppInfo, Unref> info(g_desktop_app_info_new(file.constData()));
    if (!info)
        return std::nullopt;
    return DesktopEntry{id, QString::fromUtf8(g_app_info_get_name(G_APP_INFO(info.get())))};
}

} // namespace

std::optional<DesktopEntry> DesktopEntries::find(const WindowClass &windowClass)
{
    if (const auto known = m_found.constFind(windowClass); known != m_found.cend())
        return *known;
    std::optional<DesktopEntry> entry;
    for (const QString &id : {windowClass.className, windowClass.className.toLower(),
             windowClass.instanceName, windowClass.instanceName.toLower()}) {
        entry = entryWithId(id);
        if (entry)
            break;
    }
    m_found.insert(windowClass, entry);
    return entry;
}

} // namespace corvane::freedesktop
