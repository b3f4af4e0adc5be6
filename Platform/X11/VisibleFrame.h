#pragma once

#include "WindowRegistry.h"

namespace corvane::x11 {

/// A display less the panels that reserve space on it. A reservation is measured from the edge of
/// the whole desk, so one that would swallow the display, or does not reach it, belongs to another.
[[nodiscard]] Rect withoutStruts(const Rect &display, const QList<Strut> &struts, Size desk);
/// The visible part less a panel that stands along one of the display's edges.
[[nodiscard]] Rect withoutPanel(const Rect &display, const Rect &visible, const Rect &panel);

} // namespace corvane::x11
