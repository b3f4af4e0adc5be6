#pragma once

#include <QtWidgets/QListView>

namespace corvane {

/// Assistive technology selects a row, or no row, without making it the current one. Here the current
/// row is the selected one.
inline void keepCurrentSelected(QListView &list)
{
    const auto follow = [&list] {
        const QModelIndexList selected = list.selectionModel()->selectedIndexes();
        const QModelIndex index = selected.isEmpty() ? list.currentIndex() : selected.first();
        if (index.isValid())
            list.setCurrentIndex(index);
    };
    // Later, since a current row is selected before it is the current one.
    QObject::connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, &list, follow,
        Qt::QueuedConnection);
}

} // namespace corvane
