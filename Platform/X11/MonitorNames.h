#pragma once

#include <QtCore/QString>

#include <span>

namespace corvane::x11 {

/// The display product name in an EDID block (VESA E-EDID 1.4, 3.10.3.4); empty where it has none.
[[nodiscard]] QString monitorNameFromEdid(std::span<const uint8_t> edid);

} // namespace corvane::x11
