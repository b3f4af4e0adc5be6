#pragma once

#include "Connection.h"

#include <QtCore/QAbstractNativeEventFilter>

namespace corvane::x11 {

/// The tray of panels that take the icons' windows in, by Qt's connection, which is told when such a
/// panel comes. Without that connection there is no such tray.
class EmbeddingTray final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    EmbeddingTray();

    [[nodiscard]] bool isThere() const { return m_window != noWindow; }

Q_SIGNALS:
    void changed();

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void refresh();

    xcb_connection_t *m_connection = nullptr;
    xcb_atom_t m_selection = noAtom;
    xcb_atom_t m_manager = noAtom;
    xcb_window_t m_window = noWindow;
};

} // namespace corvane::x11
