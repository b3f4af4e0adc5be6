#include "UnitRect.h"

#include "Decoding.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// No display is that large; beyond it, editing would overflow sooner or later.
constexpr double absurd = 1e6;

bool isPlausible(const UnitRect &rect)
{
    return std::ranges::all_of(std::array{rect.x, rect.y, rect.w, rect.h},
        [](double fraction) { return std::abs(fraction) <= absurd; });
}

} // namespace

QJsonObject UnitRect::toJson() const
{
    return {{u"x"_s, x}, {u"y"_s, y}, {u"w"_s, w}, {u"h"_s, h}};
}

std::optional<UnitRect> UnitRect::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader fields(json, problems);
    const std::optional<UnitRect> rect = fields.result(UnitRect{
        .x = fields.require<double>("x"_L1),
        .y = fields.require<double>("y"_L1),
        .w = fields.require<double>("w"_L1),
        .h = fields.require<double>("h"_L1),
    });
    return rect && isPlausible(*rect) ? rect : std::nullopt;
}

} // namespace corvane
