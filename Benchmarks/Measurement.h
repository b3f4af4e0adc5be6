#pragma once

#include "Expected.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace corvane::bench {

struct Limit {
    enum class Kind { atMost, atLeast };

    Kind kind = Kind::atMost;
    double value = 0;
};

/// One line of the table.
struct Measurement {
    QString name;
    double value = 0;
    QString unit; ///< empty for a ratio
    std::optional<Limit> limit{};

    [[nodiscard]] bool holds() const;
};

/// The error is a sentence: what kept a benchmark from measuring.
using Measurements = expected<QList<Measurement>, QString>;

[[nodiscard]] QString heading(const QString &title);
[[nodiscard]] QString tableLine(const Measurement &measurement);

} // namespace corvane::bench
