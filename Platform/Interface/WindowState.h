#pragma once

#include "Rect.h"

namespace corvane {

/// What a desktop made of a window beside giving it a frame.
struct WindowState {
    bool maximizedHorizontally = false;
    bool maximizedVertically = false;
    bool fullScreenByUs = false; ///< since our own move made it fill a display
    Rect normalFrame; ///< what the desktop gives the window back when all that ends
    bool tiled = false; ///< stood where the desktop's own layout put it

    bool operator==(const WindowState &) const = default;
};

} // namespace corvane
