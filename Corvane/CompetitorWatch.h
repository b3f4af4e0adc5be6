#pragma once

#include "AppModel.h"

namespace corvane {

/// Brings the model's list of competitors up to date whenever applications come or go, and tells the
/// user when a competitor starts.
class CompetitorWatch final : public QObject
{
    Q_OBJECT

public:
    explicit CompetitorWatch(AppModel &model) : m_model(model) { }

    /// Begins by telling of the competitors that the model knows.
    void start();

private:
    void refreshSoon();
    void tell();

    AppModel &m_model;
    QStringList m_told; ///< the competitors that the user has been told of
    bool m_isRefreshPending = false;
};

} // namespace corvane
