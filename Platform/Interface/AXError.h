#pragma once

namespace corvane {

/// What a request to a window can come back with. The numbers are those of the macOS accessibility
/// interface; a back end turns every failure of its own into one of them.
enum class AXError : int {
    success = 0,
    failure = -25200,
    invalidUIElement = -25202, ///< the window is gone
    cannotComplete = -25204, ///< nothing answered within the messaging timeout
    apiDisabled = -25211, ///< the desktop does not let us move windows
};

} // namespace corvane
