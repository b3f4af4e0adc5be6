#pragma once

#include "AppModel.h"

namespace corvane {

/// Keeps the model's list of competitors up to date, and tells the user when one starts.
class CompetitorWatch final : public QObject
{
    Q_OBJECT

public:
    explicit CompetitorWatch(AppModel &model) : m_model(model) { }

    /// Begins with those that the model knows.
    void start();

private:
    void refreshSoon();
    void tell();

    AppModel &m_model;
    QStringList m_told; ///< of these the user knows
    bool m_isRefreshPending = false;
};

} // namespace corvane
