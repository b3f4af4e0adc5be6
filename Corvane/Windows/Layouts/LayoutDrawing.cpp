#include "LayoutDrawing.h"

#include "AppIcons.h"
#include "BoardStyle.h"
#include "DevicePixels.h"
#include "OneLine.h"
#include "PaneBadge.h"
#include "PaneSpan.h"
#include "Percent.h"
#include "Symbol.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLineF>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>

namespace corvane::LayoutDrawing {

using namespace Qt::StringLiterals;

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LayoutPicture)
};

constexpr double narrow = 64; ///< a pane that has no room for words
constexpr double tiny = 24; ///< one that has none for an icon
constexpr double chipMargin = 6;

const Board::Palette &palette()
{
    return BoardStyle::shared().colors();
}

bool isContrast()
{
    return BoardStyle::shared().look().hasHighContrast;
}

QString lookOf(std::initializer_list<QString> parts)
{
    return QStringList(parts).join(u'\n');
}

QString elided(const QFont &font, const QString &text, double width)
{
    return QFontMetricsF(font).elidedText(oneLine(text), Qt::ElideRight, width);
}

/// Words on a dark field, the second part of them quieter.
DrawnPart chip(const QString &key, QPointF middle, const QString &strong, const QString &quiet,
    const QRectF &room)
{
    const QFont font = Board::font(Board::Type::numerals);
    const QFontMetricsF metrics(font);
    const QString second = quiet.isEmpty() ? QString() : u' ' + quiet;
    QRectF field({0, 0},
        QSizeF(metrics.horizontalAdvance(strong + second) + 2 * chipMargin, metrics.height() + 6));
    field.moveCenter(middle);
    field.moveLeft(
        std::clamp(field.left(), room.left(), std::max(room.left(), room.right() - field.width())));
    return {key, field, strong + second, [=](QPainter &painter) {
                drawField(painter, field, 3, palette().fore, palette().fore);
                painter.setFont(font);
                painter.setPen(palette().sheet);
                const QRectF words = field.adjusted(chipMargin, 0, -chipMargin, 0);
                painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft, strong);
                QColor soft = palette().sheet;
                soft.setAlphaF(isContrast() ? 1 : 0.65F);
                painter.setPen(soft);
                painter.drawText(words, Qt::AlignVCenter | Qt::AlignRight, second);
            }};
}

DrawnPart displayPart(const LayoutScene::Display &display, bool isWithoutPanes, bool isCurrent)
{
    const QString key = u"display %1"_s.arg(display.index);
    const QString look = lookOf({QString::number(int(display.isConnected)),
        QString::number(int(isWithoutPanes)), QString::number(int(isCurrent))});
    return {key, display.frame.adjusted(-2, -2, 2, 2), look, [=](QPainter &painter) {
                const QColor ink = display.isConnected ? palette().fore : palette().attention;
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(QPen(ink, 1.25, display.isConnected ? Qt::SolidLine : Qt::DashLine));
                painter.setBrush(palette().sheet);
                painter.drawRoundedRect(
                    snapped(painter, display.frame).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
                if (display.visible != display.frame) {
                    QPainterPath panels;
                    panels.addRoundedRect(display.frame.adjusted(2, 2, -2, -2), 4, 4);
                    QPainterPath free;
                    free.addRect(display.visible);
                    painter.fillPath(
                        panels.subtracted(free), QBrush(palette().faint, Qt::BDiagPattern));
                }
                if (!isWithoutPanes)
                    return;
                const QRectF area = display.visible.adjusted(4, 4, -4, -4);
                painter.setBrush(Qt::NoBrush);
                painter.setPen(QPen(isCurrent ? palette().accent : palette().muted,
                    isCurrent ? 2 : 1, Qt::DashLine));
                painter.drawRoundedRect(area, 3, 3);
                painter.setFont(Board::font(Board::Type::body));
                painter.setPen(palette().accentType);
                painter.drawText(
                    area, int(Qt::AlignCenter) | int(Qt::TextWordWrap), Texts::tr("Add a Pane"));
            }};
}

/// The display's name and size below it; inside, at its foot, where another display stands below.
DrawnPart namePart(const LayoutScene &scene, const LayoutScene::Display &display)
{
    const QFont words = Board::font(Board::Type::secondary);
    const QFont numerals = Board::font(Board::Type::smallNumerals);
    const double height = QFontMetricsF(words).height();
    QRectF place(display.frame.left(), display.frame.bottom() + Board::length(5),
        display.frame.width(), height);
    const bool isInside = std::ranges::any_of(scene.displays,
        [&place](const LayoutScene::Display &each) { return each.frame.intersects(place); });
    if (isInside)
        place.moveBottom(display.visible.bottom() - Board::length(5));
    const QString note = display.isConnected ? QString() : Texts::tr("Not connected");
    const QString size = u"%1 × %2"_s.arg(display.key.width).arg(display.key.height);
    return {u"name %1"_s.arg(display.index), place,
        lookOf({display.key.name, size, note, QString::number(int(isInside))}),
        [=](QPainter &painter) {
            painter.setFont(words);
            const QFontMetricsF metrics(words);
            const double gap = Board::length(7);
            const double symbol = note.isEmpty() ? 0 : height + 4;
            const QString name = elided(words,
                note.isEmpty() ? display.key.name : display.key.name + u" · "_s + note,
                place.width() - symbol);
            const double width = metrics.horizontalAdvance(name);
            const double all =
                symbol + width + gap + QFontMetricsF(numerals).horizontalAdvance(size);
            const bool hasSize = all <= place.width();
            if (isInside) {
                const double margin = Board::length(4);
                drawField(painter,
                    QRectF(place.left() + margin, place.top() - 2,
                        (hasSize ? all : symbol + width) + 2 * margin, height + 4),
                    3, palette().sheet, palette().hairline);
            }
            const QRectF row = isInside ? place.translated(Board::length(8), 0) : place;
            if (!note.isEmpty())
                Symbol::paint(painter, QRectF(row.left(), row.top(), height, height),
                    u"exclamationmark.triangle"_s, {palette().attention});
            painter.setPen(note.isEmpty() ? palette().fore : palette().attention);
            painter.drawText(row.adjusted(symbol, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, name);
            if (!hasSize)
                return;
            painter.setFont(numerals);
            painter.setPen(palette().muted);
            painter.drawText(row.adjusted(symbol + width + gap, 0, 0, 0),
                Qt::AlignVCenter | Qt::AlignLeft, size);
        }};
}

/// The icon, the application's name and the title that is wanted of its window.
void paintWords(QPainter &painter, const Pane &pane, const QRectF &rect, bool isCurrent)
{
    const double icon = Board::length(18);
    const double margin = Board::length(8);
    if (rect.width() < tiny || rect.height() < icon + margin)
        return;
    const QRectF at(rect.left() + margin, rect.top() + margin, icon, icon);
    if (pane.app)
        AppIcons::shared().paint(painter, at, *pane.app);
    if (rect.width() < narrow)
        return;
    const QFont font = Board::font(Board::Type::secondary);
    const double lineHeight = QFontMetricsF(font).height();
    QRectF line(
        at.left(), at.center().y() - lineHeight / 2, rect.right() - margin - at.left(), lineHeight);
    if (pane.app)
        line.setLeft(at.right() + Board::length(7));
    painter.setFont(font);
    painter.setPen(isCurrent || pane.app ? palette().fore : palette().muted);
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft,
        elided(font, pane.app ? pane.app->name : Texts::tr("Empty"), line.width()));
    const QString title = pane.titleContains.value_or(QString());
    const QRectF second(at.left(), at.bottom() + 3, rect.right() - margin - at.left(), lineHeight);
    if (title.isEmpty() || second.bottom() > rect.bottom())
        return;
    painter.setPen(isCurrent ? palette().fore : palette().muted);
    painter.drawText(second, Qt::AlignVCenter | Qt::AlignLeft,
        elided(font, pane.prefersTitle() ? title : Texts::tr("“%1”").arg(title), second.width()));
}

DrawnPart panePart(const LayoutView &view, const Pane &pane)
{
    const QRectF rect = view.scene.rectOf(pane).adjusted(2, 2, -2, -2);
    const bool isCurrent = pane.id == view.pane;
    const bool hasRing = isCurrent && view.showsFocus && !view.isEdgeFocused;
    const bool isRemoved = pane.id == view.removed;
    const auto found = view.results.constFind(pane.id);
    const auto result =
        found == view.results.cend() ? std::nullopt : std::optional<PaneStatus>(*found);
    const bool waits = view.isUnderWay && !result && pane.app;
    const QString look = lookOf({pane.app ? pane.app->bundleID : QString(),
        pane.app ? pane.app->name : QString(), pane.titleContains.value_or(QString()),
        result ? statusName(*result) : QString(),
        QString::number(int(isCurrent) + 2 * int(hasRing) + 4 * int(isRemoved) + 8 * int(waits))});
    return {pane.id.toString(), rect.adjusted(-4, -4, 4, 4), look, [=](QPainter &painter) {
                const double width = (isContrast() ? 2 : 1) * (isCurrent ? 2 : 1);
                QColor tint = palette().accent;
                tint.setAlphaF(isCurrent ? 0.26F : 0.12F);
                // What lies under a pane that overlaps it does not show through.
                drawField(painter, rect, Board::length(3), palette().sheet, palette().sheet);
                drawField(painter, rect, Board::length(3), tint, palette().accent,
                    {.side = width, .bottom = width});
                if (isRemoved)
                    painter.fillRect(rect.adjusted(width, width, -width, -width),
                        QBrush(palette().muted, Qt::BDiagPattern));
                if (hasRing) {
                    painter.setRenderHint(QPainter::Antialiasing);
                    painter.setPen(QPen(palette().fore, 2));
                    painter.setBrush(Qt::NoBrush);
                    painter.drawRoundedRect(rect.adjusted(-2.5, -2.5, 2.5, 2.5), 5, 5);
                }
                paintWords(painter, pane, rect, isCurrent);
                if (result)
                    PaneBadge::paint(painter, rect, *result);
                else if (waits)
                    PaneBadge::paintWaiting(painter, rect);
            }};
}

DrawnPart rulerPart(const RulerNumber &number)
{
    const bool isAbove = number.cut == CutLines::vertical;
    return {u"ruler %1 %2"_s.arg(int(number.cut)).arg(number.index),
        number.span.adjusted(-1, -1, 1, 1), number.text, [=](QPainter &painter) {
            const QRectF &span = number.span;
            const QFont font = Board::font(Board::Type::smallNumerals);
            painter.setRenderHint(QPainter::Antialiasing, false);
            painter.setPen(QPen(palette().fore, 1));
            const QPointF middle = span.center();
            if (!isAbove) {
                painter.translate(middle);
                painter.rotate(-90);
                painter.translate(-middle);
            }
            const double length = isAbove ? span.width() : span.height();
            const QRectF lying(
                middle.x() - length / 2, middle.y() - Board::length(7), length, Board::length(14));
            const double words = QFontMetricsF(font).horizontalAdvance(number.text) + 6;
            for (const double end : {lying.left(), lying.right()})
                painter.drawLine(QPointF(end, lying.top() + 1), QPointF(end, lying.bottom() - 1));
            if (words + 8 < length) {
                painter.drawLine(
                    QPointF(lying.left(), middle.y()), QPointF(middle.x() - words / 2, middle.y()));
                painter.drawLine(QPointF(middle.x() + words / 2, middle.y()),
                    QPointF(lying.right(), middle.y()));
            }
            painter.setFont(font);
            if (words <= length)
                painter.drawText(lying, Qt::AlignCenter, number.text);
        }};
}

/// The edge's longest stretch.
QLineF longest(const QList<QLineF> &lines)
{
    const auto found = std::ranges::max_element(lines, {}, &QLineF::length);
    return found == lines.end() ? QLineF() : *found;
}

QList<DrawnPart> edgeParts(const LayoutView &view)
{
    const PaneEdge &edge = *view.edge;
    const bool isFocused = view.isEdgeFocused && view.showsFocus;
    const QList<QLineF> lines = segmentsOf(edge, view.layout, view.scene);
    const QLineF main = longest(lines);
    QList<DrawnPart> parts;
    for (const QLineF &line : lines) {
        const bool hasKnob = line == main;
        const QString look = QString::number(
            int(isFocused) + 2 * int(hasKnob) + 4 * int(edge.cut == CutLines::vertical));
        const QRectF along = QRectF(line.p1(), line.p2()).normalized();
        QRectF knob({0, 0}, edge.cut == CutLines::vertical ? QSizeF(7, 27) : QSizeF(27, 7));
        knob.moveCenter(line.center());
        const QRectF bounds = along.adjusted(-8, -8, 8, 8) | knob.adjusted(-2, -2, 2, 2);
        parts << DrawnPart{u"edge %1"_s.arg(parts.size()), bounds, look, [=](QPainter &painter) {
                               painter.setRenderHint(QPainter::Antialiasing);
                               painter.setPen(QPen(palette().accent, isContrast() ? 4 : 2));
                               painter.drawLine(line);
                               if (hasKnob) {
                                   painter.setPen(QPen(palette().sheet, 1));
                                   painter.setBrush(palette().accent);
                                   painter.drawRoundedRect(knob, 3.5, 3.5);
                               }
                               if (!isFocused)
                                   return;
                               painter.setPen(QPen(palette().fore, 2));
                               painter.setBrush(Qt::NoBrush);
                               painter.drawRoundedRect(along.adjusted(-5, -5, 5, 5), 5, 5);
                           }};
    }
    return parts;
}

/// A line through the whole display where an edge has snapped, and what it has snapped to.
QList<DrawnPart> guideParts(const LayoutView &view)
{
    const auto snap = view.drag->snap();
    const LayoutScene::Display *display = view.scene.display(view.drag->edge().display);
    if (!snap || !display)
        return {};
    QString name = percent(*snap);
    for (const auto &[fraction, words] : {std::pair(0.25, u"1/4"_s), {1.0 / 3, u"1/3"_s},
             {0.5, u"1/2"_s}, {2.0 / 3, u"2/3"_s}, {0.75, u"3/4"_s}}) {
        if (std::abs(fraction - *snap) < roundingError)
            name = words;
    }
    const bool isUpright = view.drag->edge().cut == CutLines::vertical;
    const QRectF &area = display->visible;
    const QFont font = Board::font(Board::Type::smallNumerals);
    const QFontMetricsF metrics(font);
    QRectF label({0, 0}, QSizeF(metrics.horizontalAdvance(name) + 10, metrics.height() + 2));
    QLineF line;
    if (isUpright) {
        const double x = area.left() + *snap * area.width();
        line = QLineF(x, display->frame.top() - 4, x, display->frame.bottom() + 8);
        label.moveCenter({x, display->frame.top() - Board::length(rulerRoom) + label.height() / 2});
    } else {
        const double y = area.top() + *snap * area.height();
        line = QLineF(display->frame.left() - 4, y, display->frame.right() + 8, y);
        label.moveCenter({display->frame.right() - label.width() / 2 - 4, y - label.height()});
    }
    const QRectF bounds = QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1) | label;
    return {{u"guide"_s, bounds, name, [=](QPainter &painter) {
                 painter.setPen(QPen(palette().accent, 1, Qt::DashLine));
                 painter.drawLine(line);
                 drawField(painter, label, 2, palette().accent, palette().accent);
                 painter.setFont(font);
                 painter.setPen(palette().onAccent);
                 painter.drawText(label, Qt::AlignCenter, name);
             }}};
}

/// What the panes on both sides of the edge are wide or high.
QList<DrawnPart> chipParts(const LayoutView &view)
{
    const PaneEdge &edge = *view.edge;
    const LayoutScene::Display *display = view.scene.display(edge.display);
    const QLineF line = longest(segmentsOf(edge, view.layout, view.scene));
    const bool isUpright = edge.cut == CutLines::vertical;
    QList<DrawnPart> chips;
    for (const bool isBefore : {true, false}) {
        const auto touches = [&](const Pane &pane) {
            const PaneSpan span = spanOf(pane.rect, edge.cut);
            return sameEdge(isBefore ? span.end() : span.start, edge.at);
        };
        const QList<Pane> panes = view.layout.panesOn(edge.display);
        const auto pane = std::ranges::find_if(panes, touches);
        if (pane == panes.end())
            continue;
        const double extent = spanOf(pane->rect, edge.cut).length;
        const double pixels = extent
            * (isUpright ? display->visible.width() : display->visible.height()) / view.scene.scale;
        const bool isLeast =
            view.drag && view.drag->isAtLimit() && extent < EdgeDrag::minimum + 0.001;
        const QString strong = isLeast ? Texts::tr("5 % is the smallest") : percent(extent);
        const QString quiet = isLeast ? QString() : Texts::tr("%1 px").arg(qRound(pixels));
        const QFontMetricsF metrics(Board::font(Board::Type::numerals));
        const double half = metrics.horizontalAdvance(strong + u' ' + quiet) / 2 + chipMargin + 6;
        const int side = isBefore ? -1 : 1;
        const QPointF middle = isUpright
            ? QPointF(line.center().x() + side * half, line.y1() + line.dy() * 0.72)
            : QPointF(line.x2() - half, line.center().y() + side * (metrics.height() / 2 + 9));
        DrawnPart made =
            chip(u"chip %1"_s.arg(int(isBefore)), middle, strong, quiet, display->frame);
        // Short of room, the second one stands below the first.
        if (!chips.isEmpty() && made.bounds.intersects(chips.first().bounds))
            made = chip(made.key,
                {middle.x(), chips.first().bounds.bottom() + made.bounds.height() / 2 + 3}, strong,
                quiet, display->frame);
        chips << made;
    }
    return chips;
}

/// From the pane that would grow into the one that would go.
DrawnPart growthPart(const LayoutView &view, const Pane &grower, const Pane &removed)
{
    const QPointF from = view.scene.rectOf(grower).center();
    const QPointF to = view.scene.rectOf(removed).center();
    return {u"growth"_s, QRectF(from, to).normalized().adjusted(-8, -8, 8, 8), {},
        [=](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().accent, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            QLineF shaft(from, to);
            painter.drawLine(shaft);
            for (const int side : {-1, 1}) {
                QLineF barb(to, from);
                barb.setLength(9);
                barb.setAngle(barb.angle() + side * 35);
                painter.drawLine(barb);
            }
        }};
}

const Pane *paneOf(const WindowLayout &layout, const QUuid &id)
{
    const auto found = std::ranges::find(layout.panes, id, &Pane::id);
    return found == layout.panes.end() ? nullptr : &*found;
}

} // namespace

QString percent(double fraction)
{
    return Texts::tr("%1 %").arg(percentNumber(fraction));
}

QList<RulerNumber> rulers(const LayoutView &view)
{
    const auto grid = view.layout.grid(view.display);
    const LayoutScene::Display *display = view.scene.display(view.display);
    if (!grid || !display)
        return {};
    const QRectF desk = view.scene.bounds();
    const double thickness = Board::length(14);
    const double distance = Board::length(3);
    const QRectF &area = display->visible;
    QList<RulerNumber> numbers;
    if (grid->columns.size() > 1) {
        double x = area.left();
        for (const double column : grid->columns) {
            const double width = column * area.width();
            numbers << RulerNumber{CutLines::vertical, int(numbers.size()),
                {x, desk.top() - distance - thickness, width, thickness}, percent(column)};
            x += width;
        }
    }
    if (grid->rows.size() > 1) {
        double y = area.top();
        int index = 0;
        for (const double row : grid->rows) {
            const double height = row * area.height();
            numbers << RulerNumber{CutLines::horizontal, index++,
                {desk.left() - distance - thickness, y, thickness, height}, percent(row)};
            y += height;
        }
    }
    return numbers;
}

QList<DrawnPart> parts(const LayoutView &view)
{
    QList<DrawnPart> all;
    for (const LayoutScene::Display &display : view.scene.displays) {
        const bool isWithoutPanes = view.layout.panesOn(display.index).isEmpty();
        all << displayPart(display, isWithoutPanes,
            isWithoutPanes && view.pane.isNull() && display.index == view.display);
    }
    for (const Pane &pane : view.layout.panes)
        all << panePart(view, pane);
    for (const LayoutScene::Display &display : view.scene.displays)
        all << namePart(view.scene, display);
    for (const RulerNumber &number : rulers(view))
        all << rulerPart(number);
    const Pane *grower = paneOf(view.layout, view.grower);
    const Pane *removed = paneOf(view.layout, view.removed);
    if (grower && removed)
        all << growthPart(view, *grower, *removed);
    if (view.drag)
        all << guideParts(view);
    if (view.edge && view.scene.display(view.edge->display)) {
        all << edgeParts(view);
        if (view.drag || view.isEdgeFocused)
            all << chipParts(view);
    }
    return all;
}

} // namespace corvane::LayoutDrawing
