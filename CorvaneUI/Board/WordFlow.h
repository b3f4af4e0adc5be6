#pragma once

#include <QtCore/QList>
#include <QtCore/QRectF>

namespace corvane {

/// Places pieces of text one after another in lines of a width.
struct WordFlow {
    struct Piece {
        QSizeF size;
        bool hasSpace = true; ///< before it, unless it begins a line
    };
    struct Line {
        QList<qsizetype> items; ///< the pieces' numbers
        double width = 0;
        double height = 0;
    };

    double space = 0; ///< between pieces
    double lineSpacing = 0;

    /// A piece that would pass the width begins a new line; one that has no space before it stays
    /// with the piece that it follows.
    [[nodiscard]] QList<Line> lines(const QList<Piece> &pieces, double width) const;
    [[nodiscard]] QSizeF size(const QList<Line> &lines) const;
    /// Where each piece is, from the top left, in the middle of its line's height. The lines begin where
    /// a page of this direction does; the pieces follow one another as the text is read.
    [[nodiscard]] QList<QRectF> rects(const QList<Piece> &pieces, double width,
        Qt::LayoutDirection page = Qt::LeftToRight,
        Qt::LayoutDirection text = Qt::LeftToRight) const;
};

} // namespace corvane
