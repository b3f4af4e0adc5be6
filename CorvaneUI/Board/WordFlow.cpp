#include "WordFlow.h"

#include <algorithm>

namespace corvane {

QList<WordFlow::Line> WordFlow::lines(const QList<Piece> &pieces, double width) const
{
    QList<Line> lines;
    for (qsizetype first = 0; first < pieces.size();) {
        qsizetype end = first + 1;
        double together = pieces[first].size.width();
        while (end < pieces.size() && !pieces[end].hasSpace)
            together += pieces[end++].size.width();
        if (lines.isEmpty() || lines.last().width + space + together > width)
            lines << Line{};
        Line &line = lines.last();
        line.width += (line.items.isEmpty() ? 0 : space) + together;
        for (; first < end; ++first) {
            line.items << first;
            line.height = std::max(line.height, pieces[first].size.height());
        }
    }
    return lines;
}

QSizeF WordFlow::size(const QList<Line> &lines) const
{
    double width = 0;
    double height = 0;
    for (const Line &line : lines) {
        width = std::max(width, line.width);
        height += line.height + (height > 0 ? lineSpacing : 0);
    }
    return {width, height};
}

QList<QRectF> WordFlow::rects(const QList<Piece> &pieces, double width, Qt::LayoutDirection page,
    Qt::LayoutDirection text) const
{
    QList<QRectF> rects;
    double y = 0;
    for (const Line &line : lines(pieces, width)) {
        const double left = page == Qt::RightToLeft ? width - line.width : 0;
        double x = 0;
        for (const qsizetype item : line.items) {
            const QSizeF size = pieces[item].size;
            if (x > 0 && pieces[item].hasSpace)
                x += space;
            rects << QRectF({left + (text == Qt::RightToLeft ? line.width - x - size.width() : x),
                                y + (line.height - size.height()) / 2},
                size);
            x += size.width();
        }
        y += line.height + lineSpacing;
    }
    return rects;
}

} // namespace corvane
