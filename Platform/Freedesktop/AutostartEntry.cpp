#include "AutostartEntry.h"

#include "CommandLines.h"
#include "KeyFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <algorithm>
#include <array>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

bool isSwitchedOff(const KeyFile &entry)
{
    // Desktops that write none of their own keys mark the entry as deleted.
    constexpr std::array keys{"X-GNOME-Autostart-enabled", "X-MATE-Autostart-enabled"};
    return entry.flag("Hidden") || std::ranges::any_of(keys, [&entry](const char *key) {
        return !entry.value(key).isEmpty() && !entry.flag(key);
    });
}

QByteArray contents(const QString &program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Corvane\n"
           "Comment=Put windows exactly where you want them\n"
           "Icon=app.corvane.Corvane\n"
           "Exec="
        + execValue(program.toUtf8())
        + "\n"
          "Terminal=false\n"
          "StartupNotify=false\n"
          "X-GNOME-Autostart-enabled=true\n";
}

} // namespace

AutostartEntry::AutostartEntry(const QString &folder, const QString &program)
    : m_path(folder + u"/app.corvane.Corvane.desktop"_s), m_program(program)
{
}

LoginItem AutostartEntry::state() const
{
    const KeyFile entry(m_path, "Desktop Entry");
    if (!entry.isValid())
        return LoginItem::absent;
    return isSwitchedOff(entry) ? LoginItem::awaitsApproval : LoginItem::present;
}

expected<void, QString> AutostartEntry::add() const
{
    if (state() == LoginItem::awaitsApproval)
        return {};
    QDir().mkpath(QFileInfo(m_path).path());
    QSaveFile file(m_path);
    const QByteArray text = contents(m_program);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return {};
    return unexpected<QString>(QCoreApplication::translate(
        "corvane::freedesktop::AutostartEntry", "\"%1\" cannot be written: %2.")
                                   .arg(m_path, file.errorString()));
}

expected<void, QString> AutostartEntry::remove() const
{
    QFile file(m_path);
    if (file.remove() || !file.exists())
        return {};
    return unexpected<QString>(QCoreApplication::translate(
        "corvane::freedesktop::AutostartEntry", "\"%1\" cannot be removed: %2.")
                                   .arg(m_path, file.errorString()));
}

QByteArrayList autostartSettings(const QByteArrayList &desktops)
{
    struct Row {
        const char *desktop;
        const char *program;
        const char *page = nullptr;
    };
    constexpr std::array rows{Row{"KDE", "systemsettings", "kcm_autostart"},
        Row{"KDE", "systemsettings5", "kcm_autostart"}, Row{"KDE", "kcmshell6", "kcm_autostart"},
        Row{"KDE", "kcmshell5", "kcm_autostart"}, Row{"X-Cinnamon", "cinnamon-settings", "startup"},
        Row{"GNOME", "gnome-tweaks"}, Row{"GNOME", "gnome-session-properties"},
        Row{"Unity", "gnome-session-properties"}, Row{"MATE", "mate-session-properties"},
        Row{"XFCE", "xfce4-session-settings"}, Row{"LXQt", "lxqt-config-session"}};
    for (const Row &row : rows) {
        if (!desktops.contains(row.desktop) || programPath(row.program).isEmpty())
            continue;
        QByteArrayList command{row.program};
        if (row.page)
            command << row.page;
        return command;
    }
    return {};
}

} // namespace corvane::freedesktop
