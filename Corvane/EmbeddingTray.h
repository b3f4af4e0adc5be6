#pragma once

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QObject>

#include <xcb/xcb.h>

namespace corvane {

/// The tray of X11 panels that take the icons' windows in. There is none on other desktops.
class EmbeddingTray final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// Needs a `QGuiApplication`.
    explicit EmbeddingTray(QObject *parent = nullptr);

    [[nodiscard]] bool isThere() const { return m_window != XCB_WINDOW_NONE; }

Q_SIGNALS:
    void changed();

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void look();

    xcb_connection_t *m_connection = nullptr;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_manager = XCB_ATOM_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

} // namespace corvane
