#pragma once

#include <optional>

class QJsonObject;
class QJsonValue;

namespace corvane {

struct DecodeProblems;

/// Fractions of a display's visible frame, x and y measured from its top left corner.
struct UnitRect {
    double x = 0;
    double y = 0;
    double w = 1;
    double h = 1;

    [[nodiscard]] QJsonObject toJson() const;
    /// All four fields are required.
    [[nodiscard]] static std::optional<UnitRect> fromJson(
        const QJsonValue &json, DecodeProblems &problems);

    constexpr bool operator==(const UnitRect &) const = default;
};

} // namespace corvane
