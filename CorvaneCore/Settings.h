#pragma once

#include "Appearance.h"
#include "ShortcutPreset.h"
#include "TiledWindows.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <optional>

namespace corvane {

/// The raw names of every placement, in order.
[[nodiscard]] const QStringList &placementNames();
/// The names of the placements that a settings file knows which has no list of them.
[[nodiscard]] const QStringList &placementsBeforeOriginal();

/// The user's preferences.
struct Settings {
    ShortcutMap shortcuts = map(ShortcutPreset::sizeUp); ///< in force
    double gap = 0; ///< points between windows, and between them and the display's edges
    bool cycling = true;
    double sizeStep = 60; ///< points
    bool launchAtLogin = false;
    bool showMenuBarIcon = true;
    bool showInDock = true;
    Appearance appearance = Appearance::matchMac;
    TiledWindows tiledWindows = TiledWindows::leaveLayout;
    /// A preset's raw name, or another that a newer version or the user's own shortcuts gave.
    QString preset = rawValue(ShortcutPreset::sizeUp);
    bool onboardingCompleted = false;
    std::optional<ShortcutMap> customShortcuts; ///< the user's own, kept while a preset is in force
    /// The placements that have had their chance of a shortcut: every one, once settings are read.
    QStringList knownPlacements = placementNames();

    /// Lenient, field by field; absent only when `json` is no object. A placement that the file does
    /// not know yet gains its preset's shortcut, unless another placement has that one.
    [[nodiscard]] static std::optional<Settings> fromJson(
        const QJsonValue &json, DecodeProblems &problems);
    [[nodiscard]] QJsonObject toJson() const;

    bool operator==(const Settings &) const = default;
};

/// The members of a file that the user has edited. Each that cannot be used is counted, and gives
/// way to the one in force.
[[nodiscard]] QJsonObject mended(
    QJsonObject edit, const Settings &inForce, DecodeProblems &problems);

/// `present` with every field changed, and of the shortcuts every placement's, that differs between the
/// other two.
[[nodiscard]] Settings withChanges(
    const Settings &present, const Settings &before, const Settings &after);

/// The preset that `settings.preset` names, else SizeUp.
[[nodiscard]] ShortcutPreset presetOf(const Settings &settings);

} // namespace corvane
