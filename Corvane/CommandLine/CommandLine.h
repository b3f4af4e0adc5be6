#pragma once

#include "Appearance.h"
#include "AXError.h"
#include "Placement.h"
#include "SettingsPane.h"

#include <QtCore/QStringList>

#include <optional>
#include <variant>

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

/// One thing that is done at once, whether the program runs or not.
struct Command {
    struct Place {
        Placement placement;
        bool operator==(const Place &) const = default;
    };
    struct Capture {
        QString name; ///< of the new layout
        bool operator==(const Capture &) const = default;
    };
    struct ApplyLayout {
        QString nameOrID;
        bool operator==(const ApplyLayout &) const = default;
    };
    struct ListLayouts {
        bool operator==(const ListLayouts &) const = default;
    };
    struct ShowHistory {
        int count = 20; ///< of the newest moves
        bool operator==(const ShowHistory &) const = default;
    };
    struct PrintSettings {
        bool operator==(const PrintSettings &) const = default;
    };
    struct QuitCompetitors {
        bool operator==(const QuitCompetitors &) const = default;
    };
    struct RenderStatusIcon {
        QString file; ///< to draw to
        bool operator==(const RenderStatusIcon &) const = default;
    };

    std::variant<Place, Capture, ApplyLayout, ListLayouts, ShowHistory, PrintSettings,
        QuitCompetitors, RenderStatusIcon>
        value;

    bool operator==(const Command &) const = default;
};

/// What the user asked for on the command line.
struct CommandLine {
    QList<Command> commands{}; ///< in the order in which they were given
    ScreenFlags screens{};
    bool json = false;
    bool verbose = false;
    bool help = false;
    bool version = false;
    /// Came with the flags: by this a window may come to the front (see `AppModel`).
    QString activation{};

    bool operator==(const CommandLine &) const = default;

    [[nodiscard]] bool isCommand() const { return !commands.isEmpty(); }
    [[nodiscard]] bool asksForScreens() const { return screens != ScreenFlags{}; }

    /// The error is one sentence that names what exists.
    [[nodiscard]] static expected<CommandLine, QString> parse(const QStringList &arguments);
    /// The same for a program that works in another folder.
    [[nodiscard]] static QStringList withAbsolutePaths(QStringList arguments);
    [[nodiscard]] static QString helpText();
    [[nodiscard]] static QString versionText();
};

} // namespace corvane
