#pragma once

#include "Hand.h"
#include "PrivateSession.h"
#include "WaylandKeyPresser.h"

#include <QtDBus/QDBusConnection>

namespace corvane::desktop {

/// Statements that GNOME Shell evaluates, which it does in its unsafe mode alone.
class GnomeShell
{
public:
    enum class Wait { yes, no }; ///< for the answer

    explicit GnomeShell(const PrivateSession &session);
    ~GnomeShell();
    Q_DISABLE_COPY_MOVE(GnomeShell)

    /// The value of the expression; nothing where it has failed. See GnomeHand.cpp for what it finds.
    std::optional<QJsonValue> evaluate(const QString &expression);
    /// Calls a method of a service and returns its values; empty where it fails.
    QVariantList call(const QString &service, const QString &path, const QString &interface,
        const QString &method, const QVariantList &arguments = {}, Wait wait = Wait::yes);

private:
    QString m_name;
    QDBusConnection m_bus;
};

/// The hand on GNOME Shell.
class GnomeHand final : public Hand
{
public:
    explicit GnomeHand(const PrivateSession &session) : m_shell(session) { }

    /// Whether the shell has come up and shows the desktop.
    [[nodiscard]] bool isThere();
    void hideBar();
    /// What tiles windows, which has no other way here.
    void useKeys(Keys &keys) { m_keys = &keys; }
    /// Of the shell's environment.
    [[nodiscard]] QString variable(const QString &name);
    [[nodiscard]] GnomeShell &shell() { return m_shell; }

    QList<SeenWindow> windows() override;
    void activate(quint32 window) override;
    void close(quint32 window) override;
    void setMinimized(quint32 window, bool isMinimized) override;
    void setMaximized(quint32 window, bool isMaximized) override;
    void setFullScreen(quint32 window, bool isFullScreen) override;
    void tile(quint32 window) override;
    void moveElsewhere(quint32 window) override;
    void place(quint32 window, const Rect &frame) override;

    [[nodiscard]] bool arrange(const QList<Rect> &displays) override;
    [[nodiscard]] bool setScale(int display, double scale) override;
    [[nodiscard]] QList<Rect> displays() override;

    /// A bar at that edge of the first display.
    void addPanel(const QByteArray &edge, int thickness);
    void removePanels();

private:
    struct Monitor {
        qsizetype index; ///< of all that the session began with
        Point origin;
        double scale = 1;
    };

    void change(quint32 window, const QString &statements);
    [[nodiscard]] bool configure(const QList<Monitor> &monitors);

    GnomeShell m_shell;
    Keys *m_keys = nullptr;
};

/// Devices that a remote desktop session has.
class RemoteDevices final : public WaylandKeyPresser
{
public:
    [[nodiscard]] static expected<std::unique_ptr<WaylandKeyPresser>, QString> plugIn(
        const QString &displayName, GnomeShell &shell);

    void key(Key key, bool down) override;
    void moveTo(Point point) override;
    void button(Button button, bool down) override;

private:
    RemoteDevices(std::unique_ptr<WaylandConnection> own, GnomeShell &shell, QString session)
        : WaylandKeyPresser(std::move(own)), m_shell(shell), m_session(std::move(session))
    {
    }
    void sync() override;
    void notify(const QString &method, const QVariantList &arguments);

    GnomeShell &m_shell;
    QString m_session; ///< its object's path
};

} // namespace corvane::desktop
