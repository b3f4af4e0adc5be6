#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace corvane {

/// Draws the rows of an `AppPickerModel`: icon, name and what is told of the application.
class AppPickerDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit AppPickerDelegate(QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(
        const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    // Measured once, since a list asks for each of its rows.
    int m_rowHeight;
    int m_sectionHeight;
};

} // namespace corvane
