#pragma once

#include "AppModel.h"
#include "Updater.h"

namespace corvane {

/// Turns what the updater tells of its passes into the model's status and the diagnostics.
class UpdaterDelegate final : public UpdaterEvents
{
public:
    explicit UpdaterDelegate(AppModel &model) : m_model(model) { }

    std::function<void()> onCycleEnd = [] {};

    /// The time of the last check of an earlier run, if there was one.
    void seedLastChecked(const std::optional<QDateTime> &date);

    QString feedAddress() override;
    void willCheck(UpdateCheck check) override;
    void didFindUpdate(UpdateCheck check, const UpdateCandidate &candidate) override;
    void didNotFindUpdate(UpdateCheck check) override;
    void didFinishUpdateCycle(UpdateCheck check, const std::optional<UpdaterError> &error) override;
    void willRelaunchApplication() override;

private:
    void settle(const UpdateAvailability &availability);

    AppModel &m_model;
    QString m_found; ///< in this cycle; empty while the check goes on
};

} // namespace corvane
