#pragma once

#include "Expected.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <functional>
#include <optional>

namespace corvane::bench {

/// Somebody who brings windows to the first goal or to the second one.
struct Contestant {
    QString name;
    /// Milliseconds until the windows stand there; nothing when they never did.
    std::function<std::optional<double>(size_t goal)> time;
};

/// Everybody's samples, in the order of the contestants; each goal follows the other one. The error
/// is a sentence.
[[nodiscard]] expected<QList<QList<double>>, QString> takeTurns(
    const QList<Contestant> &contestants, int warmUpRounds, int rounds);

} // namespace corvane::bench
