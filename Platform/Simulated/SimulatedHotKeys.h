#pragma once

#include "HotKeys.h"
#include "NoticeQueue.h"

#include <QtCore/QSet>

#include <map>
#include <set>

namespace corvane {

/// Hot keys in memory, and the keyboard that a test presses them on.
class SimulatedHotKeys final : public HotKeys
{
    Q_OBJECT

public:
    explicit SimulatedHotKeys(NoticeQueue &notices);

    qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;
    QString label(quint16 keyCode) override;

    /// Presses the key and lets it go.
    void press(quint16 keyCode, quint32 modifiers);
    /// Presses the key and does not let it go; once more while it is down, it repeats.
    void keyDown(quint16 keyCode, quint32 modifiers);
    void keyUp(quint16 keyCode);

    void takeByRival(quint16 keyCode, quint32 modifiers);
    /// From now on this keyboard lacks the key.
    void removeKey(quint16 keyCode);
    /// From now on this keyboard has that on the key.
    void setLabel(quint16 keyCode, const QString &label);
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
    QSet<quint16> m_keysDown;
    QHash<quint16, QString> m_labels;
};

} // namespace corvane
