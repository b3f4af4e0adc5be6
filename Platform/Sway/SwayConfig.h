#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <functional>

namespace corvane::sway {

/// A key combination, as sway's configuration and run-time bindings name it.
struct Binding {
    quint32 modifiers = 0; ///< of `HotKeys`
    quint32 keycode = 0; ///< xkbcommon's; 0 where a symbol names the key
    quint32 keysym = 0; ///< xkbcommon's, in lower case; 0 where a code names it
    QString command{};

    bool operator==(const Binding &) const = default;
};

/// The key bindings of the default mode in a configuration text (sway(5)). `readIncluded` hands over the
/// texts of the files that an `include` line names.
using ReadIncluded = std::function<QList<QByteArray>(const QString &pattern)>;
[[nodiscard]] QList<Binding> bindingsIn(const QByteArray &text, const ReadIncluded &readIncluded);

} // namespace corvane::sway
