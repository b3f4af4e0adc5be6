#pragma once

#include "ActivityLog.h"
#include "OutcomeReport.h"
#include "Settings.h"
#include "WindowManager.h"

#include <functional>

namespace corvane {

/// Performs placements as the settings want them, and writes down what became of each.
class Mover final
{
public:
    explicit Mover(const Settings &settings);

    /// Told of each placement, once it is written down.
    std::function<void(const OutcomeReport &)> onPerformed;

    void follow(const Settings &settings);
    [[nodiscard]] WindowManager &windowManager() { return m_windowManager; }

    OutcomeReport perform(Placement placement);

private:
    void writeDown(const OutcomeReport &report) const;

    WindowManager m_windowManager;
    ActivityLog m_activity;
};

} // namespace corvane
