#pragma once

#include "Keys.h"
#include "PrivateSession.h"
#include "WindowLayout.h"

namespace corvane::bench {

/// What two layouts make of many windows: each gives every window another place and another size. The
/// places are of one size however many windows there are.
struct Crowd {
    qsizetype windows = 0;
    Rect display;

    [[nodiscard]] static QString title(qsizetype window);
    /// Of test clients with these titles.
    [[nodiscard]] std::array<WindowLayout, 2> layouts() const;
    /// Makes them the user's layouts, with the keys below. One that could not be saved has no keys,
    /// which shows.
    void store(const desktop::PrivateSession &session) const;
    [[nodiscard]] static std::array<desktop::KeyStroke, 2> keys();
    /// By layout, for each window.
    [[nodiscard]] std::array<QList<Rect>, 2> frames() const;
};

} // namespace corvane::bench
