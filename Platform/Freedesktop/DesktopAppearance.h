#pragma once

#include "Session.h"

#include <QtCore/QSet>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVariant>

class QDBusMessage;

namespace corvane::freedesktop {

/// The look that the desktop's settings portal tells. Light and of normal contrast until it does.
class DesktopAppearance final : public QObject
{
    Q_OBJECT

public:
    explicit DesktopAppearance(const QDBusConnection &bus) : m_bus(bus) { }

    /// The first call asks the portal, and begins to follow it; none waits for it.
    [[nodiscard]] DesktopLook look();

Q_SIGNALS:
    void changed(const corvane::DesktopLook &look);

private Q_SLOTS:
    void takeSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void takeAnswer(const QDBusMessage &answer);
    [[nodiscard]] DesktopLook with(
        DesktopLook look, const QString &group, const QString &key, const QVariant &wrapped);
    void setLook(const DesktopLook &look);

    QDBusConnection m_bus;
    DesktopLook m_look;
    QSet<QString> m_motionless; ///< the settings that want no motion
    bool m_isAsked = false;
};

} // namespace corvane::freedesktop
