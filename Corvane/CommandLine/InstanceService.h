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

/// Answers a second start on the session bus: it runs what that start was asked to do.
class InstanceService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.corvane.Corvane.Instance")

public:
    /// Runs a command line; see `CommandLine::activation`.
    using Runner = std::function<QCoro::Task<CommandResult>(
        const QStringList &arguments, const QString &activation)>;

    InstanceService(QObject *parent, Runner run);

public Q_SLOTS:
    /// Runs a command line, which comes without the program's name. Returns the exit status and what
    /// is to be printed once all is done.
    int Run(
        const QStringList &arguments, const QDBusMessage &call, QString &output, QString &error);
    /// The same, with what desktops hand to a program that they start: "activation-token" or
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
    /// Shows what each address asks for, as far as the first one that does not exist.
    void Open(const QStringList &uris, const QVariantMap &platformData, const QDBusMessage &call);
    /// The actions are "capture", every placement's name, and "place", which takes such a name.
    void ActivateAction(const QString &action, const QVariantList &parameter,
        const QVariantMap &platformData, const QDBusMessage &call);

private:
    InstanceService::Runner m_run;
    Actions m_actions;
};

} // namespace corvane
