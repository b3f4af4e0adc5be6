#pragma once

#include "OwnWindows.h"
#include "PopupGrab.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSystemTrayIcon>

#include <memory>

namespace corvane {

/// Where a menu of this size opens, wholly on `screen`: below `anchor`, or above it where there is no
/// room below.
[[nodiscard]] QPoint menuOrigin(const QRect &anchor, QSize menu, const QRect &screen);

/// The program's icon in the panel, for as long as a panel has a tray for it. Main thread only.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    StatusItem();
    ~StatusItem() override;

    /// `drawn` opens at a click; `plain` is for panels that insist on drawing the menu themselves.
    /// Neither is owned.
    void setMenus(QMenu *drawn, QMenu *plain);
    /// The description is read out, and shown as the icon's tool tip.
    void setIcon(const QIcon &icon, const QString &description);
    void setVisible(bool visible);
    /// Opens the drawn menu without a click.
    void popUp();

Q_SIGNALS:
    /// Just before either menu opens.
    void aboutToOpen();
    /// Told once, when there has been no tray for a while.
    void unreachable();

private:
    void followTray();
    void show();
    void activate(QSystemTrayIcon::ActivationReason reason);
    void open(const QRect &anchor);
    void rememberClosing();
    [[nodiscard]] bool hasClosedByThisClick() const;
    [[nodiscard]] QRect anchor() const;
    [[nodiscard]] static QRect cornerAtPanel();

    Tray m_tray;
    PopupGrab m_grab;
    QTimer m_grace;
    QPointer<QMenu> m_drawn;
    QPointer<QMenu> m_plain;
    QIcon m_image;
    QString m_description;
    bool m_isVisible = false;
    bool m_isToldUnreachable = false;
    QElapsedTimer m_sinceClosedByPress;
    QPoint m_closingPress;
    bool m_isOnBus = false;
    std::unique_ptr<QSystemTrayIcon> m_icon; ///< null before there has been a tray
};

} // namespace corvane
