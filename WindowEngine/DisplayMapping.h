#pragma once

#include "DisplayKey.h"

#include <QtCore/QList>
#include <QtCore/QMap>

namespace corvane {

/// Which of the displays that are connected now stands for which of a layout's: its index by the
/// index of the layout's display. A display of the layout that is not connected is not in it.
[[nodiscard]] QMap<int, int> displayMapping(
    const QList<DisplayKey> &layout, const QList<DisplayKey> &current);

} // namespace corvane
