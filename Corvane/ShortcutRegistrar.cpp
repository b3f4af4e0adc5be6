#include "ShortcutRegistrar.h"

#include "FlightRecorder.h"
#include "Match.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

QString ShortcutRegistrar::registerAll()
{
    m_hotKeys.clear();
    if (m_model.isRecording())
        return u"no hot key while a shortcut is recorded"_s;
    QSet<ShortcutOwner> refused;
    QStringList names;
    for (const auto &[placement, combo] : m_model.settings().shortcuts.asKeyValueRange()) {
        if (registerOne(combo, {placement}))
            continue;
        refused.insert({placement});
        names << rawValue(placement);
    }
    for (const WindowLayout &layout : m_model.layouts()) {
        if (!layout.shortcut || registerOne(*layout.shortcut, {layout.id}))
            continue;
        refused.insert({layout.id});
        names << u"layout "_s + layout.name;
    }
    m_model.unregistered = refused;
    const qsizetype registered = qsizetype(m_hotKeys.size());
    const QString line =
        u"%1 of %2 hot keys registered"_s.arg(registered).arg(registered + names.size());
    const char *const refusedBy =
        QT_TRANSLATE_NOOP("Shortcuts", "; refused by macOS or another app: ");
    const QString list = names.join(u", "_s);
    FlightRecorder::shared().record(
        u"hotkeys"_s, names.isEmpty() ? line : line + QString::fromLatin1(refusedBy) + list);
    return names.isEmpty() ? line
                           : line + QCoreApplication::translate("Shortcuts", refusedBy) + list;
}

bool ShortcutRegistrar::registerOne(const KeyCombo &combo, const ShortcutOwner &owner)
{
    auto hotKey =
        std::make_unique<HotKey>(combo.keyCode, combo.modifiers, [this, owner] { press(owner); });
    if (!hotKey->isRegistered())
        return false;
    m_hotKeys.push_back(std::move(hotKey));
    return true;
}

void ShortcutRegistrar::press(const ShortcutOwner &owner) const
{
    match(
        owner.value, [this](Placement placement) { onPlacement(placement); },
        [this](const QUuid &layout) { onLayout(layout); });
}

} // namespace corvane
