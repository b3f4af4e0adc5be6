#include "MenuHeader.h"

#include "CorvaneMark.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QAction>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Measures {
    double mark = Board::length(32);
    double gap = Board::length(10);
    double leading = Board::length(7); ///< between the capitals of the two lines
    QFont name = nameFont();
    QFont line = Board::font(Board::Type::secondary);

    static QFont nameFont()
    {
        QFont font = Board::font(Board::Type::body);
        font.setPixelSize(Board::length(12));
        font.setWeight(QFont::Bold);
        font.setLetterSpacing(QFont::PercentageSpacing, 114);
        return font;
    }

    double capitalsHeight() const
    {
        return QFontMetricsF(name).capHeight() + leading + QFontMetricsF(line).capHeight();
    }
};

} // namespace

MenuHeader MenuHeader::of(const AppModel &model)
{
    return {AppStatus::line(model), AppStatus::tone(model)};
}

std::optional<MenuHeader> MenuHeader::of(const QAction &action)
{
    const QVariant data = action.data();
    if (data.metaType() != QMetaType::fromType<MenuHeader>())
        return std::nullopt;
    return data.value<MenuHeader>();
}

QString MenuHeader::productName()
{
    return u"Corvane"_s;
}

QString MenuHeader::spoken() const
{
    return QCoreApplication::translate("MenuHeader", "%1, %2").arg(productName(), line);
}

QSizeF MenuHeader::size() const
{
    const Measures measures;
    const double text =
        std::max(QFontMetricsF(measures.name).horizontalAdvance(productName().toUpper()),
            QFontMetricsF(measures.line).horizontalAdvance(line));
    return {measures.mark + measures.gap + std::ceil(text),
        std::max(measures.mark, std::ceil(measures.capitalsHeight()))};
}

void MenuHeader::paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette) const
{
    const Measures measures;
    const QRectF mark(
        rect.left(), rect.center().y() - measures.mark / 2, measures.mark, measures.mark);
    CorvaneMark::paint(painter, mark, palette);

    const double x = mark.right() + measures.gap;
    const double top = rect.center().y() - measures.capitalsHeight() / 2;
    painter.setPen(palette.fore);
    painter.setFont(measures.name);
    painter.drawText(QPointF(x, std::round(top + QFontMetricsF(measures.name).capHeight())),
        productName().toUpper());
    painter.setPen(AppStatus::color(tone, palette));
    painter.setFont(measures.line);
    painter.drawText(QPointF(x, std::round(top + measures.capitalsHeight())), line);
}

} // namespace corvane
