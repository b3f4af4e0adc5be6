#pragma once

#include "LayoutScene.h"

#include <QtCore/QString>

namespace corvane {

class LayoutPicture;

/// The picture for those who do not see it: a list of its panes, and a slider for each edge.
namespace LayoutPictureAccess {

/// From now on, every picture is described so. Idempotent.
void install();
/// Says that the picture's current pane or edge has the focus.
void tellFocus(LayoutPicture &picture);
/// Says that the current edge has moved.
void tellValue(LayoutPicture &picture);

/// Such as "Terminal, build".
[[nodiscard]] QString nameOf(const Pane &pane);
/// Such as "DELL U2720Q, left, 40 by 100 percent".
[[nodiscard]] QString placeOf(const WindowLayout &layout, const Pane &pane);

} // namespace LayoutPictureAccess

} // namespace corvane
