#pragma once

#include "GlobalAccel.h"
#include "HotKeys.h"

#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QTimer>

namespace corvane::wayland {
class Keyboard;
} // namespace corvane::wayland

namespace corvane::kwin {

/// Hot keys as shortcuts of KGlobalAccel. Each is an action named after its physical key, so that one to
/// which the user gave another key in System Settings keeps that, and works by it. One from which the
/// user took the key is told as held, by that change.
class KWinHotKeys final : public HotKeys
{
    Q_OBJECT

public:
    explicit KWinHotKeys(wayland::Keyboard &keyboard);
    ~KWinHotKeys() override;

    qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;
    QString holder(quint16 keyCode, quint32 modifiers) override;
    QString label(quint16 keyCode) override;

private:
    struct Registration {
        QString action;
        bool isUsersChoice = false;
    };

    [[nodiscard]] int qtKeyOf(quint16 keyCode, quint32 modifiers) const;
    void giveUp(const Registration &registration);
    void readLeftovers();
    void pressedAction(const QString &action);
    void loseAll();
    void releaseLeftovers();

    wayland::Keyboard &m_keyboard;
    GlobalAccel m_shortcuts;
    QMap<quint32, Registration> m_registrations;
    /// Our actions that the user has changed, and that do nothing now: what the user took the key from,
    /// and what has been forgotten here, perhaps for as long as a shortcut is recorded.
    QSet<QString> m_setAside;
    QSet<QString> m_leftovers; ///< our actions of before, that have not been registered again
    bool m_knowsLeftovers = false;
    QTimer m_release; ///< of the leftovers, when all that is wanted has been registered
};

} // namespace corvane::kwin
