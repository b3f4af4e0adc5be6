#include "Settings.h"

#include "ShortcutMapJson.h"

#include <algorithm>
#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QStringList namesWhere(bool (*isWanted)(Placement))
{
    QStringList names;
    for (const Placement placement : allPlacements()) {
        if (isWanted(placement))
            names << rawValue(placement);
    }
    return names;
}

/// Missing from both lists of the file, a placement was not there to be left out on purpose.
void addNewPlacements(Settings &settings, const QStringList &known)
{
    const ShortcutMap preset = map(presetOf(settings));
    for (const auto &[placement, combo] : preset.asKeyValueRange()) {
        const bool isTaken =
            std::ranges::find(settings.shortcuts, combo) != settings.shortcuts.end();
        if (!known.contains(rawValue(placement)) && !settings.shortcuts.contains(placement)
            && !isTaken)
            settings.shortcuts.insert(placement, combo);
    }
}

std::optional<KeyCombo> shortcutOf(Placement placement, const ShortcutMap &shortcuts)
{
    const auto found = shortcuts.constFind(placement);
    return found == shortcuts.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace

const QStringList &placementNames()
{
    static const QStringList names = namesWhere([](Placement) { return true; });
    return names;
}

const QStringList &placementsBeforeOriginal()
{
    static const QStringList names =
        namesWhere([](Placement placement) { return placement != Placement::original; });
    return names;
}

std::optional<Settings> Settings::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    if (!json.isObject())
        return std::nullopt;
    const QJsonObject object = json.toObject();
    LenientReader reader(object, problems);
    Settings settings;
    settings.shortcuts = reader.read<ShortcutMap>("shortcuts"_L1, settings.shortcuts);
    settings.gap = reader.read<double>("gap"_L1, settings.gap);
    settings.cycling = reader.read<bool>("cycling"_L1, settings.cycling);
    settings.sizeStep = reader.read<double>("sizeStep"_L1, settings.sizeStep);
    settings.launchAtLogin = reader.read<bool>("launchAtLogin"_L1, settings.launchAtLogin);
    settings.showMenuBarIcon = reader.read<bool>("showMenuBarIcon"_L1, settings.showMenuBarIcon);
    settings.showInDock = reader.read<bool>("showInDock"_L1, settings.showInDock);
    settings.appearance = reader.read<Appearance>("appearance"_L1, settings.appearance);
    settings.tiledWindows = reader.read<TiledWindows>("tiledWindows"_L1, settings.tiledWindows);
    settings.preset = reader.read<QString>("preset"_L1, settings.preset);
    settings.onboardingCompleted =
        reader.read<bool>("onboardingCompleted"_L1, settings.onboardingCompleted);
    settings.customShortcuts = reader.readOptional<ShortcutMap>("customShortcuts"_L1);
    addNewPlacements(settings,
        reader.read<LossyArray<QString>>("knownPlacements"_L1, {placementsBeforeOriginal()})
            .elements);
    return settings;
}

QJsonObject Settings::toJson() const
{
    QJsonObject json{
        {u"shortcuts"_s, encode(shortcuts)},
        {u"gap"_s, gap},
        {u"cycling"_s, cycling},
        {u"sizeStep"_s, sizeStep},
        {u"launchAtLogin"_s, launchAtLogin},
        {u"showMenuBarIcon"_s, showMenuBarIcon},
        {u"showInDock"_s, showInDock},
        {u"appearance"_s, rawValue(appearance)},
        {u"tiledWindows"_s, rawValue(tiledWindows)},
        {u"preset"_s, preset},
        {u"onboardingCompleted"_s, onboardingCompleted},
        {u"knownPlacements"_s, QJsonArray::fromStringList(placementNames())},
    };
    if (customShortcuts)
        json.insert(u"customShortcuts"_s, encode(*customShortcuts));
    return json;
}

QJsonObject mended(QJsonObject edit, const Settings &inForce, DecodeProblems &problems)
{
    const QJsonObject present = inForce.toJson();
    for (const QString &key : edit.keys()) {
        DecodeProblems own;
        std::ignore = Settings::fromJson(QJsonObject{{key, edit[key]}}, own);
        if (own.count > 0)
            edit.insert(key, present[key]);
        problems.count += own.count;
    }
    return edit;
}

Settings withChanges(const Settings &present, const Settings &before, const Settings &after)
{
    const QJsonObject from = before.toJson();
    const QJsonObject to = after.toJson();
    QJsonObject json = present.toJson();
    for (const QString &key : from.keys() + to.keys()) {
        if (from[key] != to[key])
            json.insert(key, to[key]);
    }
    DecodeProblems problems;
    Settings settings = Settings::fromJson(json, problems).value();
    settings.shortcuts = present.shortcuts;
    for (const Placement placement : allPlacements()) {
        const auto combo = shortcutOf(placement, after.shortcuts);
        if (combo == shortcutOf(placement, before.shortcuts))
            continue;
        if (combo)
            settings.shortcuts.insert(placement, *combo);
        else
            settings.shortcuts.remove(placement);
    }
    return settings;
}

ShortcutPreset presetOf(const Settings &settings)
{
    return shortcutPresetNamed(settings.preset).value_or(ShortcutPreset::sizeUp);
}

} // namespace corvane
