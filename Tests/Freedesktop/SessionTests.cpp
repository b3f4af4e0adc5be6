#include "FreedesktopSession.h"
#include "Testing.h"

namespace corvane::freedesktop {

struct OpeningSession final : FreedesktopSession {
    bool openAddress(const QUrl &address) override { return opened = address, true; }
    QUrl opened;
};
struct SessionTests : Test {
    OpeningSession session;
};

TEST_F(SessionTests, aNotificationTakesThePlaceOfTheLastOneWithItsIdOnceThatIsKnown)
{
    FakeService service{u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s};
    session.notify(u"a"_s, u"Title <1>"_s, u"<b>\"x\" & y</b>"_s);
    for (const QString &text : {u"second"_s, u"third"_s})
        session.notify(u"a"_s, {}, text);
    session.notify(u"b"_s, {}, u"other"_s);
    ASSERT_TRUE(service.hears(2));
    service.answer(0, {7u});
    ASSERT_TRUE(service.hears(3));
    service.refuse(2);
    session.notify(u"c"_s, {}, u"another"_s);
    ASSERT_TRUE(service.hears(4));
    session.notify(u"a"_s, {}, u"fourth"_s);
    ASSERT_TRUE(service.hears(5));

    EXPECT_EQ(service.calls[0].signature(), u"susssasa{sv}i");
    EXPECT_EQ(service.argument(0, 3), u"Title <1>"_s);
    QStringList shown;
    for (qsizetype call = 0; call < 5; ++call)
        shown << service.argument(call, 1).toString() + u' ' + service.argument(call, 4).toString();
    EXPECT_THAT(shown,
        ElementsAre(u"0 &lt;b&gt;\"x\" &amp; y&lt;/b&gt;"_s, u"0 other"_s, u"7 third"_s,
            u"0 another"_s, u"0 fourth"_s));
}

TEST_F(SessionTests, aClickOnANotificationThatLeadsSomewhereIsToldWithItsToken)
{
    FakeService service{u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s};
    QStringList clicks;
    QObject::connect(&session, &Session::notificationClicked, &session,
        [&](const QString &id, const QString &token) { clicks << id + u' ' + token; });
    session.notify(u"a"_s, {}, {}, u"Show"_s);
    session.notify(u"b"_s, {}, {});
    ASSERT_TRUE(service.hears(2));
    EXPECT_EQ(service.argument(0, 5), (QStringList{u"default"_s, u"Show"_s}));
    EXPECT_EQ(service.argument(1, 5), QStringList());
    service.answer(0, {7u});
    const auto tell = [&](const QString &name, quint32 number, const QString &text) {
        auto signal = QDBusMessage::createSignal(
            u"/org/freedesktop/Notifications"_s, u"org.freedesktop.Notifications"_s, name);
        service.bus.send(signal << number << text);
    };

    tell(u"ActivationToken"_s, 7, u"token"_s);
    tell(u"ActionInvoked"_s, 7, u"default"_s);
    tell(u"ActionInvoked"_s, 8, u"default"_s); // another program's
    tell(u"ActionInvoked"_s, 7, u"other"_s);
    tell(u"ActionInvoked"_s, 7, u"default"_s);

    EXPECT_TRUE(eventually([&] { return clicks.size() >= 2; }));
    EXPECT_THAT(clicks, ElementsAre(u"a token"_s, u"a "_s));
}

TEST_F(SessionTests, theLookIsWhatThePortalSaysHoweverWrappedAndOnlyRealChangesAreTold)
{
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    const QString path = u"/org/freedesktop/portal/desktop"_s;
    const QString appearance = u"org.freedesktop.appearance"_s;
    const QString gnome = u"org.gnome.desktop.interface"_s;
    const QString plasma = u"org.kde.kdeglobals.KDE"_s;
    FakeService portal{u"org.freedesktop.portal.Desktop"_s, path};
    QList<DesktopLook> changes;
    QObject::connect(
        &session, &Session::lookChanged, &session, [&](const auto &look) { changes << look; });
    EXPECT_EQ(session.look(), DesktopLook());
    ASSERT_TRUE(portal.hears(1));
    const QVariantMap values{
        {u"color-scheme"_s, QVariant::fromValue(QDBusVariant(1u))}, {u"contrast"_s, 1u}};
    portal.answer(0, {QVariant::fromValue(QMap<QString, QVariantMap>{{appearance, values}})});
    EXPECT_TRUE(eventually([&] { return changes == QList{DesktopLook{true, true}}; }));

    changes.clear();
    const QString font = u"Noto Sans 10"_s;
    const QList<DesktopLook> expected{{false, true}, {false, false}, {false, false, font},
        {false, false, font, true}, {false, false, font}, {true, false, font}};
    for (const auto &[group, key, value] : {std::tuple(appearance, u"color-scheme"_s, QVariant(2u)),
             {appearance, u"accent-color"_s, 1u}, {appearance, u"contrast"_s, 0u},
             {u"org.kde.kdeglobals.General"_s, u"font"_s, u"Noto Sans,10,-1,5"_s},
             // Motion is reduced for as long as any setting wants that.
             {gnome, u"enable-animations"_s, false}, {appearance, u"reduced-motion"_s, 0u},
             {plasma, u"AnimationDurationFactor"_s, u"0"_s}, {gnome, u"enable-animations"_s, true},
             {plasma, u"AnimationDurationFactor"_s, u"0.5"_s},
             {plasma, u"AnimationDurationFactor"_s, QString()},
             {appearance, u"color-scheme"_s, 1u}}) {
        auto signal = QDBusMessage::createSignal(
            path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        portal.bus.send(signal);
    }
    EXPECT_TRUE(eventually([&] { return changes.size() >= expected.size(); }));
    EXPECT_EQ(changes, expected);
}

TEST_F(SessionTests, aFileIsRevealedByTheFileBrowserElseItsFolderOpens)
{
    FakeService browser{u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s};

    session.reveal(QUrl::fromLocalFile(u"/tmp/some file"_s));

    ASSERT_TRUE(browser.hears(1));
    EXPECT_EQ(browser.argument(0, 0), QStringList{u"file:///tmp/some%20file"_s});
    browser.refuse(0);
    EXPECT_TRUE(eventually([&] { return session.opened == QUrl(u"file:///tmp/"_s); }));
}

} // namespace corvane::freedesktop

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    corvane::desktop::PrivateSession session;
    if (const QString error = session.startBus(); !error.isEmpty())
        qFatal("%s", qUtf8Printable(error));
    const char *bus = "DBUS_SESSION_BUS_ADDRESS";
    qputenv(bus, session.environment().value(QLatin1StringView(bus)).toLocal8Bit());
    return RUN_ALL_TESTS();
}
