#pragma once

#include <QtCore/QtGlobal>

namespace corvane::kwin {

/// The key of Qt's numbering that a symbol (xkbcommon's number) is; 0 for one that has none, and for those
/// of the keypad that KWin does not tell from other keys.
[[nodiscard]] int qtKey(quint32 keysym);

/// How KWin hears a key with modifiers (`HotKeys` bits), by the symbols that the key types without and with
/// Shift; 0 where it does not. Shift counts only where it makes no other symbol of the key.
[[nodiscard]] int qtCombination(quint32 keysym, quint32 shiftedKeysym, quint32 modifiers);

} // namespace corvane::kwin
