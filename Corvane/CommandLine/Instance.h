#pragma once

#include "InstanceService.h"

#include <optional>

namespace corvane {

/// Sees to it that one program runs per session, which has the program's name on the session bus.
class Instance final : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        granted,
        taken, ///< the program runs already
        unavailable, ///< there is no session bus, so nobody can tell
    };

    /// Takes from the environment the permission to bring a window to the front, so that no program
    /// which this one starts inherits it. Empty when there is none.
    [[nodiscard]] static QString takeActivation();
    /// Hands a command line to the program that runs, and waits for its answer. Nothing when none runs.
    [[nodiscard]] static std::optional<CommandResult> handOver(
        const QStringList &arguments, const QString &activation);
    /// Takes the name, and answers from then on to what comes over the bus.
    [[nodiscard]] Claim claim(InstanceService::Runner run, ApplicationService::Actions actions);
};

} // namespace corvane
