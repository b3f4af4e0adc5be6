#pragma once

#include "CommandResult.h"
#include "PaneResult.h"
#include "TerminalText.h"
#include "WindowLayout.h"

/// What the layout commands say.
namespace corvane {

/// The layouts as a table, in which those for the connected displays are marked, or as one JSON array.
[[nodiscard]] QString layoutList(
    const QList<WindowLayout> &layouts, const QList<DisplayKey> &connected, ReportForm form);
/// The sentence about a layout that does not exist. It names those that do.
[[nodiscard]] QString noSuchLayout(const QString &nameOrID, const QList<WindowLayout> &layouts);
/// What a capture tells a terminal: one sentence, or the layout as one JSON object.
[[nodiscard]] QString captureText(const WindowLayout &layout, ReportForm form);
/// What a capture tells a user who sees no terminal.
[[nodiscard]] QString captureSentence(const WindowLayout &layout);
/// What became of each pane, a line each.
[[nodiscard]] QString applyLines(const QList<PaneResult> &results, Titles titles = Titles::shown);
/// The lines of the panes whose app is not in its place.
[[nodiscard]] QString failureLines(const QList<PaneResult> &results);
/// What applying a layout tells a terminal: the lines, or one JSON object. It is done when every pane
/// with an app was placed.
[[nodiscard]] CommandResult applyResult(
    const WindowLayout &layout, const QList<PaneResult> &results, ReportForm form);

} // namespace corvane
