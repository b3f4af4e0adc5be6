#pragma once

#include "WindowProbe.h"

#include <QtCore/QByteArray>

namespace corvane::bench {

/// What is to be seen on a part of the screen.
struct Picture {
    Rect place;
    QByteArray pixels;
};

/// The picture there, once nothing of it changes any more.
[[nodiscard]] Picture settledPicture(desktop::XConnection &connection, const Rect &place);

/// Milliseconds from the request until the screen shows just that; nothing when it never did.
[[nodiscard]] std::optional<double> timeUntilShown(
    desktop::XConnection &connection, const Picture &picture, const std::function<void()> &request);

/// Milliseconds from the request to the moment at which `mayHold` returned true, where `holds`, which
/// may take its time, then returned true as well; nothing when that never came. Between two looks it
/// sleeps a little, for what it waits for needs the processor, too.
[[nodiscard]] std::optional<double> timeUntil(const std::function<void()> &request,
    const std::function<bool()> &mayHold, const std::function<bool()> &holds);

} // namespace corvane::bench
