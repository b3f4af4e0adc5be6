#pragma once

#include "CorvaneProcess.h"

#include <QtDBus/QDBusConnection>

namespace corvane::bench {

/// The resident program, asked over the session bus as a second start asks it, without the time that
/// such a start takes.
class Resident : public desktop::CorvaneProcess
{
public:
    explicit Resident(desktop::PrivateSession &session);
    ~Resident();
    Q_DISABLE_COPY_MOVE(Resident)

    [[nodiscard]] bool start() { return m_bus.isConnected() && CorvaneProcess::start(); }
    /// Sends a command line. Does not wait for the answer.
    void request(const QStringList &arguments);

private:
    QDBusConnection m_bus;
};

} // namespace corvane::bench
