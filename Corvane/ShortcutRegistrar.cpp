#include "ShortcutRegistrar.h"

#include "FlightRecorder.h"
#include "KeyCaps.h"
#include "Match.h"
#include "OneLine.h"
#include "Platform.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// The modifiers that a shortcut may have instead of its own, the best first: without those that programs
/// use for shortcuts of their own.
constexpr std::array otherModifiers{
    KeyCombo::control | KeyCombo::option | KeyCombo::command,
    KeyCombo::option | KeyCombo::command,
    KeyCombo::control | KeyCombo::command,
    KeyCombo::shift | KeyCombo::command,
    KeyCombo::control | KeyCombo::shift | KeyCombo::command,
    KeyCombo::option | KeyCombo::shift | KeyCombo::command,
    KeyCombo::control | KeyCombo::option | KeyCombo::shift,
    KeyCombo::modifierMask,
    KeyCombo::control | KeyCombo::option,
};

QString rawName(const ShortcutOwner &owner, const AppModel &model)
{
    return match(
        owner.value, [](Placement placement) { return QString(rawValue(placement)); },
        [&model](const QUuid &id) {
            const auto layout = model.layout(id);
            return u"layout \"%1\""_s.arg(layout ? oneLine(layout->name) : QString());
        });
}

quint32 hotKeyModifiers(quint64 flags)
{
    quint32 modifiers = 0;
    if (flags & KeyCombo::command)
        modifiers |= HotKeys::cmdKey;
    if (flags & KeyCombo::option)
        modifiers |= HotKeys::optionKey;
    if (flags & KeyCombo::control)
        modifiers |= HotKeys::controlKey;
    if (flags & KeyCombo::shift)
        modifiers |= HotKeys::shiftKey;
    return modifiers;
}

} // namespace

ShortcutRegistrar::ShortcutRegistrar(AppModel &model) : m_model(model)
{
    connect(&Platform::current().hotKeys(), &HotKeys::pressed, this, &ShortcutRegistrar::press);
}

ShortcutRegistrar::~ShortcutRegistrar()
{
    unregisterAll();
}

QString ShortcutRegistrar::registerAll()
{
    unregisterAll();
    if (m_model.isRecording())
        return u"no hot key while a shortcut is recorded"_s;
    QList<Refusal> refusals;
    for (const auto &[placement, combo] : m_model.settings().shortcuts.asKeyValueRange())
        registerOne(combo, {placement}, refusals);
    for (const WindowLayout &layout : m_model.layouts()) {
        if (layout.shortcut)
            registerOne(*layout.shortcut, {layout.id}, refusals);
    }
    UnregisteredShortcuts refused;
    QStringList names;
    for (const Refusal &refusal : std::as_const(refusals)) {
        refused.insert(refusal.owner, refusal.holder);
        names << rawName(refusal.owner, m_model);
    }
    m_model.unregistered = refused;
    tell(refusals);
    const qsizetype registered = m_owners.size();
    QString line = u"%1 of %2 hot keys registered"_s.arg(registered).arg(registered + names.size());
    if (!names.isEmpty())
        line += QCoreApplication::translate("Shortcuts", "; refused by macOS or another app: ")
            + names.join(u", "_s);
    FlightRecorder::shared().record(u"hotkeys"_s, line);
    return line;
}

void ShortcutRegistrar::unregisterAll()
{
    for (const quint32 id : std::exchange(m_owners, {}).keys())
        Platform::current().hotKeys().unregisterHotKey(id);
}

void ShortcutRegistrar::registerOne(
    const KeyCombo &combo, const ShortcutOwner &owner, QList<Refusal> &refusals)
{
    // No id is used twice, so that a press which is still on its way does nothing new.
    const quint32 id = ++m_lastId;
    const qint32 status = Platform::current().hotKeys().registerHotKey(
        id, combo.keyCode, hotKeyModifiers(combo.modifiers));
    if (status == HotKeys::noErr) {
        m_owners.insert(id, owner);
        return;
    }
    FlightRecorder::shared().record(u"hotkey"_s,
        u"Corvane: could not register hotkey (code %1): OSStatus %2"_s.arg(combo.keyCode)
            .arg(status));
    refusals << Refusal{owner, combo, status,
        Platform::current().hotKeys().holder(combo.keyCode, hotKeyModifiers(combo.modifiers))};
}

bool ShortcutRegistrar::isFree(const KeyCombo &combo)
{
    if (m_model.owner(combo))
        return false;
    HotKeys &hotKeys = Platform::current().hotKeys();
    const quint32 id = ++m_lastId;
    const bool isFree = hotKeys.registerHotKey(id, combo.keyCode, hotKeyModifiers(combo.modifiers))
        == HotKeys::noErr;
    hotKeys.unregisterHotKey(id);
    return isFree;
}

ShortcutMap ShortcutRegistrar::freeCombos(const QList<Placement> &placements)
{
    ShortcutMap found;
    const ShortcutMap &shortcuts = m_model.settings().shortcuts;
    for (const Placement placement : placements) {
        const auto held = shortcuts.constFind(placement);
        if (held == shortcuts.cend())
            continue;
        for (const quint64 modifiers : otherModifiers) {
            const KeyCombo combo(held->keyCode, modifiers);
            if (!found.values().contains(combo) && isFree(combo)) {
                found.insert(placement, combo);
                break;
            }
        }
    }
    return found;
}

QString ShortcutRegistrar::sentence(const Refusal &refusal) const
{
    const auto translated = [](const char *text) {
        return QCoreApplication::translate("Shortcuts", text);
    };
    const QString text = refusal.status == HotKeys::hotKeyExists && !refusal.holder.isEmpty()
        ? translated(QT_TRANSLATE_NOOP("Shortcuts", "%1 (%2) is held by %3."))
        : refusal.status == HotKeys::hotKeyExists
        ? translated(QT_TRANSLATE_NOOP("Shortcuts", "%1 (%2) is held by another program."))
        : refusal.status == HotKeys::hotKeyInvalid
        ? translated(
            QT_TRANSLATE_NOOP("Shortcuts", "%1 (%2) needs a key that this keyboard lacks."))
        : translated(QT_TRANSLATE_NOOP(
            "Shortcuts", "%1 (%2) does not work: nothing answered when it was asked for."));
    const QString keys = KeyCaps::plainText(KeyCaps::partsOf(refusal.combo));
    const QString title = oneLine(m_model.title(refusal.owner));
    return refusal.holder.isEmpty() ? text.arg(keys, title)
                                    : text.arg(keys, title, oneLine(refusal.holder));
}

void ShortcutRegistrar::tell(const QList<Refusal> &refusals)
{
    QStringList sentences;
    for (const Refusal &refusal : refusals)
        sentences << sentence(refusal);
    for (const QString &each : std::as_const(sentences)) {
        if (m_told.contains(each))
            continue;
        std::fprintf(stderr, "Corvane: %s\n", qUtf8Printable(each));
        FlightRecorder::shared().record(u"hotkey-refused"_s, each);
    }
    m_told = sentences;
}

void ShortcutRegistrar::press(quint32 id) const
{
    const auto pressed = m_owners.constFind(id);
    if (pressed == m_owners.cend())
        return;
    // What is called may register the whole set afresh.
    const ShortcutOwner owner = *pressed;
    match(
        owner.value, [this](Placement placement) { onPlacement(placement); },
        [this](const QUuid &layout) { onLayout(layout); });
}

} // namespace corvane
