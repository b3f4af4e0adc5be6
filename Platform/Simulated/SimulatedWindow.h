#pragma once

#include "AXError.h"
#include "Clock.h"
#include "Rect.h"
#include "WindowElement.h"
#include "WindowState.h"

#include <QtCore/QStringList>

#include <optional>
#include <sys/types.h>

namespace corvane {

enum class WindowKind { standard, dialog, utility, splash, panel, desktop };

/// What a window is like and how it behaves. A test fills in what it needs and may change it at any
/// time.
struct WindowSpec {
    QString title{};
    Rect frame{0, 0, 400, 300}; ///< what a person sees of it; unmaximised, if it is maximised
    WindowKind kind = WindowKind::standard;

    Size minimum{1, 1};
    std::optional<Size> maximum{};
    bool fixedSize = false;
    Size base{}; ///< the size that the increments count from
    Size increment{1, 1}; ///< 1: any size
    Point landsOff{}; ///< how far beside its place the first position puts it
    Clock::Duration resizesAfter{0}; ///< how long after the write it takes a new size

    /// The bundle identifier, where it belongs to another application than its process's first.
    QString application{};

    bool fullScreen = false;
    bool maximised = false; ///< the first write ends it
    bool minimised = false;
    bool onOtherWorkspace = false;
    bool takesFocus = true; ///< when it opens; panels, desktops and splash screens never do

    std::optional<AXError> refusesPosition{};
    std::optional<AXError> refusesSize{};
    QString refusalDetail{}; ///< told after such a refusal
    std::optional<int> vanishesAfterCalls{}; ///< closes in place of the answer to the next call

    quint64 number = 0; ///< 0: a number never used before; else that number, under a new generation
};

/// A window that is open on the simulated desktop.
struct SimulatedWindow : WindowSpec {
    WindowElement element{};
    pid_t pid = 0;
    QString lastRefusal{};
    QStringList formerIdentifiers{};
    Rect unmaximised{}; ///< the frame to go back to when `maximised` ends
    std::optional<WindowState> endedState{}; ///< by a write of the running operation

    [[nodiscard]] bool isOrdinary() const; ///< neither panel nor desktop
    [[nodiscard]] bool isListed() const; ///< the task bar shows it
    /// Whether the window can get the focus without a click: it is on show, and of a kind that
    /// takes it.
    [[nodiscard]] bool canHaveFocus() const;
    /// The size that the window takes when it is given `size`.
    [[nodiscard]] Size constrained(Size size) const;
};

} // namespace corvane
