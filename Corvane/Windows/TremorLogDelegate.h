#pragma once

#include "TremorLogModel.h"

#include <QtWidgets/QStyledItemDelegate>

namespace corvane {

/// Draws the move history: a heading for each day, and its entries in a card.
class TremorLogDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(
        const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace corvane
