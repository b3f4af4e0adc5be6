#pragma once

#include "OwnWindows.h"

#include <functional>

namespace corvane::freedesktop {

/// What the session bus tells of the programs that show status items.
struct TrayServices {
    QString watcher{}; ///< the unique name of who has the list of status items; empty for nobody
    QString shell{}; ///< GNOME's unique name, likewise
    bool hasHost = false; ///< somebody shows what is on the list
    bool hasIndicators = false; ///< Unity's kind of host runs
    bool hasPlasma = false;

    bool operator==(const TrayServices &) const = default;
};

[[nodiscard]] MenuForm menuForm(const TrayServices &services);

/// Follows what the bus tells of `TrayServices`, without ever waiting for an answer.
class TrayServicesWatch final : public QObject
{
    Q_OBJECT

public:
    TrayServicesWatch();

    [[nodiscard]] const TrayServices &services() const { return m_services; }
    /// False until the bus has answered for the first time.
    [[nodiscard]] bool isKnown() const { return m_isKnown; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void refresh();

private:
    using Answer = std::function<void(const QString &owner)>;

    void askForOwner(const QString &service, Answer answer);
    void askForHost();
    void report();

    TrayServices m_services;
    bool m_isKnown = false;
};

} // namespace corvane::freedesktop
