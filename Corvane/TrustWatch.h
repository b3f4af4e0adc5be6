#pragma once

#include "AppModel.h"

#include <QtCore/QTimer>

namespace corvane {

/// Keeps the model's trust true to the desktop's. It costs nothing while there is trust: desktops
/// tell when they take it away, and only while it is missing does a timer look for it.
class TrustWatch final : public QObject
{
    Q_OBJECT

public:
    explicit TrustWatch(AppModel &model);

    void start();
    [[nodiscard]] bool isPolling() const { return m_poll.isActive(); }

private:
    void react();

    AppModel &m_model;
    QTimer m_poll;
};

} // namespace corvane
