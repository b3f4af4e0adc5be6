#pragma once

#include "CommandResult.h"
#include "PaneResult.h"
#include "TerminalText.h"
#include "WindowLayout.h"

/// What the layout commands say.
namespace corvane {

/// A table, those whose displays are the connected ones marked, or one JSON array.
[[nodiscard]] QString layoutList(
    const QList<WindowLayout> &layouts, const QList<DisplayKey> &connected, bool asJson);
/// One sentence that names those that exist.
[[nodiscard]] QString noSuchLayout(const QString &nameOrID, const QList<WindowLayout> &layouts);
/// One sentence, or the layout as one JSON object.
[[nodiscard]] QString captureText(const WindowLayout &layout, bool asJson);
/// The same for the user.
[[nodiscard]] QString captureSentence(const WindowLayout &layout);
/// A line per pane.
[[nodiscard]] QString applyLines(const QList<PaneResult> &results, Titles titles = Titles::shown);
/// Of the panes whose app is not in its place.
[[nodiscard]] QString failureLines(const QList<PaneResult> &results);
/// The lines, or one JSON object. Done when every pane with an app was placed.
[[nodiscard]] CommandResult applyResult(
    const WindowLayout &layout, const QList<PaneResult> &results, bool asJson);

} // namespace corvane
