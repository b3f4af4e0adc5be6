#include "DesktopAppearance.h"

#include "BusCall.h"

#include <QtDBus/QDBusArgument>

#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
/// Of GNOME and the desktops that share its settings, and of Plasma.
const QString interfaceGroup = u"org.gnome.desktop.interface"_s;
const QString plasmaGroup = u"org.kde.kdeglobals.General"_s;
const QString plasmaMotionGroup = u"org.kde.kdeglobals.KDE"_s;
const QStringList groupsRead{plasmaGroup, plasmaMotionGroup, interfaceGroup, appearanceGroup};

/// Some portals wrap a value more than once.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// From "Noto Sans,10,-1,5,50,0,0,0,0,0".
QString plasmaFont(const QString &text)
{
    const QStringList fields = text.split(u',');
    return fields.size() > 1 ? fields[0] + u' ' + fields[1] : QString();
}

/// Nothing when the setting is about something else.
std::optional<bool> wantsNoMotion(const QString &group, const QString &key, const QVariant &value)
{
    if (group == appearanceGroup && key == u"reduced-motion")
        return value.toUInt() == 1;
    if (group == interfaceGroup && key == u"enable-animations")
        return !value.toBool();
    bool isNumber = false;
    if (group == plasmaMotionGroup && key == u"AnimationDurationFactor")
        return value.toDouble(&isNumber) == 0 && isNumber;
    return std::nullopt;
}

DesktopLook withPlain(
    DesktopLook look, const QString &group, const QString &key, const QVariant &value)
{
    if (group == appearanceGroup && key == u"color-scheme")
        look.isDark = value.toUInt() == 1;
    else if (group == appearanceGroup && key == u"contrast")
        look.hasHighContrast = value.toUInt() == 1;
    else if (group == interfaceGroup && key == u"font-name")
        look.font = value.toString();
    else if (group == plasmaGroup && key == u"font")
        look.font = plasmaFont(value.toString());
    return look;
}

} // namespace

DesktopLook DesktopAppearance::look()
{
    if (!std::exchange(m_isAsked, true))
        ask();
    return m_look;
}

void DesktopAppearance::ask()
{
    // Else the slot is not found by its parameters.
    qRegisterMetaType<QDBusVariant>();
    // From whomever: to follow one service only, its owner would have to be waited for.
    for (const QString &group : groupsRead)
        m_bus.connect({}, path, interface, u"SettingChanged"_s, {group}, u"ssv"_s, this,
            SLOT(takeSetting(QString, QString, QDBusVariant)));
    auto call = QDBusMessage::createMethodCall(
        u"org.freedesktop.portal.Desktop"_s, path, interface, u"ReadAll"_s);
    call << groupsRead;
    callLater(m_bus, call, startPatience, this,
        [this](const QDBusMessage &answer) { takeAnswer(answer); });
}

void DesktopAppearance::takeAnswer(const QDBusMessage &answer)
{
    if (answer.signature() != u"a{sa{sv}}")
        return;
    const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments()[0]);
    DesktopLook look = m_look;
    for (const QString &group : groupsRead) {
        for (const auto &[key, value] : groups[group].asKeyValueRange())
            look = with(look, group, key, value);
    }
    setLook(look);
}

void DesktopAppearance::takeSetting(
    const QString &group, const QString &key, const QDBusVariant &value)
{
    setLook(with(m_look, group, key, value.variant()));
}

DesktopLook DesktopAppearance::with(
    DesktopLook look, const QString &group, const QString &key, const QVariant &wrapped)
{
    const QVariant value = unwrapped(wrapped);
    look = withPlain(look, group, key, value);
    // A desktop may tell several of these: animations that are off are not on because another
    // setting has no wish.
    const auto isUnwanted = wantsNoMotion(group, key, value);
    if (isUnwanted == true)
        m_motionless.insert(key);
    else if (isUnwanted == false)
        m_motionless.remove(key);
    look.reducesMotion = !m_motionless.isEmpty();
    return look;
}

void DesktopAppearance::setLook(const DesktopLook &look)
{
    if (std::exchange(m_look, look) != look)
        Q_EMIT changed(look);
}

} // namespace corvane::freedesktop
