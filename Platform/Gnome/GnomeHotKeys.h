#pragma once

#include "HotKeys.h"

#include <QtCore/QMap>

namespace corvane::wayland {
class AgentCompositor;
class Keyboard;
} // namespace corvane::wayland

namespace corvane::gnome {

class ExtensionHost;

/// Hot keys as accelerators of GNOME Shell, which our extension grabs.
class GnomeHotKeys final : public HotKeys
{
    Q_OBJECT

public:
    GnomeHotKeys(wayland::Keyboard &keyboard, wayland::AgentCompositor &compositor,
        const ExtensionHost &extension);

    qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;
    QString label(quint16 keyCode) override;

private:
    void pressedAction(quint32 action);
    void loseAll();

    wayland::Keyboard &m_keyboard;
    wayland::AgentCompositor &m_compositor;
    QMap<quint32, quint32> m_actions; ///< the shell's numbers, by ours
};

} // namespace corvane::gnome
