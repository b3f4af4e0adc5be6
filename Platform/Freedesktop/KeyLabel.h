#pragma once

#include <QtCore/QString>

namespace corvane {

/// The letter or sign that a key of this symbol (xkbcommon's number) types, as it is printed on a cap. Empty
/// for one that types none of the Latin script.
[[nodiscard]] QString keyLabel(quint32 keysym);

} // namespace corvane
