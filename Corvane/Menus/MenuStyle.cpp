#include "MenuStyle.h"

#include "DevicePixels.h"
#include "RowDrawing.h"
#include "RowMenu.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionMenuItem>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

const QAction *actionOf(const QStyleOption &option)
{
    return qobject_cast<const QAction *>(option.styleObject);
}

MenuRows::Style styleIn(const MenuRows &rows, const QWidget &menu)
{
    return rows.styleOf(static_cast<const QMenu &>(menu));
}

} // namespace

int MenuStyle::cornerRadius()
{
    return Board::length(10);
}

void MenuStyle::polish(QWidget *widget)
{
    widget->setMouseTracking(true);
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    if (element == PE_PanelMenu)
        drawPanel(*painter, option->rect, *widget);
    else if (element != PE_FrameMenu)
        QCommonStyle::drawPrimitive(element, option, painter, widget);
}

void MenuStyle::drawPanel(QPainter &painter, const QRectF &rect, const QWidget &menu) const
{
    const Board::Palette &palette = m_rows.palette();
    const auto *rowMenu = qobject_cast<const RowMenu *>(&menu);
    if (rowMenu && !rowMenu->isTranslucent())
        painter.fillRect(rect, palette.edge);
    drawField(painter, rect, cornerRadius(), palette.sheet, palette.edge);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
    const QWidget *widget) const
{
    switch (element) {
    case CE_MenuItem:
        return drawRow(*option, *painter, *widget);
    case CE_MenuScroller:
        return drawScroller(*option, *painter);
    case CE_MenuEmptyArea:
    case CE_MenuHMargin:
    case CE_MenuVMargin:
        return;
    default:
        return QCommonStyle::drawControl(element, option, painter, widget);
    }
}

void MenuStyle::drawRow(const QStyleOption &option, QPainter &painter, const QWidget &widget) const
{
    const QAction *action = actionOf(option);
    const bool isLit = m_rows.lit == action;
    const QRectF rect = option.rect;
    if (!action || action->isSeparator())
        return RowDrawing::paintSeparator(painter, rect, m_rows.palette());
    const auto header = m_rows.headers.constFind(action);
    if (header != m_rows.headers.cend())
        return RowDrawing::paintHeader(painter, rect, *header, m_rows.palette(), isLit);
    RowDrawing::paint(painter, rect, m_rows.rows.value(action), styleIn(m_rows, widget),
        m_rows.palette(), {RowDrawing::kindOf(*action), isLit, action->isEnabled()});
}

void MenuStyle::drawScroller(const QStyleOption &option, QPainter &painter) const
{
    const bool isDown = option.state & State_DownArrow;
    const double width = Board::length(8);
    const double height = (isDown ? 1 : -1) * Board::length(4);
    const QPointF tip = QRectF(option.rect).center() + QPointF(0, height / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_rows.palette().muted, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{tip - QPointF(width / 2, height), tip, tip + QPointF(width / 2, -height)});
    painter.restore();
}

QSize MenuStyle::sizeFromContents(
    ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    const QAction *action = type == CT_MenuItem ? actionOf(*option) : nullptr;
    if (!action)
        return QCommonStyle::sizeFromContents(type, option, size, widget);
    const double column = m_rows.tabLocation.value(qobject_cast<const QMenu *>(widget));
    const double width = std::ceil(column + RowDrawing::margin());
    if (action->isSeparator())
        return QSizeF(width, RowDrawing::separatorHeight()).toSize();
    const auto header = m_rows.headers.constFind(action);
    const QSizeF wanted = header != m_rows.headers.cend()
        ? RowDrawing::headerSize(*header)
        : RowDrawing::size(
            m_rows.rows.value(action), styleIn(m_rows, *widget), RowDrawing::kindOf(*action));
    return QSizeF(width, wanted.height()).toSize();
}

int MenuStyle::pixelMetric(
    PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuHMargin:
        return 0;
    case PM_MenuVMargin:
        return Board::length(5);
    case PM_MenuScrollerHeight:
        return Board::length(20);
    case PM_SubMenuOverlap:
        return 2; // beyond the row, which ends a point within the menu's edge
    default:
        return QCommonStyle::pixelMetric(metric, option, widget);
    }
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
    QStyleHintReturn *answer) const
{
    switch (hint) {
    case SH_Menu_MouseTracking:
    case SH_Menu_Scrollable:
    case SH_Menu_SloppySubMenus:
    case SH_Menu_SpaceActivatesItem:
    case SH_Menu_SelectionWrap:
        return 1;
    case SH_Menu_AllowActiveAndDisabled:
    case SH_Menu_FadeOutOnHide:
    case SH_Menu_FlashTriggeredItem:
        return 0;
    case SH_Menu_SubMenuPopupDelay:
        return 150; // milliseconds
    default:
        return QCommonStyle::styleHint(hint, option, widget, answer);
    }
}

} // namespace corvane
