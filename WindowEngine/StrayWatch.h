#pragma once

#include "Clock.h"
#include "Rect.h"

#include <optional>

namespace corvane {

/// Tells whether a window that was placed a moment ago leaves its place by itself: a program that
/// restores a size of its own, a window manager that tidies up after a display came. It is shown
/// the frame again and again, until nothing has changed for half a second.
///
/// The user's hand is known by the pointer: a frame that changes while a button is down, or within
/// half a second after, is the user's. Window managers and programs move windows without one.
class StrayWatch final
{
public:
    enum class Finding {
        inPlace, ///< so far
        strayed, ///< and has come to rest somewhere else
        over, ///< it is to be left alone from now on
    };

    /// The window was given the frame `target` at the time `now`, and took `place`; it may still be on
    /// its way. Watched for no less than `atLeast`.
    StrayWatch(const Rect &target, const Rect &place, Clock::Duration now, Clock::Duration atLeast);

    [[nodiscard]] Finding judge(const Rect &frame, bool isButtonDown, Clock::Duration now);
    /// To be told that the window was put back, and took this frame.
    void settle(const Rect &place, Clock::Duration now);
    [[nodiscard]] bool isInPlace(const Rect &frame) const;

private:
    Rect m_target;
    Rect m_place;
    Rect m_seen;
    Clock::Duration m_begin;
    Clock::Duration m_atLeast;
    Clock::Duration m_changed;
    std::optional<Clock::Duration> m_buttonDown; ///< when last seen
    int m_returns = 0;
};

} // namespace corvane
