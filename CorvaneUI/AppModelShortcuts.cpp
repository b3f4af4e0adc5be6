#include "AppModel.h"

#include "FlightRecorder.h"
#include "Match.h"

namespace corvane {

using namespace Qt::StringLiterals;

std::optional<ShortcutOwner> AppModel::owner(const KeyCombo &combo) const
{
    return ownerOf(combo, m_settings.shortcuts, layouts());
}

QString AppModel::title(const ShortcutOwner &owner) const
{
    return match(
        owner.value, [](Placement placement) { return corvane::title(placement); },
        [this](const QUuid &id) {
            const auto found = layout(id);
            return tr("the “%1” layout").arg(found ? found->name : tr("untitled"));
        });
}

bool AppModel::exists(const ShortcutOwner &owner) const
{
    return match(
        owner.value, [](Placement) { return true; },
        [this](const QUuid &id) { return layout(id).has_value(); });
}

void AppModel::assign(const std::optional<KeyCombo> &combo, const ShortcutOwner &owner)
{
    refreshLayouts();
    const auto holder = combo ? this->owner(*combo) : std::nullopt;
    if (holder && *holder != owner)
        pendingSteal = ShortcutSteal{QUuid::createUuid(), *combo, owner, *holder};
    else
        store(combo, owner);
}

void AppModel::confirmSteal()
{
    const std::optional<ShortcutSteal> steal = pendingSteal.value();
    pendingSteal = std::nullopt;
    refreshLayouts();
    if (!steal || steal->isSample || !exists(steal->to))
        return;
    FlightRecorder::shared().record(u"shortcut"_s,
        u"moved %1 from %2 to %3"_s.arg(
            steal->combo.display(), title(steal->from), title(steal->to)));
    // Whoever holds it by now, which is nobody where the question stood open for long.
    if (const auto holder = owner(steal->combo); holder && *holder != steal->to)
        store(std::nullopt, *holder);
    store(steal->combo, steal->to);
}

void AppModel::cancelSteal()
{
    pendingSteal = std::nullopt;
}

void AppModel::store(const std::optional<KeyCombo> &combo, const ShortcutOwner &owner)
{
    match(
        owner.value,
        [&](Placement placement) {
            refreshSettings();
            Settings settings = m_settings;
            if (combo)
                settings.shortcuts.insert(placement, *combo);
            else
                settings.shortcuts.remove(placement);
            setSettings(std::move(settings));
        },
        [&](const QUuid &id) {
            auto changed = layout(id);
            if (!changed)
                return;
            changed->shortcut = combo;
            updateLayout(*changed, tr("Change Shortcut"));
        });
}

void AppModel::applyPreset(ShortcutPreset preset)
{
    refreshSettings();
    Settings settings = m_settings;
    if (!matching(settings.shortcuts))
        settings.customShortcuts = settings.shortcuts;
    settings.shortcuts = map(preset);
    settings.preset = rawValue(preset);
    setSettings(std::move(settings));
}

void AppModel::restoreCustomShortcuts()
{
    refreshSettings();
    if (!m_settings.customShortcuts)
        return;
    Settings settings = m_settings;
    settings.shortcuts = *settings.customShortcuts;
    settings.preset = u"Custom"_s;
    setSettings(std::move(settings));
}

void AppModel::connectRecording()
{
    connect(this, &AppModel::recordingChanged, this, [this] {
        if (recording.value())
            recordingLayout = QUuid();
        tellRecording();
    });
    connect(this, &AppModel::recordingLayoutChanged, this, [this] {
        if (!recordingLayout.value().isNull())
            recording = std::nullopt;
        tellRecording();
    });
}

bool AppModel::isRecording() const
{
    return recording.value() || !recordingLayout.value().isNull();
}

void AppModel::endRecording()
{
    recording = std::nullopt;
    recordingLayout = QUuid();
}

void AppModel::tellRecording()
{
    if (std::exchange(m_wasRecording, isRecording()) != isRecording() && onRecordingChanged)
        onRecordingChanged(isRecording());
}

void AppModel::tell(const QList<ShortcutLoss> &losses)
{
    if (losses.isEmpty())
        return;
    QStringList sentences;
    for (const ShortcutLoss &loss : losses) {
        const QString sentence = tr("%1 belongs to %2, so %3 has no shortcut now.")
                                     .arg(u"[["_s + loss.combo.display() + u"]]"_s,
                                         title(loss.keeper), title(loss.loser));
        FlightRecorder::shared().record(u"shortcut"_s, sentence);
        sentences << sentence;
    }
    post({u"shortcut-taken"_s, sentences.join(u' '), std::nullopt});
}

} // namespace corvane
