#pragma once

#include "Decoding.h"
#include "ShortcutPreset.h"

#include <QtCore/QJsonArray>

namespace corvane {

/// Takes both shapes: a flat list of a placement's name and its shortcut in turns, or an object from
/// one to the other. An unknown placement is passed over, a damaged shortcut is skipped and counted.
template <>
std::optional<ShortcutMap> decode(const QJsonValue &json, DecodeProblems &problems);

/// The shortcuts in the first of the two shapes.
[[nodiscard]] QJsonArray encode(const ShortcutMap &shortcuts);

} // namespace corvane
