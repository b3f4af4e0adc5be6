#include "PaneBadge.h"

#include "BoardStyle.h"
#include "Match.h"
#include "Symbol.h"

#include <QtGui/QPainter>

namespace corvane::PaneBadge {

using namespace Qt::StringLiterals;

namespace {

constexpr double diameter = 18;
constexpr double symbolSide = 11;
constexpr double distance = 6; ///< from the pane's edges

/// A disk that stands out from the pane's tint. Empty where the pane is too small for it.
QRectF paintDisk(QPainter &painter, const QRectF &pane, QPen edge)
{
    const double side = Board::length(diameter);
    const double margin = Board::length(distance);
    if (pane.width() < side + margin || pane.height() < side + margin)
        return {};
    const QPointF corner =
        pane.bottomRight() - QPointF(std::min(margin, (pane.width() - side) / 2), margin);
    const QRectF disk(corner - QPointF(side, side), QSizeF(side, side));
    edge.setWidthF(BoardStyle::shared().look().hasHighContrast ? 2 : 1.25);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(BoardStyle::shared().colors().sheet);
    painter.drawEllipse(disk);
    return disk;
}

} // namespace

Look look(const PaneStatus &status)
{
    return match(
        status.value,
        [](const PaneStatus::Placed &) {
            return Look{u"checkmark"_s, &Board::Palette::ready};
        },
        [](const PaneStatus::Refused &) {
            return Look{u"hand.raised"_s, &Board::Palette::error};
        },
        [](PaneStatus::Empty) {
            return Look{u"minus"_s, &Board::Palette::muted};
        },
        [](PaneStatus::DisplayMissing) {
            return Look{u"display.trianglebadge.exclamationmark"_s, &Board::Palette::attention};
        },
        [](PaneStatus::NotInstalled) {
            return Look{u"xmark"_s, &Board::Palette::error};
        },
        [](PaneStatus::NotRunning) {
            return Look{u"power"_s, &Board::Palette::attention};
        },
        [](PaneStatus::Launched) {
            return Look{u"circle.dotted"_s, &Board::Palette::attention};
        },
        [](PaneStatus::NoWindow) {
            return Look{u"exclamationmark.triangle"_s, &Board::Palette::attention};
        });
}

void paint(QPainter &painter, const QRectF &pane, const PaneStatus &status)
{
    const Look look = PaneBadge::look(status);
    const QColor ink = BoardStyle::shared().colors().*look.tone;
    painter.save();
    if (const QRectF disk = paintDisk(painter, pane, ink); !disk.isEmpty()) {
        QRectF square({0, 0}, QSizeF(1, 1) * Board::length(symbolSide));
        square.moveCenter(disk.center());
        Symbol::paint(painter, square, look.symbol, {ink});
    }
    painter.restore();
}

void paintWaiting(QPainter &painter, const QRectF &pane)
{
    QPen dots(BoardStyle::shared().colors().fore);
    dots.setDashPattern({0.1, 2.4});
    dots.setCapStyle(Qt::RoundCap);
    painter.save();
    paintDisk(painter, pane, dots);
    painter.restore();
}

} // namespace corvane::PaneBadge
