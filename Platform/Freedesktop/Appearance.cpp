#include "Appearance.h"

#include "BusCall.h"

#include <QtDBus/QDBusArgument>

#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;

/// Some portals wrap a value more than once.
quint32 number(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

DesktopLook with(DesktopLook look, const QString &key, const QVariant &value)
{
    if (key == u"color-scheme")
        look.isDark = number(value) == 1;
    else if (key == u"contrast")
        look.hasHighContrast = number(value) == 1;
    return look;
}

} // namespace

DesktopLook Appearance::look()
{
    if (!std::exchange(m_isAsked, true))
        ask();
    return m_look;
}

void Appearance::ask()
{
    // Else the slot is not found by its parameters.
    qRegisterMetaType<QDBusVariant>();
    // From whomever: to follow one service only, its owner would have to be waited for.
    m_bus.connect({}, path, interface, u"SettingChanged"_s, {appearanceGroup}, u"ssv"_s, this,
        SLOT(takeSetting(QString, QString, QDBusVariant)));
    auto call = QDBusMessage::createMethodCall(
        u"org.freedesktop.portal.Desktop"_s, path, interface, u"ReadAll"_s);
    call << QStringList{appearanceGroup};
    callLater(m_bus, call, startPatience, this,
        [this](const QDBusMessage &answer) { takeAnswer(answer); });
}

void Appearance::takeAnswer(const QDBusMessage &answer)
{
    if (answer.signature() != u"a{sa{sv}}")
        return;
    const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments()[0]);
    DesktopLook look = m_look;
    for (const auto &[key, value] : groups[appearanceGroup].asKeyValueRange())
        look = with(look, key, value);
    setLook(look);
}

void Appearance::takeSetting(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == appearanceGroup)
        setLook(with(m_look, key, value.variant()));
}

void Appearance::setLook(const DesktopLook &look)
{
    if (std::exchange(m_look, look) != look)
        Q_EMIT changed(look);
}

} // namespace corvane::freedesktop
