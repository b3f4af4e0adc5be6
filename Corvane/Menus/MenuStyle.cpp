#include "MenuStyle.h"

#include "DevicePixels.h"
#include "RowDrawing.h"
#include "RowMenu.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionMenuItem>

#include <cmath>

namespace corvane {

namespace {

const QAction *actionOf(const QStyleOption &option)
{
    return qobject_cast<const QAction *>(option.styleObject);
}

const RowMenu &menuOf(const QWidget *widget)
{
    return *static_cast<const RowMenu *>(widget);
}

void drawPanel(QPainter &painter, const QRectF &rect, const RowMenu &menu)
{
    const Board::Palette &palette = menu.look().palette;
    if (!menu.isTranslucent())
        painter.fillRect(rect, palette.edge);
    drawField(painter, rect, RowDrawing::cornerRadius(), palette.sheet, palette.edge);
}

void drawRow(QPainter &painter, const QStyleOption &option, const RowMenu &menu)
{
    if (const QAction *action = actionOf(option))
        RowDrawing::paint(painter, option.rect, *action, menu.look(),
            action == menu.activeAction() ? RowDrawing::State::lit : RowDrawing::State::idle);
}

void drawScroller(QPainter &painter, const QStyleOption &option, const QColor &color)
{
    const bool isDown = option.state & QStyle::State_DownArrow;
    const double width = Board::length(8);
    const double height = (isDown ? 1 : -1) * Board::length(4);
    const QPointF tip = QRectF(option.rect).center() + QPointF(0, height / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{tip - QPointF(width / 2, height), tip, tip + QPointF(width / 2, -height)});
    painter.restore();
}

} // namespace

void MenuStyle::polish(QWidget *widget)
{
    widget->setMouseTracking(true);
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    if (element == PE_PanelMenu)
        drawPanel(*painter, option->rect, menuOf(widget));
    else if (element != PE_FrameMenu)
        QCommonStyle::drawPrimitive(element, option, painter, widget);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
    const QWidget *widget) const
{
    switch (element) {
    case CE_MenuItem:
        return drawRow(*painter, *option, menuOf(widget));
    case CE_MenuScroller:
        return drawScroller(*painter, *option, menuOf(widget).look().palette.muted);
    case CE_MenuEmptyArea:
    case CE_MenuHMargin:
    case CE_MenuVMargin:
        return;
    default:
        return QCommonStyle::drawControl(element, option, painter, widget);
    }
}

QSize MenuStyle::sizeFromContents(
    ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    const QAction *action = type == CT_MenuItem ? actionOf(*option) : nullptr;
    if (!action)
        return QCommonStyle::sizeFromContents(type, option, size, widget);
    const RowMenu &menu = menuOf(widget);
    const double width = std::ceil(menu.columnEnd() + RowDrawing::margin());
    return QSizeF(width, RowDrawing::size(*action, menu.look()).height()).toSize();
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
        return 2; // reaches over the row, which ends a point within the menu's edge
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
