#pragma once

#include <QtCore/QString>

#include <optional>

/// Fractions as a person reads and types them.
namespace corvane {

/// In percents, without the sign: "33.3".
[[nodiscard]] QString percentNumber(double fraction);
/// With or without the sign; nothing unless it is a number.
[[nodiscard]] std::optional<double> fractionFromPercent(const QString &text);

} // namespace corvane
