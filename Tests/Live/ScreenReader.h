#pragma once

#include "PrivateSession.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>

namespace corvane::desktop {

/// A thing on the screen, as assistive technology is told of it.
struct Accessible {
    using Place = std::pair<QString, QDBusObjectPath>; ///< a name on the bus, and an object there

    /// By their numbers in AT-SPI.
    enum State {
        checked = 4,
        enabled = 8,
        focusable = 11,
        focused = 12,
        selected = 23,
        showing = 25
    };

    Place place;
    QString role;
    QString name;
    QString within; ///< role and name of the nearest thing with a name that has this in it
    quint64 states = 0;

    [[nodiscard]] QString title() const { return role + u' ' + name; }
    [[nodiscard]] bool is(State state) const { return states >> state & 1; }
};

/// Reads and operates the programs of a session as a screen reader does: over AT-SPI alone.
class ScreenReader
{
public:
    /// Tells the session that there is a screen reader, which programs that run already hear.
    explicit ScreenReader(const PrivateSession &session)
        : m_bus(QDBusConnection::connectToBus(
            session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")),
            QStringLiteral("session")))
    {
        const Accessible::Place bus{
            QStringLiteral("org.a11y.Bus"), QDBusObjectPath("/org/a11y/bus")};
        ask(bus, properties, "Set",
            {QStringLiteral("org.a11y.Status"), QStringLiteral("ScreenReaderEnabled"),
                QVariant::fromValue(QDBusVariant(true))});
        m_bus = QDBusConnection::connectToBus(
            ask(bus, bus.first, "GetAddress").toString(), QStringLiteral("reader"));
    }
    ~ScreenReader()
    {
        for (const auto &name : {QStringLiteral("session"), QStringLiteral("reader")})
            QDBusConnection::disconnectFromBus(name);
    }
    Q_DISABLE_COPY_MOVE(ScreenReader)

    /// Everything that shows, in reading order.
    [[nodiscard]] QList<Accessible> shown() const
    {
        QList<Accessible> shown;
        for (const auto &program : children({QStringLiteral("org.a11y.atspi.Registry"),
                 QDBusObjectPath("/org/a11y/atspi/accessible/root")})) {
            for (const auto &window : children(program))
                addShown(shown, window, {});
        }
        return shown;
    }
    /// As it is now.
    [[nodiscard]] bool is(const Accessible &thing, Accessible::State state) const
    {
        return states(thing.place) >> state & 1;
    }
    [[nodiscard]] QString description(const Accessible &thing) const
    {
        return property(thing.place, accessible, QStringLiteral("Description")).toString();
    }
    void setValue(const Accessible &thing, double value) const
    {
        ask(thing.place, properties, "Set",
            {QStringLiteral("org.a11y.atspi.Value"), QStringLiteral("CurrentValue"),
                QVariant::fromValue(QDBusVariant(value))});
    }
    /// Presses, toggles or chooses it. Whether the program says that it did.
    bool operate(const Accessible &thing) const
    {
        return ask(thing.place, actions, "DoAction", {0}).toBool();
    }
    /// Does what it calls so, if it can.
    bool operate(const Accessible &thing, const QString &action) const
    {
        const int count = property(thing.place, actions, QStringLiteral("NActions")).toInt();
        for (int i = 0; i < count; ++i) {
            if (ask(thing.place, actions, "GetName", {i}).toString() == action)
                return ask(thing.place, actions, "DoAction", {i}).toBool();
        }
        return false;
    }

private:
    static inline const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
    static inline const QString actions = QStringLiteral("org.a11y.atspi.Action");
    static inline const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

    QVariant ask(const Accessible::Place &place, const QString &interface, const char *method,
        const QVariantList &arguments = {}) const
    {
        if (place.first.isEmpty())
            return {};
        auto call = QDBusMessage::createMethodCall(
            place.first, place.second.path(), interface, QString::fromLatin1(method));
        call.setArguments(arguments);
        const QDBusMessage reply = m_bus.call(call);
        return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
    }
    QVariant property(
        const Accessible::Place &place, const QString &interface, const QString &name) const
    {
        return ask(place, properties, "Get", {interface, name}).value<QDBusVariant>().variant();
    }
    QList<Accessible::Place> children(const Accessible::Place &place) const
    {
        return qdbus_cast<QList<Accessible::Place>>(ask(place, accessible, "GetChildren"));
    }
    quint64 states(const Accessible::Place &place) const
    {
        const auto words = qdbus_cast<QList<uint>>(ask(place, accessible, "GetState"));
        return words.value(0) | quint64(words.value(1)) << 32;
    }
    void addShown(
        QList<Accessible> &shown, const Accessible::Place &place, const QString &within) const
    {
        const Accessible thing{place, ask(place, accessible, "GetRoleName").toString(),
            property(place, accessible, QStringLiteral("Name")).toString(), within, states(place)};
        if (!thing.is(Accessible::showing))
            return;
        shown << thing;
        for (const auto &child : children(place))
            addShown(shown, child, thing.name.isEmpty() ? within : thing.title());
    }

    QDBusConnection m_bus;
};

} // namespace corvane::desktop
