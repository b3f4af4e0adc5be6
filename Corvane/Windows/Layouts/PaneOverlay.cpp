#include "PaneOverlay.h"

#include "AppIcons.h"
#include "BoardStyle.h"
#include "DevicePixels.h"
#include "OneLine.h"
#include "Percent.h"
#include "Platform.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double edgeWidth = 3;
constexpr float tint = 0.26F;
// As drawn for text of 13 pixels.
constexpr double margin = 12;
constexpr double iconSide = 48;
constexpr double leastText = 48; ///< below it, words tell nothing

struct Line {
    QString text;
    Board::Type type;
    QColor Board::Palette::*tone;
};

/// What the label says and where it stands.
struct Label {
    QRectF card;
    QRectF icon;
    QRectF text;
    QList<Line> lines;
};

QList<Line> linesOf(const Pane &pane)
{
    using Palette = Board::Palette;
    QList<Line> lines{pane.app
            ? Line{oneLine(pane.app->name), Board::Type::title, &Palette::fore}
            : Line{PaneOverlay::tr("Empty"), Board::Type::title, &Palette::muted}};
    if (pane.titleContains)
        lines << Line{oneLine(*pane.titleContains), Board::Type::body, &Palette::muted};
    return lines << Line{PaneOverlay::tr("%1 × %2 %")
                             .arg(percentNumber(pane.rect.w), percentNumber(pane.rect.h)),
               Board::Type::numerals, &Palette::muted};
}

/// As many lines as there is room for; without any, the icon alone; without room for that, nothing.
Label labelOf(const QRectF &rect, const Pane &pane)
{
    Label label;
    const double gap = Board::length(margin);
    const QSizeF room = rect.size().shrunkBy(QMarginsF(2 * gap, 2 * gap, 2 * gap, 2 * gap));
    const bool hasIcon = pane.app.has_value();
    const QSizeF icon =
        hasIcon ? QSizeF(Board::length(iconSide), Board::length(iconSide)) : QSizeF(0, 0);
    if (room.width() < icon.width() || room.height() < icon.height())
        return label;
    const double most = room.width() - icon.width() - (hasIcon ? gap : 0);
    QSizeF text(0, 0);
    for (Line &line : linesOf(pane)) {
        const QFontMetricsF metrics(Board::font(line.type));
        if (most < Board::length(leastText) || text.height() + metrics.height() > room.height())
            break;
        line.text = metrics.elidedText(line.text, Qt::ElideRight, most);
        text.setWidth(std::max(text.width(), std::ceil(metrics.horizontalAdvance(line.text))));
        text.rheight() += metrics.height();
        label.lines << line;
    }
    if (!hasIcon && label.lines.isEmpty())
        return label;
    const double between = hasIcon && !label.lines.isEmpty() ? gap : 0;
    QRectF content({0, 0},
        QSizeF(icon.width() + between + text.width(), std::max(icon.height(), text.height())));
    content.moveCenter(rect.center());
    label.card = content.marginsAdded(QMarginsF(gap, gap, gap, gap)).toAlignedRect();
    label.icon = QRectF(content.topLeft(), icon);
    label.text = QRectF(QPointF(content.right() - text.width(), 0), text);
    for (QRectF *each : {&label.icon, &label.text}) {
        each->moveCenter({each->center().x(), content.center().y()});
        if (QGuiApplication::isRightToLeft())
            each->moveLeft(content.left() + content.right() - each->right());
    }
    return label;
}

void paintLabel(QPainter &painter, const Label &label, const Pane &pane, double radius)
{
    if (label.card.isEmpty())
        return;
    const Board::Palette &palette = BoardStyle::shared().colors();
    drawField(painter, label.card, radius, palette.sheet, palette.edge);
    if (pane.app)
        AppIcons::shared().paint(painter, label.icon, *pane.app);
    double top = label.text.top();
    for (const Line &line : label.lines) {
        painter.setFont(Board::font(line.type));
        painter.setPen(palette.*line.tone);
        const double height = QFontMetricsF(painter.font()).height();
        const QRectF place(label.text.left(), top, label.text.width(), height);
        const auto side = QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
        painter.drawText(
            place, int(side) | int(Qt::AlignAbsolute) | int(Qt::TextDontClip), line.text);
        top += height;
    }
}

/// The display that the point, in pixels, is on: Qt keeps their places in pixels, but not their sizes.
QScreen *screenAt(const QPointF &point)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(screens, [&point](const QScreen *each) {
        return QRectF(
            each->geometry().topLeft(), each->geometry().size() * each->devicePixelRatio())
            .contains(point);
    });
    return found == screens.end() ? QGuiApplication::primaryScreen() : *found;
}

} // namespace

PaneOverlay::PaneOverlay(Behind behind) : m_behind(behind)
{
    // Tips stay on top anyway, but without that flag Qt makes their window anew when it shows them, and
    // the new one takes the pointer.
    setFlags(Qt::ToolTip | Qt::WindowStaysOnTopHint | Qt::FramelessWindowHint
        | Qt::NoDropShadowWindowHint | Qt::WindowTransparentForInput
        | Qt::WindowDoesNotAcceptFocus);
    if (behind == Behind::shinesThrough) {
        QSurfaceFormat format = this->format();
        format.setAlphaBufferSize(8);
        setFormat(format);
    }
}

void PaneOverlay::showPane(const Pane &pane, const Rect &frame)
{
    m_pane = pane;
    const QRectF pixels(frame.x, frame.y, frame.width, frame.height);
    m_pixels = pixels.size();
    QScreen *screen = screenAt(pixels.center());
    setScreen(screen);
    const QPointF origin = screen->geometry().topLeft();
    const double scale = screen->devicePixelRatio();
    setGeometry(QRectF(origin + (pixels.topLeft() - origin) / scale, m_pixels / scale).toRect());
    create();
    Platform::current().ownWindows().setOverlay(winId(), frame);
    if (m_behind == Behind::cutOut)
        setMask(shape(area().size(), pane));
    setVisible(true);
    update();
}

QRectF PaneOverlay::area() const
{
    return {{0, 0}, m_pixels / devicePixelRatio()};
}

QRegion PaneOverlay::shape(const QSizeF &size, const Pane &pane)
{
    const QRectF whole({0, 0}, size);
    const QMarginsF edges(edgeWidth, edgeWidth, edgeWidth, edgeWidth);
    const QRegion outline =
        QRegion(whole.toAlignedRect()).subtracted(whole.marginsRemoved(edges).toAlignedRect());
    return outline.united(labelOf(whole, pane).card.toAlignedRect());
}

void PaneOverlay::paint(
    QPainter &painter, const QRectF &rect, const Pane &pane, PaneOverlay::Behind behind)
{
    const bool isBlended = behind == Behind::shinesThrough;
    const QColor accent = BoardStyle::shared().colors().accent;
    QColor fill = accent;
    fill.setAlphaF(isBlended ? tint : 0);
    // A shape's corners would be jagged.
    const double radius = isBlended ? Board::length(8) : 0;
    painter.save();
    drawField(painter, rect, radius, fill, accent, {edgeWidth, edgeWidth});
    paintLabel(painter, labelOf(rect, pane), pane, radius);
    painter.restore();
}

void PaneOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect({0, 0}, size()), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    paint(painter, area(), m_pane, m_behind);
}

} // namespace corvane
