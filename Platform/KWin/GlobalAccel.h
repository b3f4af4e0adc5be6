#pragma once

#include "AXError.h"
#include "Expected.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusServiceWatcher>

#include <chrono>

namespace corvane::kwin {

/// Our shortcuts at the service that holds those of all programs (KGlobalAccel), which System Settings
/// shows and changes. Keys are of Qt's numbering, with modifiers; 0 is none. Calls are synchronous.
class GlobalAccel final : public QObject
{
    Q_OBJECT

public:
    struct Action {
        QString name; ///< unique among ours; what the user's change of its key is remembered by
        QString title; ///< as System Settings shows it
        int key = 0; ///< as we would have it

        bool operator==(const Action &) const = default;
    };
    struct Grant {
        int key = 0;
        bool isUsersChoice = false; ///< whose change in System Settings goes before our wish

        bool operator==(const Grant &) const = default;
    };
    struct Owner {
        QString component;
        QString title;
    };

    GlobalAccel();

    /// The names of the actions that it has of ours, whether from now or from an earlier run.
    [[nodiscard]] QStringList actions();
    /// Has the action have its key, or what the user has changed that to. Errors: `apiDisabled` without
    /// the service, `cannotComplete` when it does not answer.
    [[nodiscard]] expected<Grant, AXError> take(const Action &action, bool isKnown);
    /// Nothing remains of the action.
    void release(const QString &name);
    /// The key does nothing any more, but the user's change of it is remembered.
    void setAside(const QString &name);
    /// The action of another program that the key is held by.
    [[nodiscard]] std::optional<Owner> owner(int key);

Q_SIGNALS:
    /// The key went down; repeats of a held key are not told.
    void pressed(const QString &name);
    /// The user has given one of our actions another key, or none.
    void changed();
    /// The service has begun anew, or answers again after it did not.
    void restarted();

private Q_SLOTS:
    void hearPress(const QString &component, const QString &name, qlonglong time);
    void hearRelease(const QString &component, const QString &name, qlonglong time);
    void hearChange(const QStringList &action);

private:
    [[nodiscard]] QDBusPendingCall begin(const QString &method, const QVariantList &arguments);
    [[nodiscard]] expected<QDBusMessage, AXError> finish(QDBusPendingCall call);
    void send(const QString &method, const QVariantList &arguments);
    void awaitAnswer();

    QDBusConnection m_bus = QDBusConnection::sessionBus();
    QDBusServiceWatcher m_watcher;
    QHash<QString, std::chrono::steady_clock::time_point> m_held; ///< when last heard of
    bool m_isSilent = false; ///< has left a call unanswered, and may do so with the next
};

} // namespace corvane::kwin
