#include "AppModel.h"

#include "FlightRecorder.h"
#include "Platform.h"

#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

void AppModel::loadSettings()
{
    m_settingsStamp = FileStamp::of(m_store.url().toLocalFile());
    auto [settings, problem] = m_store.loadKeepingUnreadable();
    m_settings = std::move(settings);
    m_notices.tellReading(m_store.url(), problem, StoreProblem::Instead::defaults);
}

void AppModel::refreshSettings()
{
    const auto stamp = FileStamp::of(m_store.url().toLocalFile());
    // No file is no edit: an editor may be about to put the next one in its place.
    if (!stamp || stamp == m_settingsStamp)
        return;
    m_settingsStamp = stamp;
    auto [settings, problem] = m_store.loadEdit(m_settings);
    m_notices.tellReading(m_store.url(), problem, StoreProblem::Instead::present);
    adopt(std::move(settings), Origin::file);
}

void AppModel::setSettings(Settings settings)
{
    const Settings started = m_settings;
    if (settings == started)
        return;
    refreshSettings();
    if (m_settings != started)
        settings = withChanges(m_settings, started, settings);
    adopt(std::move(settings), Origin::program);
}

void AppModel::adopt(Settings settings, Origin origin)
{
    if (settings == m_settings)
        return;
    refreshLayouts();
    QList<WindowLayout> layouts = m_layouts.all();
    tell(settleShortcuts(settings.shortcuts, layouts));
    const Settings old = std::exchange(m_settings, std::move(settings));
    m_layoutApplier.engine().gap = m_settings.gap;
    const bool isSaved = origin == Origin::program && saveSettings();
    Q_EMIT settingsChanged();
    const bool layoutsLoseShortcuts = layouts != m_layouts.all();
    std::ignore = m_layouts.replaceAll(std::move(layouts));
    if (m_settings.shortcuts != old.shortcuts && !layoutsLoseShortcuts && onShortcutsChanged)
        onShortcutsChanged();
    tellChangesSince(old);
    if (isSaved)
        savedFlash = Platform::current().clock().date();
    const QString saving = isSaved ? u"changed"_s : u"changed, not saved"_s;
    FlightRecorder::shared().record(
        u"settings"_s, origin == Origin::file ? u"changed in their file"_s : saving);
}

void AppModel::tellChangesSince(const Settings &old)
{
    if (m_settings.launchAtLogin != old.launchAtLogin && onLaunchAtLoginChanged)
        onLaunchAtLoginChanged(m_settings.launchAtLogin);
    if (m_settings.showMenuBarIcon != old.showMenuBarIcon && onMenuChanged)
        onMenuChanged();
    if (m_settings.showInDock != old.showInDock && onDockVisibilityChanged)
        onDockVisibilityChanged(m_settings.showInDock);
    if (m_settings.appearance != old.appearance)
        applyAppearance();
}

bool AppModel::saveSettings()
{
    const bool isSaved = m_notices.tellSaving(m_store.url(), m_store.save(m_settings)).has_value();
    if (isSaved)
        m_settingsStamp = FileStamp::of(m_store.url().toLocalFile());
    return isSaved;
}

void AppModel::completeOnboarding()
{
    Settings settings = m_settings;
    settings.onboardingCompleted = true;
    setSettings(settings);
}

} // namespace corvane
