#pragma once

#include "AXError.h"
#include "Board.h"

#include <QtGui/QIcon>

class QPainter;

/// The status item's picture: the mark as one shape of one ink, as panels want it.
namespace corvane::StatusIcon {

enum class Form {
    ordinary,
    attention, ///< with a badge
};

struct Colors {
    QColor ink;
    QColor badge;
    QColor rim =
        Qt::transparent; ///< of the panel's tone, for a panel that is not as it was said to be
};

/// For a panel that is light or dark.
[[nodiscard]] Colors colors(const DesktopLook &panel);
void paint(QPainter &painter, const QRectF &rect, Form form, const Colors &colors);
[[nodiscard]] QIcon icon(Form form, const Colors &colors);
/// As assistive technology reads it.
[[nodiscard]] QString description(Form form);

/// Writes the ordinary form as a PNG. The error is one sentence.
[[nodiscard]] expected<void, QString> render(const QString &path);

} // namespace corvane::StatusIcon
