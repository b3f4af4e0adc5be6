#include "TremorLogDelegate.h"

#include "BoardStyle.h"
#include "DevicePixels.h"
#include "PlacementIcon.h"
#include "Symbol.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QAbstractItemView>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 10;
constexpr double rowHeight = 40;
constexpr double dayHeight = 44;

const TremorLogModel::Row &rowOf(const QModelIndex &index)
{
    return static_cast<const TremorLogModel *>(index.model())->row(index);
}

QFont strong(QFont font)
{
    font.setWeight(QFont::DemiBold);
    return font;
}

/// The row's share of its day's card.
void drawCard(QPainter &painter, const QRectF &rect, const TremorLogModel::Row &row)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const double corner = Board::length(radius);
    // The card goes on beyond a row that is not its first or last one.
    const QRectF card =
        rect.adjusted(0, row.isFirst ? 0 : -2 * corner, 0, row.isLast ? 0 : 2 * corner);
    painter.save();
    painter.setClipRect(rect);
    drawField(painter, card, corner, palette.sheet, palette.hairline);
    painter.restore();
    if (!row.isFirst)
        drawRule(painter, QRectF(rect.left(), rect.top() - 0.5, rect.width(), 1), palette.hairline);
}

/// Lays texts from the leading edge of a rectangle on, each as wide as it is, until the room ends.
class Run
{
public:
    Run(QPainter &painter, const QRect &room, Qt::LayoutDirection direction)
        : m_painter(painter), m_all(room), m_room(room), m_direction(direction)
    {
    }

    QRect take(int width, int gap = 0)
    {
        width = std::clamp(width, 0, m_room.width());
        const QRect taken(m_room.left(), m_room.top(), width, m_room.height());
        m_room.setLeft(std::min(m_room.right() + 1, taken.right() + 1 + gap));
        return QStyle::visualRect(m_direction, m_all, taken);
    }
    QRect takeEnd(int width, int gap = 0)
    {
        width = std::clamp(width, 0, m_room.width());
        const QRect taken(m_room.right() + 1 - width, m_room.top(), width, m_room.height());
        m_room.setRight(taken.left() - 1 - gap);
        return QStyle::visualRect(m_direction, m_all, taken);
    }
    [[nodiscard]] int left() const { return m_room.width(); }
    void text(const QRect &rect, const QFont &font, const QColor &color, const QString &text,
        Qt::Alignment alignment = Qt::AlignLeading)
    {
        const QFontMetrics metrics(font);
        m_painter.setFont(font);
        m_painter.setPen(color);
        m_painter.setLayoutDirection(Qt::LayoutDirectionAuto); // the text's own
        m_painter.drawText(rect,
            int(QStyle::visualAlignment(m_direction, alignment)) | int(Qt::AlignAbsolute)
                | int(Qt::AlignVCenter) | int(Qt::TextSingleLine),
            metrics.elidedText(text, Qt::ElideRight, rect.width()));
    }

private:
    QPainter &m_painter;
    QRect m_all;
    QRect m_room;
    Qt::LayoutDirection m_direction;
};

int widthOf(const QFont &font, const QString &text)
{
    return QFontMetrics(font).horizontalAdvance(text) + 1;
}

void drawDay(QPainter &painter, const QStyleOptionViewItem &option, const TremorLogModel::Row &row)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    Run run(painter, option.rect.adjusted(0, Board::length(12), 0, 0), option.direction);
    const QString counts = TremorLogModel::counts(row);
    const QFont numerals = Board::font(Board::Type::smallNumerals);
    run.text(run.takeEnd(widthOf(numerals, counts), Board::length(12)), numerals, palette.muted,
        counts, Qt::AlignTrailing);
    run.text(run.take(run.left()), strong(Board::font(Board::Type::body)), palette.fore,
        TremorLogModel::dayTitle(row.day));
}

void drawIcon(QPainter &painter, const QRectF &rect, const ActivityEntry &entry)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    if (entry.isRefusal())
        return Symbol::paint(painter, rect, u"nosign"_s, {palette.attention});
    if (const auto placement = placementNamed(entry.action))
        return PlacementIcon::paint(
            painter, rect, *placement, PlacementIcon::colors(palette, PlacementIcon::Form::plain));
    Symbol::paint(painter, rect, u"rectangle.split.3x1"_s, {palette.fore});
}

void drawBadge(QPainter &painter, const QRectF &rect, const QFont &font)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.attention, 1));
    painter.drawRoundedRect(
        snapped(painter, rect).adjusted(0.5, 0.5, -0.5, -0.5), Board::length(4), Board::length(4));
    painter.setFont(font);
    painter.drawText(rect, Qt::AlignCenter, TremorLogModel::tr("REFUSED"));
    painter.restore();
}

void drawEntry(QPainter &painter, const QStyleOptionViewItem &option, const ActivityEntry &entry)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const QFont body = Board::font(Board::Type::body);
    const QFont small = Board::font(Board::Type::secondary);
    const QFont numerals = Board::font(Board::Type::numerals);
    QFont badge = Board::font(Board::Type::label);
    badge.setPixelSize(Board::length(10));
    const int gap = Board::length(12);
    const int margin = Board::length(16);
    Run run(painter, option.rect.adjusted(margin, 0, -margin, 0), option.direction);

    const int timeWidth =
        widthOf(numerals, QLocale().toString(QTime(22, 58), TremorLogModel::tr("h:mm AP")));
    run.text(run.take(timeWidth, gap), numerals, palette.muted, TremorLogModel::timeText(entry),
        Qt::AlignTrailing);
    const int iconWidth = Board::length(20);
    const QRect icon = run.take(iconWidth, gap);
    const double iconHeight = Board::length(16);
    drawIcon(painter,
        QRectF(icon.left(), icon.center().y() - iconHeight / 2 + 0.5, iconWidth, iconHeight),
        entry);
    run.text(run.takeEnd(std::min(widthOf(small, entry.display), run.left() / 3), gap), small,
        palette.muted, entry.display, Qt::AlignTrailing);
    run.text(run.take(std::min(widthOf(body, entry.title), run.left()), Board::length(6)), body,
        palette.fore, entry.title);
    const QString detail = TremorLogModel::detail(entry);
    const int badgeWidth =
        entry.isRefusal() ? widthOf(badge, TremorLogModel::tr("REFUSED")) + Board::length(10) : 0;
    const int room = std::max(0, run.left() - (badgeWidth > 0 ? badgeWidth + Board::length(8) : 0));
    run.text(run.take(std::min(widthOf(small, detail), room), Board::length(8)), small,
        palette.muted, detail);
    if (badgeWidth > 0 && run.left() >= badgeWidth) {
        const QRect rest = run.take(badgeWidth);
        const double height = QFontMetrics(badge).height() + Board::length(4);
        drawBadge(painter,
            QRectF(rest.left(), rest.center().y() - height / 2 + 0.5, rest.width(), height), badge);
    }
}

} // namespace

void TremorLogDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const TremorLogModel::Row &row = rowOf(index);
    if (!row.entry)
        return drawDay(*painter, option, row);
    drawCard(*painter, option.rect, row);
    const Board::Palette &palette = BoardStyle::shared().colors();
    if (option.state & QStyle::State_Selected) {
        QColor tint = palette.accent;
        tint.setAlphaF(0.12F);
        const int inset = Board::length(4);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(
            option.state & QStyle::State_HasFocus ? QPen(palette.accent, 2) : QPen(Qt::NoPen));
        painter->setBrush(tint);
        painter->drawRoundedRect(
            QRectF(option.rect).adjusted(inset, inset, -inset, -inset), inset, inset);
        painter->restore();
    }
    drawEntry(*painter, option, *row.entry);
}

QSize TremorLogDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const double drawn = rowOf(index).entry ? rowHeight : dayHeight;
    const int text = QFontMetrics(Board::font(Board::Type::body)).height();
    return {0, std::max(Board::length(drawn), text + Board::length(16))};
}

} // namespace corvane
