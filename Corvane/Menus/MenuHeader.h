#pragma once

#include "AppStatus.h"

namespace corvane {

/// The head of the status menu: the mark, the product's name and the status line.
struct MenuHeader {
    QString line;
    AppStatus::Tone tone = AppStatus::Tone::ready;

    [[nodiscard]] static MenuHeader of(const AppModel &model);
    [[nodiscard]] static QString productName();
    /// As assistive technology reads it.
    [[nodiscard]] QString spoken() const;

    [[nodiscard]] QSizeF size() const;
    /// From the rectangle's left edge, in the middle of its height.
    void paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette) const;
};

} // namespace corvane
