#include "ScreenRequests.h"

#include "LayoutReport.h"
#include "OneLine.h"
#include "Platform.h"
#include "PrivateFile.h"
#include "Screens.h"
#include "TourPage.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>

namespace corvane::ScreenRequests {

using namespace Qt::StringLiterals;

namespace {

constexpr int tourPageCount = tourPages.size();
constexpr std::chrono::seconds untilNewer{3}; ///< between the two versions of a preview

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

/// Why this copy does not look for updates, in one sentence.
QString refusalToCheck(const InstalledCopy &installedCopy)
{
    switch (installedCopy.kind) {
    case InstallKind::development:
        return u"This copy of Corvane was built from source, and is updated that way."_s;
    case InstallKind::package:
        return u"This copy of Corvane came with a package, so your package manager updates it."_s;
    case InstallKind::flatpak:
        return u"This copy of Corvane came as a Flatpak, so your software manager updates it."_s;
    case InstallKind::image:
        return u"This copy of Corvane came as an AppImage, so its maker updates it."_s;
    case InstallKind::bundle:
        return u"This copy of Corvane cannot update itself."_s;
    }
    Q_UNREACHABLE();
}

/// Has menu and settings show that version as one that can be had. In a copy without an updater, they
/// lead to its sheet.
void previewAvailable(const QString &version, AppModel &model)
{
    const bool hasUpdater = model.automaticUpdateChecks.value().has_value();
    if (!hasUpdater) {
        // Whatever shows the status leads there.
        model.onCheckForUpdatesNow = model.onInstallUpdate = [&model, version] {
            model.pendingUpdatePreview = ViewState::UpdatePreview{version};
        };
    }
    model.installedCopy = InstalledCopy{.kind = InstallKind::bundle};
    UpdateStatus status = model.updateStatus;
    status.availability = {UpdateAvailability::Available{version}};
    status.lastChecked = Platform::current().clock().date();
    status.canUpdate = true;
    model.updateStatus = status;
}

/// The error is one sentence.
expected<void, QString> previewUpdates(const ScreenFlags &flags, AppModel &model)
{
    std::optional<QByteArray> notes;
    if (flags.previewNotes) {
        const auto page = PrivateFile::read(*flags.previewNotes);
        if (!page || !*page)
            return unexpected(
                page ? u"There is no file %1."_s.arg(*flags.previewNotes) : page.error());
        notes = **page;
    }
    if (flags.previewUpdateAvailable)
        previewAvailable(*flags.previewUpdateAvailable, model);
    if (flags.previewNewer) {
        Platform::current().clock().after(untilNewer, &model,
            [&model, version = *flags.previewNewer] { previewAvailable(version, model); });
    }
    if (flags.previewUpdateWindow)
        model.pendingUpdatePreview = ViewState::UpdatePreview{*flags.previewUpdateWindow, notes};
    return {};
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
    if (const auto shown = previewUpdates(flags, model); !shown)
        return failure(CommandResult::misused, shown.error());
    if (!flags.checkForUpdates)
        return {};
    if (!model.onCheckForUpdatesNow)
        return failure(CommandResult::refused, refusalToCheck(model.installedCopy));
    model.onCheckForUpdatesNow();
    return {};
}

} // namespace corvane::ScreenRequests
