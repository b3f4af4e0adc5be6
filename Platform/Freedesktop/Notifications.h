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
    /// Plain text, all of it.
    struct Text {
        QString title;
        QString body;
        QString action; ///< what a click does; empty where it does nothing
    };

    explicit Notifications(const QDBusConnection &bus) : m_bus(bus) { }

    /// Lost where there is no such service.
    void show(const QString &id, const Text &text);

Q_SIGNALS:
    void clicked(const QString &id, const QString &token);

private Q_SLOTS:
    void takeToken(uint number, const QString &token);
    void takeAction(uint number, const QString &action);

private:
    struct Entry {
        quint32 number = 0; ///< the service's, 0 before it has shown one
        bool awaitsNumber = false;
        std::optional<Text> next; ///< to be shown once the number is known
    };

    void send(const QString &id, const Text &text);
    void learnNumber(const QString &id, quint32 number);
    void listen();

    QDBusConnection m_bus;
    QHash<QString, Entry> m_entries;
    QHash<quint32, QString> m_tokens; ///< by number; each comes right before its click
    bool m_isListening = false;
};

} // namespace corvane::freedesktop
