#pragma once

#include "HotKeys.h"
#include "NoticeQueue.h"

#include <QtCore/QSet>

#include <map>
#include <set>

namespace corvane {

/// The interface, and the keyboard that a test plays on.
class SimulatedHotKeys final : public HotKeys
{
    Q_OBJECT

public:
    explicit SimulatedHotKeys(NoticeQueue &notices);

    qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;

    /// Down and up again.
    void press(quint16 keyCode, quint32 modifiers);
    /// Again while it is down: a repeat.
    void keyDown(quint16 keyCode, quint32 modifiers);
    void keyUp(quint16 keyCode);

    void takeByRival(quint16 keyCode, quint32 modifiers);
    void releaseByRival(quint16 keyCode, quint32 modifiers);
    /// From now on this keyboard lacks the key, or these modifiers.
    void removeKey(quint16 keyCode);
    void removeModifiers(quint32 modifiers);
    /// The desktop forgets every registration and says so.
    void dropRegistrations();
    [[nodiscard]] bool isRegistered(quint16 keyCode, quint32 modifiers) const;

private:
    struct Combination {
        quint16 keyCode = 0;
        quint32 modifiers = 0;

        auto operator<=>(const Combination &) const = default;
    };

    NoticeQueue &m_notices;
    std::map<Combination, quint32> m_registered; ///< to their ids
    std::set<Combination> m_rivals;
    QSet<quint16> m_missingKeys;
    quint32 m_missingModifiers = 0;
    QSet<quint16> m_keysDown;
};

} // namespace corvane
