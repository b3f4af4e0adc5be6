#pragma once

#include "CommandResult.h"
#include "Placement.h"

#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusMessage>

#include <functional>
#include <qcorotask.h>

namespace corvane {

/// The running program on the session bus: runs what a second start was asked to do.
class InstanceService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.corvane.Corvane.Instance")

public:
    /// Runs a command line; see `CommandLine` for the activation.
    using Runner = std::function<QCoro::Task<CommandResult>(
        const QStringList &arguments, const QString &activation)>;

    InstanceService(QObject *parent, Runner run);

public Q_SLOTS:
    /// Takes a command line without the program's name; returns the exit status and what to print,
    /// once it is done.
    int Run(
        const QStringList &arguments, const QDBusMessage &call, QString &output, QString &error);
    /// The same with what desktops hand to a program that they start: "activation-token" or
    /// "desktop-startup-id".
    int RunWith(const QStringList &arguments, const QVariantMap &platformData,
        const QDBusMessage &call, QString &output, QString &error);

private:
    QCoro::Task<> answer(QStringList arguments, QString activation, QDBusMessage call);

    Runner m_run;
};

/// What desktops call to start a program's actions (Desktop Entry Specification, D-Bus activation).
class ApplicationService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// What the program does for one who sees no terminal.
    struct Actions {
        std::function<void(Placement)> perform;
        std::function<void()> capture;
    };

    ApplicationService(QObject *parent, InstanceService::Runner run, Actions actions);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    /// Shows what the first addresses ask for, up to one that does not exist.
    void Open(const QStringList &uris, const QVariantMap &platformData, const QDBusMessage &call);
    /// The actions are "capture", every placement's name, and "place", which takes such a name.
    void ActivateAction(const QString &action, const QVariantList &parameter,
        const QVariantMap &platformData, const QDBusMessage &call);

private:
    InstanceService::Runner m_run;
    Actions m_actions;
};

} // namespace corvane
