#pragma once

#include "AppModel.h"
#include "OutcomeReport.h"
#include "WindowManager.h"

#include <functional>

namespace corvane {

/// Performs placements as the settings want them, and writes what became of each to the history and
/// the diagnostics. The model lives longer.
class Mover final
{
public:
    explicit Mover(AppModel &model);

    /// Called with each placement, once it is written down.
    std::function<void(const OutcomeReport &)> onPerformed;

    void follow(const Settings &settings);
    [[nodiscard]] WindowManager &windowManager() { return m_windowManager; }

    OutcomeReport perform(Placement placement);

private:
    void writeDown(const OutcomeReport &report) const;

    AppModel &m_model;
    WindowManager m_windowManager;
};

} // namespace corvane
