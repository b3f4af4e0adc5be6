#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QIcon>

class QPainter;

/// Pictures of one or two colours, by the names that the system's symbols have on a Mac.
namespace corvane::Symbol {

/// The ink, and that of a badge; without the latter, a badge has the ink's.
struct Colors {
    QColor ink;
    QColor badge = {};

    bool operator==(const Colors &) const = default;
};

/// Draws it as large as fits the middle of the rectangle. Nothing is read before the first drawing.
void paint(QPainter &painter, const QRectF &rect, const QString &name, const Colors &colors);
[[nodiscard]] QIcon icon(const QString &name, const Colors &colors);

} // namespace corvane::Symbol
