#pragma once

#include "AppStatus.h"

class QAction;

namespace corvane {

/// The head of the status menu: the mark, the product's name and the status line. The row's action
/// holds the record as its data.
struct MenuHeader {
    QString line;
    AppStatus::Tone tone = AppStatus::Tone::ready;

    [[nodiscard]] static MenuHeader of(const AppModel &model);
    /// The record that the action holds: none for any other row.
    [[nodiscard]] static std::optional<MenuHeader> of(const QAction &action);
    [[nodiscard]] static QString productName();
    /// The header as assistive technology reads it.
    [[nodiscard]] QString spoken() const;

    [[nodiscard]] QSizeF size() const;
    /// Paints the header at the rectangle's left edge, in the middle of its height.
    void paint(QPainter &painter, const QRectF &rect, const Board::Palette &palette) const;
};

} // namespace corvane
