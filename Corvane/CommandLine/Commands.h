#pragma once

#include "AppModel.h"
#include "CommandLine.h"
#include "CommandResult.h"
#include "OutcomeReport.h"

namespace corvane {

/// What command lines mean to a program that has a desktop, resident or not. Lives as long as any
/// command that it began; the model lives longer.
class Commands final
{
public:
    /// Places the focused window, and tells how it went.
    using Place = std::function<OutcomeReport(Placement)>;

    Commands(AppModel &model, Place place) : m_model(model), m_place(std::move(place)) { }

    std::function<void()> onPopMenu; ///< opens the menu of the icon in the panel
    /// Draws that icon to a file. The error is one sentence.
    std::function<expected<void, QString>(const QString &path)> onRenderStatusIcon;

    /// Every command, in order, then what is to be shown. One that asks for nothing opens the settings.
    [[nodiscard]] QCoro::Task<CommandResult> run(CommandLine line);
    [[nodiscard]] CommandResult show(const ScreenFlags &flags);

private:
    [[nodiscard]] QCoro::Task<CommandResult> perform(Command command, bool asJson);
    /// Of any command but the one that waits for applications.
    [[nodiscard]] CommandResult performAtOnce(const Command &command, bool asJson);
    [[nodiscard]] CommandResult capture(const QString &name, bool asJson);
    [[nodiscard]] QCoro::Task<CommandResult> apply(QString nameOrID, bool asJson);

    /// Those in force.
    [[nodiscard]] CommandResult printSettings() const;
    [[nodiscard]] CommandResult quitCompetitors();
    [[nodiscard]] CommandResult renderStatusIcon(const QString &path);

    AppModel &m_model;
    Place m_place;
};

} // namespace corvane
