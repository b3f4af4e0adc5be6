#pragma once

#include "Appearance.h"
#include "AXError.h"
#include "Placement.h"
#include "SettingsPane.h"

#include <QtCore/QStringList>

#include <optional>

namespace corvane {

/// What the running program is to show.
struct ScreenFlags {
    std::optional<SettingsPane> pane{};
    std::optional<Appearance> appearance{};
    std::optional<QString> layout{}; ///< its name or id
    std::optional<int> selectPane{}; ///< of that layout, from 0
    bool openAppPicker = false;
    bool previewLayoutEdit = false;
    bool previewSteal = false;
    std::optional<QString> previewUpdateAvailable{}; ///< a version, as the next two
    std::optional<QString> previewNewer{};
    std::optional<QString> previewUpdateWindow{};
    std::optional<QString> previewNotes{}; ///< a file
    std::optional<int> tourPage{}; ///< from 1
    bool popMenu = false;
    bool checkForUpdates = false;
    bool openSettings = false;
    bool showTour = false;

    bool operator==(const ScreenFlags &) const = default;
};

/// What the user asked for on the command line.
struct CommandLine {
    static constexpr int usualHistory = 20;

    std::optional<Placement> place{};
    std::optional<QString> capture{}; ///< the new layout's name
    std::optional<QString> applyLayout{}; ///< a layout's name or id
    bool layouts = false;
    bool quitCompetitors = false;
    std::optional<QString> renderStatusIcon{}; ///< the file to draw to
    ScreenFlags screens{};
    std::optional<int> history{}; ///< how many of the newest moves to show
    bool printSettings = false;
    bool json = false;
    bool verbose = false;
    bool help = false;
    bool version = false;
    /// Came with the flags: by this a window may come to the front (see `AppModel`).
    QString activation{};

    bool operator==(const CommandLine &) const = default;

    /// Whether it asks for something that is done at once, whether the program runs or not.
    [[nodiscard]] bool isCommand() const;
    [[nodiscard]] bool asksForScreens() const { return screens != ScreenFlags{}; }

    /// The error is one sentence that names what exists.
    [[nodiscard]] static expected<CommandLine, QString> parse(const QStringList &arguments);
    /// The same for a program that works in another folder.
    [[nodiscard]] static QStringList withAbsolutePaths(QStringList arguments);
    [[nodiscard]] static QString helpText();
    [[nodiscard]] static QString versionText();
};

} // namespace corvane
