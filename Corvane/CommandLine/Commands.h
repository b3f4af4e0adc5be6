#pragma once

#include "AppModel.h"
#include "CommandLine.h"
#include "CommandResult.h"
#include "OutcomeReport.h"

namespace corvane {

/// Carries out command lines, with a desktop, in the program that stays or in one that does not. It
/// lives as long as any command that it began; the model lives longer.
class Commands final
{
public:
    /// Places the focused window, and tells how it went.
    using Place = std::function<OutcomeReport(Placement)>;

    Commands(AppModel &model, Place place) : m_model(model), m_place(std::move(place)) { }

    std::function<void()> onPopMenu; ///< opens the menu of the icon in the panel
    /// Draws that icon to a file. The error is one sentence.
    std::function<expected<void, QString>(const QString &path)> onRenderStatusIcon;

    /// Carries out every command, in order, and then shows what is to be shown. A line that asks for
    /// nothing opens the settings.
    [[nodiscard]] QCoro::Task<CommandResult> run(CommandLine line);
    [[nodiscard]] CommandResult show(const ScreenFlags &flags);

private:
    [[nodiscard]] QCoro::Task<CommandResult> perform(Command command, ReportForm form);
    /// Carries out any command but the one that waits for applications.
    [[nodiscard]] CommandResult performAtOnce(const Command &command, ReportForm form);
    [[nodiscard]] CommandResult capture(const QString &name, ReportForm form);
    [[nodiscard]] QCoro::Task<CommandResult> apply(QString nameOrID, ReportForm form);

    /// Prints the settings in force, which are not those of a file that cannot be read.
    [[nodiscard]] CommandResult printSettings() const;
    [[nodiscard]] CommandResult quitCompetitors();
    [[nodiscard]] CommandResult renderStatusIcon(const QString &path);

    AppModel &m_model;
    Place m_place;
};

} // namespace corvane
