#pragma once

#include "PrivateSession.h"

#include <QtGui/QImage>

/// What all displays of a Wayland desktop show; null when it could not be had.
namespace corvane::demo {

[[nodiscard]] QImage pictureOfSway(desktop::PrivateSession &session);
[[nodiscard]] QImage pictureOfKWin(desktop::PrivateSession &session);

} // namespace corvane::demo
