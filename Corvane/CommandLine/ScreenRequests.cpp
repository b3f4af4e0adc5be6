#include "ScreenRequests.h"

#include "LayoutReport.h"
#include "OneLine.h"
#include "Screens.h"
#include "TourPage.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>

namespace corvane::ScreenRequests {

using namespace Qt::StringLiterals;

namespace {

constexpr int tourPageCount = tourPages.size();

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

/// A desk of columns on the first display, and of one pane on each of the others.
WindowLayout sampleLayout()
{
    WindowLayout layout{.name = u"Sample"_s, .displays = Screens::signature()};
    for (int display = 0; display < layout.displays.size(); ++display)
        layout.panes << Pane{.display = display};
    layout.setSplit(0, {0.4, 0.3, 0.3}, CutLines::vertical);
    const std::array apps{AppRef{u"text-editor"_s, u"Editor"_s},
        AppRef{u"utilities-terminal"_s, u"Terminal"_s}, AppRef{u"web-browser"_s, u"Browser"_s}};
    for (size_t i = 0; i < std::min(apps.size(), size_t(layout.panes.size())); ++i)
        layout.panes[qsizetype(i)].app = apps[i];
    return layout;
}

/// The sample as it is after the user has added a column.
WindowLayout addEditedSample(AppModel &model)
{
    WindowLayout layout = model.addSampleLayout(sampleLayout());
    constexpr double smallest = 0.05;
    layout.addGridBand(0, CutLines::vertical, smallest);
    model.updateLayout(layout, QCoreApplication::translate("corvane::DisplayCard", "Add Column"));
    return layout;
}

/// The error is one sentence.
expected<void, QString> selectLayout(const ScreenFlags &flags, AppModel &model)
{
    if (flags.layout || flags.previewLayoutEdit) {
        const auto layout =
            flags.layout ? model.layout(*flags.layout) : std::optional(addEditedSample(model));
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
    if (asksForUpdateSheet(flags))
        windows << u"update sheet"_s;
    if (flags.checkForUpdates && !model.onCheckForUpdatesNow)
        windows << u"update check"_s;
    return windows;
}

} // namespace

CommandResult show(const ScreenFlags &flags, AppModel &model)
{
    if (flags.tourPage > tourPageCount)
        return failure(CommandResult::misused,
            u"There is no page %1 in the tour; it has %2, counted from 1."_s.arg(*flags.tourPage)
                .arg(tourPageCount));
    if (const auto selected = selectLayout(flags, model); !selected)
        return failure(CommandResult::misused, selected.error());
    if (const auto pane = settingsPane(flags))
        model.pendingPane = rawValue(*pane);
    if (flags.previewSteal)
        model.pendingSteal = sampleSteal(model.settings());
    if (flags.showTour || flags.tourPage)
        model.pendingTourPage = flags.tourPage.value_or(1);
    if (flags.report)
        model.pendingReport = flags.report;
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
