#include "StatusItem.h"

#include "Platform.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <algorithm>

namespace corvane {

using namespace std::chrono_literals;

namespace {
/// How long to wait for a tray: at login, panels may start after this program.
constexpr auto grace = 8s;
/// How long a press on the icon lasts at most.
constexpr auto longestPress = 400ms;
} // namespace

QPoint menuOrigin(const QRect &anchor, QSize menu, const QRect &screen)
{
    const int below = anchor.y() + anchor.height();
    const int above = anchor.y() - menu.height();
    const bool fitsBelow = below + menu.height() <= screen.y() + screen.height();
    const QPoint furthest(
        screen.x() + screen.width() - menu.width(), screen.y() + screen.height() - menu.height());
    return {std::max(screen.x(), std::min(anchor.x(), furthest.x())),
        std::max(screen.y(), std::min(fitsBelow ? below : above, furthest.y()))};
}

StatusItem::StatusItem() : m_tray(Platform::current().ownWindows().tray())
{
    m_grace.setSingleShot(true);
    m_grace.setInterval(grace);
    connect(&m_grace, &QTimer::timeout, this, [this] {
        m_isToldUnreachable = true;
        Q_EMIT unreachable();
    });
    connect(&Platform::current().ownWindows(), &OwnWindows::trayChanged, this, [this] {
        m_tray = Platform::current().ownWindows().tray();
        followTray();
    });
}

StatusItem::~StatusItem() = default;

void StatusItem::setMenus(QMenu *drawn, QMenu *plain)
{
    if (m_plain)
        m_plain->disconnect(this);
    if (m_drawn)
        m_drawn->disconnect(this);
    m_drawn = drawn;
    m_plain = plain;
    m_drawn->setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
    if (!Platform::current().ownWindows().knowsPlaces())
        m_drawn->setWindowFlag(Qt::FramelessWindowHint);
    connect(m_drawn, &QMenu::aboutToHide, this, &StatusItem::rememberClosing);
    connect(m_plain, &QMenu::aboutToShow, this, &StatusItem::aboutToOpen);
    followTray();
}

void StatusItem::setIcon(const QIcon &icon, const QString &description)
{
    m_image = icon;
    m_description = description;
    if (m_icon) {
        m_icon->setIcon(m_image);
        m_icon->setToolTip(m_description);
    }
}

void StatusItem::setVisible(bool visible)
{
    m_isVisible = visible;
    followTray();
}

void StatusItem::followTray()
{
    if (!m_isVisible) {
        m_grace.stop();
        if (m_icon)
            m_icon->hide();
    } else if (m_tray.isKnown && m_tray.isThere()) {
        m_grace.stop();
        show();
    } else if (!m_isToldUnreachable && !m_grace.isActive()) {
        m_grace.start();
    }
}

void StatusItem::show()
{
    if (!m_icon) {
        // Now Qt decides for good, by what is there, whether it shows icons over the bus.
        m_isOnBus = m_tray.isOnBus;
        m_icon = std::make_unique<QSystemTrayIcon>();
        m_icon->setIcon(m_image);
        m_icon->setToolTip(m_description);
        connect(m_icon.get(), &QSystemTrayIcon::activated, this, &StatusItem::activate);
    }
    if (m_isOnBus && m_tray.menu != MenuForm::drawn)
        m_icon->setContextMenu(m_plain);
    m_icon->show();
}

void StatusItem::activate(QSystemTrayIcon::ActivationReason reason)
{
    // After Escape, a quick second click counts as a double one.
    const bool isClick = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context
        || reason == QSystemTrayIcon::DoubleClick;
    const bool isForPanel = m_isOnBus && m_tray.menu == MenuForm::exported;
    if (isClick && !isForPanel && !hasClosedByThisClick())
        open(anchor());
}

void StatusItem::popUp()
{
    open(anchor());
}

QRect StatusItem::anchor() const
{
    const QRect icon = m_icon && m_icon->isVisible() ? m_icon->geometry() : QRect();
    if (!icon.isEmpty())
        return icon;
    if (!Platform::current().ownWindows().knowsPlaces())
        return cornerAtPanel();
    const QPoint pointer = QCursor::pos();
    if (QGuiApplication::screenAt(pointer))
        return {pointer, QSize(1, 1)};
    return {QGuiApplication::primaryScreen()->geometry().topRight(), QSize(1, 0)};
}

// Of the display that the user works at, on the side of its panel.
QRect StatusItem::cornerAtPanel()
{
    WindowAccess &windows = Platform::current().windows();
    const WindowOperation operation(windows);
    const QList<ScreenInfo> screens = Platform::current().displays().all();
    const auto focused = windows.focusedWindow().window;
    const Rect frame = focused ? windows.frame(*focused).value_or(Rect()) : Rect();
    const auto screen = std::ranges::max_element(screens, {},
        [&frame](const ScreenInfo &each) { return each.frame.intersectionArea(frame); });
    if (screen == screens.end())
        return {};
    const Rect &area = screen->visibleFrame;
    const bool isAtBottom = area.y == screen->frame.y && area.maxY() < screen->frame.maxY();
    return {qRound(area.maxX()) - 1, qRound(isAtBottom ? area.maxY() : area.y), 1, 0};
}

void StatusItem::open(const QRect &anchor)
{
    if (!m_drawn || m_drawn->isVisible())
        return;
    Q_EMIT aboutToOpen();
    const QScreen *screen = QGuiApplication::screenAt(anchor.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QPoint origin = menuOrigin(anchor, m_drawn->sizeHint(), screen->geometry());
    m_drawn->popup(origin);
    m_grab.hold(*m_drawn);
    OwnWindows &ownWindows = Platform::current().ownWindows();
    if (!ownWindows.knowsPlaces())
        ownWindows.setOverlay(m_drawn->winId(),
            {double(origin.x()), double(origin.y()), double(m_drawn->width()),
                double(m_drawn->height())});
}

void StatusItem::rememberClosing()
{
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        return m_sinceClosedByPress.invalidate();
    m_sinceClosedByPress.start();
    m_closingPress = QCursor::pos();
}

// The menu takes the press that closes it, but a panel hears of the release.
bool StatusItem::hasClosedByThisClick() const
{
    return m_sinceClosedByPress.isValid() && !m_sinceClosedByPress.hasExpired(longestPress.count())
        && (QCursor::pos() - m_closingPress).manhattanLength() < 4;
}

} // namespace corvane
