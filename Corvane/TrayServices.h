#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>

namespace corvane {

/// What the session bus says of the programs that show status items.
struct TrayServices {
    QString watcher{}; ///< who keeps the list of status items, by its unique name; empty for nobody
    QString shell{}; ///< GNOME's, likewise
    bool hasHost = false; ///< somebody shows what is on the list
    bool hasIndicators = false; ///< Unity's kind of host
    bool hasPlasma = false;

    bool operator==(const TrayServices &) const = default;
};

/// Whose menu opens at a click on the status item.
enum class MenuForm {
    drawn, ///< ours with either button
    drawnOrExported, ///< ours with the left button; with the right one the host shows only its own
    exported, ///< one that the host draws from a description; it takes no other
};
[[nodiscard]] MenuForm menuForm(const TrayServices &services);

/// Keeps `TrayServices` up to date without ever waiting for an answer.
class TrayServicesWatch final : public QObject
{
    Q_OBJECT

public:
    explicit TrayServicesWatch(QObject *parent = nullptr);

    [[nodiscard]] const TrayServices &services() const { return m_services; }
    /// False until the bus has answered for the first time.
    [[nodiscard]] bool isKnown() const { return m_isKnown; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void look();

private:
    using Answer = std::function<void(const QString &owner)>;

    void askForOwner(const QString &service, Answer answer);
    void askForHost();
    void report();

    TrayServices m_services;
    bool m_isKnown = false;
};

} // namespace corvane
