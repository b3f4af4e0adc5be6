#include "RowDrawing.h"

#include "DevicePixels.h"
#include "Match.h"
#include "PlacementIcon.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>

#include <algorithm>
#include <cmath>

namespace corvane::RowDrawing {

namespace {

using Row = MenuRows::Row;
using Style = MenuRows::Style;
using Trailing = MenuRows::Trailing;

constexpr double fieldInset = 5; // drawn lengths, as all below
constexpr double rowInset = 14;
constexpr double rowHeight = 28;
constexpr double symbolSize = 16;
constexpr double pictureWidth = 20;
constexpr double pictureHeight = 16;
constexpr double trailingGap = 28; // at least, behind the title
constexpr double longestTitle = 340;
constexpr double chevronWidth = 5;
constexpr double chevronHeight = 9;

QFont titleFont(const Row &row, const Style &style)
{
    QFont font = style.titleFont;
    if (row.bold)
        font.setWeight(QFont::DemiBold);
    return font;
}

double textWidth(const QFont &font, const QString &text)
{
    return std::ceil(QFontMetricsF(font).horizontalAdvance(text));
}

QSizeF trailingSize(const Row &row, const Style &style, Kind kind)
{
    if (kind == Kind::submenu)
        return QSizeF(Board::length(chevronWidth), Board::length(chevronHeight));
    return match(
        row.trailing.value, [](Trailing::None) { return QSizeF(); },
        [&](const Trailing::Keys &keys) { return keyCaps(keys.parts, style).size(); },
        [&](const Trailing::Text &text) {
            return QSizeF(textWidth(style.trailingFont, text.text),
                QFontMetricsF(style.trailingFont).height());
        });
}

double textColumnWidth(const Row &row, const Style &style)
{
    const QFont subtitle = Board::font(Board::Type::secondary);
    const double width = std::max(textWidth(titleFont(row, style), row.title),
        row.subtitle ? textWidth(subtitle, *row.subtitle) : 0);
    return std::min<double>(width, Board::length(longestTitle));
}

/// Capitals in the middle of the rectangle, which is what the eye takes for the text's middle.
double baseline(const QFont &font, const QRectF &rect)
{
    return std::round(rect.center().y() + QFontMetricsF(font).capHeight() / 2);
}

void drawText(QPainter &painter, const QFont &font, const QColor &color, const QRectF &rect,
    const QString &text, double y)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QPointF(rect.left(), y),
        QFontMetricsF(font).elidedText(text, Qt::ElideMiddle, rect.width() + 1));
}

struct Inks {
    QColor title;
    QColor subtitle;
    Symbol::Colors symbol;
    PlacementIcon::Colors picture;
    QColor trailing;
    KeyCaps::Form caps = KeyCaps::Form::plain;
};

Inks inks(const Row &row, const Board::Palette &palette, State state)
{
    using Form = PlacementIcon::Form;
    if (!state.isEnabled) {
        return {palette.faint, palette.faint, {palette.faint},
            PlacementIcon::colors(palette, Form::dimmed), palette.faint, KeyCaps::Form::dimmed};
    }
    if (state.isLit) {
        return {palette.onAccent, palette.onAccent, {palette.onAccent},
            PlacementIcon::colors(palette, Form::lit), palette.onAccent, KeyCaps::Form::lit};
    }
    const QColor title = row.tint.value_or(palette.fore);
    const Symbol::Colors symbol =
        row.symbolColors.value_or(Symbol::Colors{row.tint.value_or(palette.muted)});
    return {title, palette.muted, symbol, PlacementIcon::colors(palette, Form::plain),
        palette.muted, KeyCaps::Form::plain};
}

void paintIcon(QPainter &painter, const QRectF &slot, const Row &row, const Inks &ink)
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

void paintTrailing(QPainter &painter, const QRectF &rect, const Row &row, const Style &style,
    const Board::Palette &palette, const Inks &ink, Kind kind)
{
    if (kind == Kind::submenu)
        return paintChevron(painter, rect, ink.trailing);
    match(
        row.trailing.value, [](Trailing::None) {},
        [&](const Trailing::Keys &keys) {
            keyCaps(keys.parts, style).paint(painter, rect.topLeft(), palette, ink.caps);
        },
        [&](const Trailing::Text &text) {
            drawText(painter, style.trailingFont, ink.trailing, rect, text.text,
                baseline(style.trailingFont, rect));
        });
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

} // namespace

Kind kindOf(const QAction &action)
{
    return action.menu<QMenu *>() ? Kind::submenu : Kind::action;
}

QSizeF size(const Row &row, const Style &style, Kind kind)
{
    const double trailing = trailingSize(row, style, kind).width();
    const double width = 2 * margin() + style.iconSlot + style.gap + textColumnWidth(row, style)
        + (trailing > 0 ? Board::length(trailingGap) + trailing : 0);
    double text = QFontMetricsF(style.titleFont).height();
    if (row.subtitle)
        text += QFontMetricsF(Board::font(Board::Type::secondary)).height();
    const double content = std::max(text + Board::length(2), style.capHeight);
    return {
        width, std::max<double>(Board::length(rowHeight), std::ceil(content) + Board::length(8))};
}

QSizeF headerSize(const MenuHeader &header)
{
    return header.size() + QSizeF(2 * margin(), 2.0 * Board::length(8));
}

double separatorHeight()
{
    return Board::length(13);
}

double margin()
{
    return Board::length(rowInset);
}

KeyCaps keyCaps(const QStringList &parts, const Style &style)
{
    KeyCapStyle caps = KeyCapStyle::ofHeight(20);
    caps.height = style.capHeight;
    caps.gap = style.capGap;
    caps.cornerRadius = style.capCornerRadius;
    caps.glyphFont = style.glyphFont;
    caps.nameFont = style.nameFont;
    return {parts, caps};
}

Places places(const QRectF &rect, const Row &row, const Style &style, Kind kind)
{
    Places places;
    places.field = fieldOf(rect);
    const double left = rect.left() + margin();
    const double right = rect.right() - margin();
    places.icon = QRectF(left, rect.top(), style.iconSlot, rect.height());
    const QSizeF trailing = trailingSize(row, style, kind);
    double textRight = right;
    if (!trailing.isEmpty()) {
        const double top = std::round(rect.center().y() - trailing.height() / 2);
        places.trailing = QRectF(QPointF(right - trailing.width(), top), trailing);
        textRight = places.trailing.left() - Board::length(trailingGap);
    }
    const double textLeft = places.icon.right() + style.gap;
    const double titleHeight = QFontMetricsF(style.titleFont).height();
    places.title = QRectF(textLeft, rect.top(), textRight - textLeft, rect.height());
    if (row.subtitle) {
        const double height = QFontMetricsF(Board::font(Board::Type::secondary)).height();
        const double top = rect.center().y() - (titleHeight + height) / 2;
        places.title = QRectF(textLeft, top, textRight - textLeft, titleHeight);
        places.subtitle = places.title.translated(0, titleHeight);
        places.subtitle.setHeight(height);
    }
    return places;
}

void paint(QPainter &painter, const QRectF &rect, const Row &row, const Style &style,
    const Board::Palette &palette, State state)
{
    const Places at = places(rect, row, style, state.kind);
    const Inks ink = inks(row, palette, state);
    if (state.isLit && state.isEnabled)
        paintField(painter, at.field, palette);
    paintIcon(painter, at.icon, row, ink);
    const QFont title = titleFont(row, style);
    drawText(painter, title, ink.title, at.title, row.title, baseline(title, at.title));
    if (row.subtitle) {
        const QFont subtitle = Board::font(Board::Type::secondary);
        drawText(painter, subtitle, ink.subtitle, at.subtitle, *row.subtitle,
            baseline(subtitle, at.subtitle));
    }
    paintTrailing(painter, at.trailing, row, style, palette, ink, state.kind);
}

void paintHeader(QPainter &painter, const QRectF &rect, const MenuHeader &header,
    const Board::Palette &palette, bool isLit)
{
    Board::Palette shown = palette;
    if (isLit) {
        paintField(painter, fieldOf(rect), palette);
        shown.fore = shown.ready = shown.attention = palette.onAccent;
        std::swap(shown.accent, shown.onAccent);
    }
    header.paint(painter, rect.adjusted(margin(), 0, -margin(), 0), shown);
}

void paintSeparator(QPainter &painter, const QRectF &rect, const Board::Palette &palette)
{
    drawRule(painter, rect.adjusted(margin(), 0, -margin(), 0), palette.hairline);
}

} // namespace corvane::RowDrawing
