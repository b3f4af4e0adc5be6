#pragma once

#include "Board.h"
#include "Expected.h"

#include <QtGui/QIcon>

class QPainter;

/// The status item's picture: the mark as one shape in one colour, as panels want it.
namespace corvane::StatusIcon {

enum class Form {
    ordinary,
    attention, ///< with a badge
};

struct Colors {
    QColor ink;
    QColor badge;
    /// In the panel's tone, so that the ink is seen on a panel of another tone than was thought, too.
    QColor rim = Qt::transparent;
};

/// The colours for a panel of this look.
[[nodiscard]] Colors colors(const DesktopLook &panel);
void paint(QPainter &painter, const QRectF &rect, Form form, const Colors &colors);
[[nodiscard]] QIcon icon(Form form, const Colors &colors);
/// The picture in words, for assistive technology.
[[nodiscard]] QString description(Form form);

/// Writes the ordinary form to a PNG file. The error is one sentence.
[[nodiscard]] expected<void, QString> render(const QString &path);

} // namespace corvane::StatusIcon
