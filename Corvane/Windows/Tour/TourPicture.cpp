#include "TourPicture.h"

#include "BoardStyle.h"
#include "DevicePixels.h"
#include "DraftingGrid.h"
#include "KeyCaps.h"
#include "PlacementIcon.h"
#include "Symbol.h"

#include <QtGui/QGuiApplication>
#include <QtWidgets/QStyle>

namespace corvane::TourPicture {

using namespace Qt::StringLiterals;

namespace {

constexpr double capHeight = 22;

/// A drawing whose lengths are those of text of 13 pixels, in the middle of a rectangle.
class Sheet
{
public:
    Sheet(QPainter &painter, const QRectF &rect, const QSizeF &drawn)
        : palette(BoardStyle::shared().colors())
        , m_painter(painter)
        , m_unit(double(Board::length(100)) / 100)
        , m_origin(rect.center() - QPointF(drawn.width(), drawn.height()) * m_unit / 2)
    {
        painter.setRenderHint(QPainter::Antialiasing);
    }

    [[nodiscard]] QRectF box(double x, double y, double width, double height) const
    {
        return {m_origin + QPointF(x, y) * m_unit, QSizeF(width, height) * m_unit};
    }

    void display(const QRectF &box) const
    {
        m_painter.setBrush(palette.sheet);
        m_painter.setPen(QPen(palette.fore, 2 * m_unit));
        m_painter.drawRoundedRect(box, 8 * m_unit, 8 * m_unit);
    }

    enum class Tint { light, strong };

    void window(const QRectF &box, Tint tint) const
    {
        QColor fill = palette.accent;
        fill.setAlphaF(tint == Tint::strong ? 0.26F : 0.12F);
        m_painter.setBrush(fill);
        m_painter.setPen(QPen(palette.accent, 1.5 * m_unit));
        m_painter.drawRoundedRect(box, 4 * m_unit, 4 * m_unit);
    }

    void stand(double x, double y, double width) const
    {
        m_painter.setPen(QPen(palette.fore, 2 * m_unit, Qt::SolidLine, Qt::RoundCap));
        m_painter.drawLine(box(x, y, width, 0).topLeft(), box(x, y, width, 0).topRight());
    }

    void symbol(const QRectF &box, const QString &name, const QColor &ink) const
    {
        m_painter.setBrush(palette.sheet);
        m_painter.setPen(Qt::NoPen);
        m_painter.drawEllipse(box.adjusted(-7, -7, 7, 7));
        Symbol::paint(m_painter, box, name, {ink});
    }

    const Board::Palette &palette;

private:
    QPainter &m_painter;
    double m_unit;
    QPointF m_origin;
};

using Tint = Sheet::Tint;

/// Of one display on its stand, which most pages draw on.
constexpr QSizeF deskSize(208, 152);

void paintDesk(const Sheet &sheet)
{
    sheet.display(sheet.box(0, 0, 208, 136));
    sheet.stand(79, 151, 50);
}

void paintWelcome(const Sheet &sheet)
{
    paintDesk(sheet);
    sheet.window(sheet.box(6, 6, 96, 124), Tint::strong);
    sheet.window(sheet.box(106, 6, 96, 60), Tint::light);
    sheet.window(sheet.box(106, 70, 96, 60), Tint::light);
}

void paintAccessibility(const Sheet &sheet, bool isTrusted)
{
    paintDesk(sheet);
    sheet.window(sheet.box(6, 6, 196, 124), Tint::light);
    sheet.symbol(sheet.box(80, 44, 48, 48), isTrusted ? u"checkmark.seal.fill"_s : u"hand.raised"_s,
        isTrusted ? sheet.palette.ready : sheet.palette.attention);
}

void paintAlsoRunning(const Sheet &sheet, bool isClear)
{
    paintDesk(sheet);
    if (isClear) {
        sheet.window(sheet.box(6, 6, 96, 124), Tint::strong);
        return sheet.symbol(sheet.box(130, 44, 48, 48), u"checkmark"_s, sheet.palette.ready);
    }
    sheet.window(sheet.box(6, 6, 96, 124), Tint::light);
    sheet.window(sheet.box(66, 24, 96, 88), Tint::strong);
    sheet.symbol(sheet.box(92, 46, 44, 44), u"exclamationmark.triangle"_s, sheet.palette.attention);
}

void paintLayouts(const Sheet &sheet)
{
    sheet.display(sheet.box(0, 0, 136, 92));
    sheet.window(sheet.box(5, 5, 48, 82), Tint::strong);
    sheet.window(sheet.box(57, 5, 36, 82), Tint::light);
    sheet.window(sheet.box(97, 5, 34, 82), Tint::light);
    sheet.stand(48, 104, 40);
    sheet.display(sheet.box(146, 34, 76, 58));
    sheet.window(sheet.box(151, 39, 66, 22), Tint::light);
    sheet.window(sheet.box(151, 65, 66, 22), Tint::light);
    sheet.stand(168, 104, 32);
}

/// A placement and its keys, one below the other; a warning for those that another program holds.
void paintKeys(QPainter &painter, const QRectF &rect, const AppModel &model)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const double step = Board::length(36);
    const QSizeF icon(Board::length(29), Board::length(23));
    const double inset = Board::length(42);
    double top = rect.center().y() - step * shownPlacements.size() / 2;
    const auto mirrored = [&](const QRectF &drawn) {
        return QRectF(QStyle::visualRect(
            QGuiApplication::layoutDirection(), rect.toAlignedRect(), drawn.toAlignedRect()));
    };
    for (const Placement placement : shownPlacements) {
        const double middle = top + step / 2;
        top += step;
        PlacementIcon::paint(painter,
            mirrored({QPointF(rect.left() + inset, middle - icon.height() / 2), icon}), placement,
            {palette.fore, palette.accent});
        const auto combo = model.settings().shortcuts.constFind(placement);
        if (combo == model.settings().shortcuts.cend())
            continue;
        const bool isTaken = model.unregistered.value().contains({placement});
        const KeyCaps caps(KeyCaps::partsOf(*combo), KeyCapStyle::ofHeight(capHeight));
        const QSizeF size = caps.size();
        const double left = rect.left() + inset + icon.width() + Board::length(13);
        const QRectF row = mirrored({QPointF(left, middle - size.height() / 2), size});
        caps.paint(painter, row.topLeft(), palette,
            isTaken ? KeyCaps::Form::dimmed : KeyCaps::Form::plain);
        const double side = Board::length(16);
        if (isTaken)
            Symbol::paint(painter,
                mirrored({left + size.width() + Board::length(8), middle - side / 2, side, side}),
                u"exclamationmark.triangle"_s, {palette.attention});
    }
}

} // namespace

void paint(QPainter &painter, const QRectF &rect, TourPage page, const AppModel &model)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    painter.fillRect(rect, palette.sheet);
    DraftingGrid::paint(painter, rect, Board::length(16), palette);
    switch (page) {
    case TourPage::welcome:
        return paintWelcome({painter, rect, deskSize});
    case TourPage::accessibility:
        return paintAccessibility({painter, rect, deskSize}, model.accessibilityTrusted);
    case TourPage::alsoRunning:
        return paintAlsoRunning({painter, rect, deskSize}, model.competitors.value().isEmpty());
    case TourPage::shortcuts:
        return paintKeys(painter, rect, model);
    case TourPage::layouts:
        return paintLayouts({painter, rect, {222, 105}});
    }
}

} // namespace corvane::TourPicture
