#pragma once

#include "AppModel.h"

#include <QtCore/QTimer>

namespace corvane {

/// Tells the model whether the desktop trusts the program to move windows. It costs nothing while there
/// is trust: desktops tell when they take it away, and a timer asks for it only while it is missing.
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
