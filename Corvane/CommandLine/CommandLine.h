#pragma once

#include "Appearance.h"
#include "CommandResult.h"
#include "Expected.h"
#include "Placement.h"
#include "SettingsPane.h"

#include <QtCore/QStringList>

#include <optional>
#include <variant>

namespace corvane {

/// The flags that have the running program show something.
struct ScreenFlags {
    std::optional<SettingsPane> pane{};
    std::optional<Appearance> appearance{};
    std::optional<QString> layout{}; ///< the layout's name or id
    std::optional<int> selectPane{}; ///< a pane of that layout, counted from 0
    bool openAppPicker = false;
    bool previewLayoutEdit = false;
    bool previewSteal = false;
    std::optional<QString> previewUpdateAvailable{}; ///< a version
    std::optional<QString> previewNewer{}; ///< a version
    std::optional<QString> previewUpdateWindow{}; ///< a version
    std::optional<QString> previewNotes{}; ///< a file
    std::optional<int> tourPage{}; ///< counted from 1
    std::optional<QString> report{}; ///< what stands in the report of a problem already
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
        QString name; ///< the new layout's
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
        int count = 20; ///< how many of the newest moves
        bool operator==(const ShowHistory &) const = default;
    };
    struct PrintSettings {
        bool operator==(const PrintSettings &) const = default;
    };
    struct QuitCompetitors {
        bool operator==(const QuitCompetitors &) const = default;
    };
    struct RenderStatusIcon {
        QString file; ///< what the icon is drawn to
        bool operator==(const RenderStatusIcon &) const = default;
    };

    struct SaveReport {
        QString text; ///< the user's words
        QString file; ///< a new one, or "-" for standard output
        bool operator==(const SaveReport &) const = default;
    };

    std::variant<Place, Capture, ApplyLayout, ListLayouts, ShowHistory, PrintSettings,
        QuitCompetitors, RenderStatusIcon, SaveReport>
        value;

    bool operator==(const Command &) const = default;
};

/// What the user asks for on the command line.
struct CommandLine {
    QList<Command> commands{}; ///< in the order in which they were given
    ScreenFlags screens{};
    std::optional<QString> save{}; ///< where the report goes, while the flags are read
    bool json = false;
    bool verbose = false;
    bool help = false;
    bool version = false;
    bool selfTest = false; ///< only whether the program can run here
    /// The permission for a window to come to the front that came along with the flags; see
    /// `AppModel::pendingActivation`.
    QString activation{};

    bool operator==(const CommandLine &) const = default;

    [[nodiscard]] ReportForm form() const { return json ? ReportForm::json : ReportForm::text; }
    [[nodiscard]] bool isCommand() const { return !commands.isEmpty(); }
    [[nodiscard]] bool asksForScreens() const { return screens != ScreenFlags{}; }

    /// The error is one sentence that names the flags or values there are.
    [[nodiscard]] static expected<CommandLine, QString> parse(const QStringList &arguments);
    /// The same arguments for a program whose working folder is another.
    [[nodiscard]] static QStringList withAbsolutePaths(QStringList arguments);
    [[nodiscard]] static QString helpText();
    [[nodiscard]] static QString versionText();
};

} // namespace corvane
