#pragma once

#include "InstanceService.h"

#include <optional>

namespace corvane {

/// The one program per session, by its name on the session bus.
class Instance final : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        granted,
        taken, ///< another program of ours runs
        unavailable, ///< there is no session bus, so nobody can tell
    };

    /// What whoever started this program gave it to bring a window to the front; no program that is
    /// started from here gets it, too. Empty when there was nothing.
    [[nodiscard]] static QString takeActivation();
    /// Hands a command line to the running program. Nothing when none runs.
    [[nodiscard]] static std::optional<CommandResult> handOver(
        const QStringList &arguments, const QString &activation);
    [[nodiscard]] Claim claim(InstanceService::Runner run, ApplicationService::Actions actions);
};

} // namespace corvane
