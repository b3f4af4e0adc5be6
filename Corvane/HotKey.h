#pragma once

#include <QtCore/QtGlobal>

#include <functional>

namespace corvane {

/// One shortcut, registered system-wide for as long as the object lives. Main thread only.
class HotKey final
{
public:
    /// Registers at once. `flags` are `KeyCombo` modifier bits.
    HotKey(quint16 keyCode, quint64 flags, std::function<void()> action);
    ~HotKey();
    Q_DISABLE_COPY_MOVE(HotKey)

    [[nodiscard]] quint32 id() const { return m_id; }
    [[nodiscard]] bool isRegistered() const { return m_isRegistered; }
    /// 0, or why the registration failed (see `HotKeys`).
    [[nodiscard]] qint32 status() const { return m_status; }

private:
    quint32 m_id;
    bool m_isRegistered = false;
    qint32 m_status = 0;
};

} // namespace corvane
