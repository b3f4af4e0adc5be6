#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <optional>

namespace corvane::freedesktop {

struct DesktopEntry {
    QString id; ///< the file's name without ".desktop"
    QString name; ///< in the user's language

    bool operator==(const DesktopEntry &) const = default;
};

/// The installed applications, as their desktop entries describe them.
class DesktopEntries final
{
public:
    /// Both parts of a window's WM_CLASS.
    struct WindowClass {
        QString className;
        QString instanceName;

        bool operator==(const WindowClass &) const = default;
    };

    /// The entry whose id is the class or the instance name. Kept once it has been looked up.
    [[nodiscard]] std::optional<DesktopEntry> find(const WindowClass &windowClass);

private:
    QHash<WindowClass, std::optional<DesktopEntry>> m_found;
};

inline size_t qHash(const DesktopEntries::WindowClass &windowClass, size_t seed = 0)
{
    return qHashMulti(seed, windowClass.className, windowClass.instanceName);
}

} // namespace corvane::freedesktop
