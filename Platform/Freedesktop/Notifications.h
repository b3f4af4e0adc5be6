#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include <optional>

namespace corvane::freedesktop {

/// What the desktop's notification service shows for us: one notification for each id, its newest.
class Notifications final : public QObject
{
    Q_OBJECT

public:
    explicit Notifications(const QDBusConnection &bus) : m_bus(bus) { }

    /// Plain text, both of them. Lost where there is no such service.
    void show(const QString &id, const QString &title, const QString &body);

private:
    struct Text {
        QString title;
        QString body;
    };
    struct Entry {
        quint32 number = 0; ///< the service's, 0 before it has shown one
        bool awaitsNumber = false;
        std::optional<Text> next; ///< to be shown once the number is known
    };

    void send(const QString &id, const Text &text);
    void learnNumber(const QString &id, quint32 number);

    QDBusConnection m_bus;
    QHash<QString, Entry> m_entries;
};

} // namespace corvane::freedesktop
