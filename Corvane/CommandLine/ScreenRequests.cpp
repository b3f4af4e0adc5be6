#include "ScreenRequests.h"

#include "LayoutReport.h"
#include "OneLine.h"

namespace corvane::ScreenRequests {

using namespace Qt::StringLiterals;

namespace {

/// The pane of the settings on which stands what the flags ask for.
std::optional<SettingsPane> settingsPane(const ScreenFlags &flags)
{
    if (flags.pane)
        return flags.pane;
    if (flags.layout || flags.selectPane || flags.openAppPicker || flags.previewLayoutEdit)
        return SettingsPane::layouts;
    if (flags.previewSteal)
        return SettingsPane::shortcuts;
    return flags.openSettings ? std::optional(SettingsPane::general) : std::nullopt;
}

/// A conflict over the keys of the left half.
ShortcutSteal sampleSteal(const Settings &settings)
{
    const ShortcutMap preset = map(ShortcutPreset::sizeUp);
    const Placement holder = Placement::leftHalf;
    return {.combo = settings.shortcuts.value(holder, preset.value(holder)),
        .to = {Placement::rightHalf},
        .from = {holder},
        .isSample = true};
}

/// The error is one sentence.
expected<void, QString> selectLayout(const ScreenFlags &flags, AppModel &model)
{
    if (flags.layout) {
        const auto layout = model.layout(*flags.layout);
        if (!layout)
            return unexpected<QString>(noSuchLayout(*flags.layout, model.layouts()));
        if (flags.selectPane && *flags.selectPane >= layout->panes.size())
            return unexpected<QString>(
                u"There is no pane %1 in \"%2\"; it has %3, counted from 0."_s
                    .arg(*flags.selectPane)
                    .arg(oneLine(layout->name))
                    .arg(layout->panes.size()));
        model.pendingLayout = layout->id;
    }
    if (flags.selectPane)
        model.pendingPaneIndex = flags.selectPane;
    if (flags.openAppPicker)
        model.pendingAppPicker = true;
    return {};
}

bool asksForUpdateSheet(const ScreenFlags &flags)
{
    return flags.previewUpdateAvailable || flags.previewNewer || flags.previewUpdateWindow
        || flags.previewNotes;
}

QStringList missingWindows(const ScreenFlags &flags, const AppModel &model)
{
    QStringList windows;
    if (flags.previewLayoutEdit)
        windows << u"layout editor"_s;
    if (flags.showTour || flags.tourPage)
        windows << u"tour"_s;
    if (asksForUpdateSheet(flags))
        windows << u"update sheet"_s;
    if (flags.checkForUpdates && !model.onCheckForUpdatesNow)
        windows << u"update check"_s;
    return windows;
}

} // namespace

CommandResult show(const ScreenFlags &flags, AppModel &model)
{
    if (const auto selected = selectLayout(flags, model); !selected)
        return failure(CommandResult::misused, selected.error());
    if (const auto pane = settingsPane(flags))
        model.pendingPane = rawValue(*pane);
    if (flags.previewSteal)
        model.pendingSteal = sampleSteal(model.settings());
    if (flags.showTour || flags.tourPage)
        model.pendingTourPage = flags.tourPage.value_or(1);
    if (flags.appearance) {
        model.forcedAppearance = flags.appearance;
        model.applyAppearance();
    }
    if (flags.checkForUpdates && model.onCheckForUpdatesNow)
        model.onCheckForUpdatesNow();
    CommandResult result;
    for (const QString &window : missingWindows(flags, model))
        result += later(window);
    return result;
}

} // namespace corvane::ScreenRequests
