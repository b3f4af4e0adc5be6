#include "RowDrawing.h"

#include "DevicePixels.h"
#include "MenuHeader.h"
#include "PlacementIcon.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>

#include <algorithm>
#include <cmath>

namespace corvane::RowDrawing {

namespace {

// Lengths as drawn for text of 13 pixels.
constexpr double fieldInset = 5;
constexpr double rowInset = 14;
constexpr double rowHeight = 28;
constexpr double separatorHeight = 13;
constexpr double symbolSize = 16;
constexpr double pictureWidth = 20;
constexpr double pictureHeight = 16;
constexpr double trailingGap = 28; // is the least between the title and the row's end
constexpr double longestTitle = 340;
constexpr double chevronWidth = 5;
constexpr double chevronHeight = 9;

double textWidth(const QFont &font, const QString &text)
{
    return std::ceil(QFontMetricsF(font).horizontalAdvance(text));
}

QFont subtitleFont()
{
    return Board::font(Board::Type::secondary);
}

QSizeF trailingSize(const MenuRow &row, const RowLook &look, Kind kind)
{
    if (kind == Kind::submenu)
        return QSizeF(Board::length(chevronWidth), Board::length(chevronHeight));
    return row.keys.isEmpty() ? QSizeF() : KeyCaps(row.keys, look.keyCaps).size();
}

double textColumnWidth(const MenuRow &row, const RowLook &look)
{
    const double width = std::max(textWidth(look.titleFont, row.title),
        row.subtitle ? textWidth(subtitleFont(), *row.subtitle) : 0);
    return std::min<double>(width, Board::length(longestTitle));
}

QSizeF rowSize(const MenuRow &row, const RowLook &look, Kind kind)
{
    const double trailing = trailingSize(row, look, kind).width();
    const double width = 2 * margin() + look.iconSlot + look.gap + textColumnWidth(row, look)
        + (trailing > 0 ? Board::length(trailingGap) + trailing : 0);
    double text = QFontMetricsF(look.titleFont).height();
    if (row.subtitle)
        text += QFontMetricsF(subtitleFont()).height();
    const double content = std::max(text + Board::length(2), look.keyCaps.height);
    return {
        width, std::max<double>(Board::length(rowHeight), std::ceil(content) + Board::length(8))};
}

QSizeF headerSize(const MenuHeader &header)
{
    return header.size() + QSizeF(2 * margin(), 2.0 * Board::length(8));
}

/// Where the text stands so that its capitals, which the eye takes for its middle, are in the middle of
/// the rectangle.
double baseline(const QFont &font, const QRectF &rect)
{
    return std::round(rect.center().y() + QFontMetricsF(font).capHeight() / 2);
}

void drawText(QPainter &painter, const QFont &font, const QColor &color, const QRectF &rect,
    const QString &text)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QPointF(rect.left(), baseline(font, rect)),
        QFontMetricsF(font).elidedText(text, Qt::ElideMiddle, rect.width() + 1));
}

/// The colours of one row's parts.
struct Inks {
    QColor title;
    QColor subtitle;
    Symbol::Colors symbol;
    PlacementIcon::Colors picture;
    QColor chevron;
    KeyCaps::Form caps = KeyCaps::Form::plain;
};

Inks inks(const MenuRow &row, const Board::Palette &palette, bool isEnabled, State state)
{
    using Form = PlacementIcon::Form;
    if (!isEnabled) {
        return {palette.faint, palette.faint, {palette.faint},
            PlacementIcon::colors(palette, Form::dimmed), palette.faint, KeyCaps::Form::dimmed};
    }
    if (state == State::lit) {
        return {palette.onAccent, palette.onAccent, {palette.onAccent},
            PlacementIcon::colors(palette, Form::lit), palette.onAccent, KeyCaps::Form::lit};
    }
    const QColor title = row.tint.value_or(palette.fore);
    const Symbol::Colors symbol =
        row.symbolColors.value_or(Symbol::Colors{row.tint.value_or(palette.muted)});
    return {title, palette.muted, symbol, PlacementIcon::colors(palette, Form::plain),
        palette.muted, KeyCaps::Form::plain};
}

void paintIcon(QPainter &painter, const QRectF &slot, const MenuRow &row, const Inks &ink)
{
    const auto within = [&](double width, double height) {
        const QSizeF size(Board::length(width), Board::length(height));
        return QRectF(slot.center() - QPointF(size.width() / 2, size.height() / 2), size);
    };
    if (row.image)
        PlacementIcon::paint(painter, within(pictureWidth, pictureHeight), *row.image, ink.picture);
    else if (row.symbol)
        Symbol::paint(painter, within(symbolSize, symbolSize), *row.symbol, ink.symbol);
}

void paintChevron(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const double line = Board::length(15) / 10.0;
    const QRectF tips = rect.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{tips.topLeft(), {tips.right(), tips.center().y()}, tips.bottomLeft()});
    painter.restore();
}

void paintField(QPainter &painter, const QRectF &field, const Board::Palette &palette)
{
    const double radius = Board::length(6);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.accent);
    painter.drawRoundedRect(snapped(painter, field), radius, radius);
    painter.restore();
}

QRectF fieldOf(const QRectF &rect)
{
    const double inset = Board::length(fieldInset);
    return rect.adjusted(inset, 0, -inset, 0);
}

void paintRow(
    QPainter &painter, const QRectF &rect, const QAction &action, const RowLook &look, State state)
{
    const MenuRow row = MenuRow::of(action).value_or(MenuRow{});
    const Kind kind = kindOf(action);
    const Places at = places(rect, row, look, kind);
    const Inks ink = inks(row, look.palette, action.isEnabled(), state);
    if (state == State::lit && action.isEnabled())
        paintField(painter, at.field, look.palette);
    paintIcon(painter, at.icon, row, ink);
    drawText(painter, look.titleFont, ink.title, at.title, row.title);
    if (row.subtitle)
        drawText(painter, subtitleFont(), ink.subtitle, at.subtitle, *row.subtitle);
    if (kind == Kind::submenu)
        paintChevron(painter, at.trailing, ink.chevron);
    else if (!row.keys.isEmpty())
        KeyCaps(row.keys, look.keyCaps)
            .paint(painter, at.trailing.topLeft(), look.palette, ink.caps);
}

void paintHeader(QPainter &painter, const QRectF &rect, const MenuHeader &header,
    const Board::Palette &palette, State state)
{
    Board::Palette shown = palette;
    if (state == State::lit) {
        paintField(painter, fieldOf(rect), palette);
        shown.fore = shown.ready = shown.attention = palette.onAccent;
        std::swap(shown.accent, shown.onAccent);
    }
    header.paint(painter, rect.adjusted(margin(), 0, -margin(), 0), shown);
}

} // namespace

Kind kindOf(const QAction &action)
{
    return action.menu<QMenu *>() ? Kind::submenu : Kind::action;
}

Places places(const QRectF &rect, const MenuRow &row, const RowLook &look, Kind kind)
{
    Places places;
    places.field = fieldOf(rect);
    const double left = rect.left() + margin();
    const double right = rect.right() - margin();
    places.icon = QRectF(left, rect.top(), look.iconSlot, rect.height());
    const QSizeF trailing = trailingSize(row, look, kind);
    double textRight = right;
    if (!trailing.isEmpty()) {
        const double top = std::round(rect.center().y() - trailing.height() / 2);
        places.trailing = QRectF(QPointF(right - trailing.width(), top), trailing);
        textRight = places.trailing.left() - Board::length(trailingGap);
    }
    const double textLeft = places.icon.right() + look.gap;
    const double titleHeight = QFontMetricsF(look.titleFont).height();
    places.title = QRectF(textLeft, rect.top(), textRight - textLeft, rect.height());
    if (row.subtitle) {
        const double height = QFontMetricsF(subtitleFont()).height();
        const double top = rect.center().y() - (titleHeight + height) / 2;
        places.title = QRectF(textLeft, top, textRight - textLeft, titleHeight);
        places.subtitle = places.title.translated(0, titleHeight);
        places.subtitle.setHeight(height);
    }
    return places;
}

QSizeF size(const QAction &action, const RowLook &look)
{
    if (action.isSeparator())
        return {0.0, double(Board::length(separatorHeight))};
    if (const auto header = MenuHeader::of(action))
        return headerSize(*header);
    return rowSize(MenuRow::of(action).value_or(MenuRow{}), look, kindOf(action));
}

double margin()
{
    return Board::length(rowInset);
}

int cornerRadius()
{
    return Board::length(10);
}

void paint(
    QPainter &painter, const QRectF &rect, const QAction &action, const RowLook &look, State state)
{
    if (action.isSeparator())
        drawRule(painter, rect.adjusted(margin(), 0, -margin(), 0), look.palette.hairline);
    else if (const auto header = MenuHeader::of(action))
        paintHeader(painter, rect, *header, look.palette, state);
    else
        paintRow(painter, rect, action, look, state);
}

} // namespace corvane::RowDrawing
