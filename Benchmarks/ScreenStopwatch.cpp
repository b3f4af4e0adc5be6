#include "ScreenStopwatch.h"

#include <thread>

namespace corvane::bench {

using namespace desktop;
using namespace std::chrono_literals;

namespace {

constexpr qsizetype bytesPerPixel = 4;
constexpr qsizetype stripWidth = 4;
constexpr auto pause = 100us;

/// A narrow part from top to bottom, which is read much faster than all of it.
Picture strip(const Picture &whole)
{
    const auto left = static_cast<qsizetype>(whole.place.width) / 3;
    const auto row = static_cast<qsizetype>(whole.place.width) * bytesPerPixel;
    QByteArray pixels;
    for (qsizetype at = 0; at < whole.pixels.size(); at += row)
        pixels += whole.pixels.mid(at + left * bytesPerPixel, stripWidth * bytesPerPixel);
    return {{whole.place.x + double(left), whole.place.y, double(stripWidth), whole.place.height},
        pixels};
}

} // namespace

Picture settledPicture(XConnection &connection, const Rect &place)
{
    return {place, settled([&] { return pixelsOn(connection, place); })};
}

std::optional<double> timeUntilShown(
    XConnection &connection, const Picture &picture, const std::function<void()> &request)
{
    const auto shows = [&](const Picture &part) {
        return pixelsOn(connection, part.place) == part.pixels;
    };
    const Picture part = strip(picture);
    return timeUntil(
        request, [&] { return shows(part); }, [&] { return shows(picture); });
}

std::optional<double> timeUntil(const std::function<void()> &request,
    const std::function<bool()> &mayHold, const std::function<bool()> &holds)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    request();
    for (;;) {
        const bool isPromising = mayHold();
        const auto looked = Clock::now();
        if (isPromising && holds())
            return std::chrono::duration<double, std::milli>(looked - start).count();
        if (looked - start > patience)
            return std::nullopt;
        std::this_thread::sleep_for(pause);
    }
}

} // namespace corvane::bench
