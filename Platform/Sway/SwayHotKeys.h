#pragma once

#include "HotKeys.h"
#include "Keyboard.h"
#include "SwayCompositor.h"

#include <QtCore/QMap>

namespace corvane::sway {

/// Hot keys by bindings that sway is given at run time, which start nothing: it tells of their presses. They
/// go when sway reads its configuration again.
class SwayHotKeys final : public HotKeys
{
    Q_OBJECT

public:
    SwayHotKeys(SwayCompositor &compositor, wayland::Keyboard &keyboard);
    ~SwayHotKeys() override;

    qint32 registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers) override;
    void unregisterHotKey(quint32 id) override;
    QString holder(quint16 keyCode, quint32 modifiers) override;
    QString label(quint16 keyCode) override;

private:
    void press(const QString &command);
    void loseAll();
    [[nodiscard]] qint32 run(const QByteArray &command);
    void unbind(const QByteArray &keys);
    [[nodiscard]] const Binding *configured(quint16 keyCode, quint32 modifiers);

    SwayCompositor &m_compositor;
    wayland::Keyboard &m_keyboard;
    QMap<quint32, QByteArray> m_keys; ///< as sway spells them
    std::optional<QList<Binding>> m_configured; ///< none before they are needed
};

} // namespace corvane::sway
