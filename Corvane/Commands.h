#pragma once

#include "AppModel.h"
#include "CommandLine.h"
#include "CommandResult.h"
#include "Mover.h"

namespace corvane {

/// What command lines mean to a program that has a desktop, resident or not. Lives as long as any
/// command that it began; the model and the mover live longer.
class Commands final
{
public:
    Commands(AppModel &model, Mover &mover) : m_model(model), m_mover(mover) { }

    [[nodiscard]] QCoro::Task<CommandResult> run(CommandLine line);

private:
    [[nodiscard]] CommandResult capture(const QString &name, bool asJson);
    [[nodiscard]] QCoro::Task<CommandResult> apply(QString nameOrID, bool asJson);

    AppModel &m_model;
    Mover &m_mover;
};

} // namespace corvane
