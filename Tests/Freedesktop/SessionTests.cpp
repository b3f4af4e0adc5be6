#include "FakeService.h"
#include "FreedesktopSession.h"

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

struct OpeningSession final : FreedesktopSession {
    using FreedesktopSession::FreedesktopSession;
    bool openAddress(const QUrl &address) override
    {
        opened << address.toString();
        return true;
    }

    QStringList opened;
};

struct SessionTests : testing::Test {
    OpeningSession session;
    OpeningSession withoutBus{QDBusConnection(u"none"_s)};
};

struct LookTests : SessionTests {
    const QString path = u"/org/freedesktop/portal/desktop"_s;
    FakeService portal{u"org.freedesktop.portal.Desktop"_s, path};
    QList<DesktopLook> changes;

    void SetUp() override
    {
        QObject::connect(&session, &Session::lookChanged, &session,
            [this](const DesktopLook &look) { changes << look; });
        EXPECT_EQ(session.look(), DesktopLook());
        EXPECT_TRUE(portal.hears(1));
    }
    struct Change {
        QString key;
        QVariant value;
        QString group = u"org.freedesktop.appearance"_s;
    };
    void expectLooks(std::initializer_list<Change> settings, const QList<DesktopLook> &looks)
    {
        for (const auto &[key, value, group] : settings) {
            auto signal = QDBusMessage::createSignal(
                path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
            signal << group << key << QVariant::fromValue(QDBusVariant(value));
            portal.bus.send(signal);
        }
        EXPECT_TRUE(eventually([&] { return changes.size() >= looks.size(); }));
        EXPECT_EQ(changes, looks);
    }
};

} // namespace

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

TEST_F(LookTests, isWhatThePortalSaysHoweverWrappedAndOnlyRealChangesAreTold)
{
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    const QVariantMap values{
        {u"color-scheme"_s, QVariant::fromValue(QDBusVariant(1u))}, {u"contrast"_s, 1u}};
    const QMap<QString, QVariantMap> groups{{u"org.freedesktop.appearance"_s, values}};
    portal.answer(0, {QVariant::fromValue(groups)});

    expectLooks({{u"color-scheme"_s, 1u}, {u"color-scheme"_s, 2u}, {u"color-scheme"_s, 0u},
                    {u"color-scheme"_s, 1u}, {u"accent-color"_s, 1u}, {u"contrast"_s, 0u}},
        {{true, true, {}}, {false, true, {}}, {true, true, {}}, {true, false, {}}});
}

TEST_F(LookTests, withoutAnAnswerItStaysLightAndAtMotionUntilASettingChanges)
{
    const QString gnome = u"org.gnome.desktop.interface"_s;
    const QString plasma = u"org.kde.kdeglobals.KDE"_s;
    portal.refuse(0);
    expectLooks({{u"contrast"_s, 1u}, {u"font-name"_s, u"Cantarell 11"_s, gnome},
                    {u"font"_s, u"Noto Sans,10,-1,5"_s, u"org.kde.kdeglobals.General"_s},
                    {u"contrast"_s, 0u}},
        {{false, true, {}}, {false, true, u"Cantarell 11"_s}, {false, true, u"Noto Sans 10"_s},
            {false, false, u"Noto Sans 10"_s}});

    // Motion is reduced for as long as any setting wants that.
    changes.clear();
    const DesktopLook plain{false, false, u"Noto Sans 10"_s};
    DesktopLook still = plain;
    still.reducesMotion = true;
    expectLooks(
        {{u"enable-animations"_s, false, gnome}, {u"reduced-motion"_s, 0u},
            {u"AnimationDurationFactor"_s, u"0"_s, plasma}, {u"enable-animations"_s, true, gnome},
            {u"AnimationDurationFactor"_s, u"0.5"_s, plasma},
            {u"AnimationDurationFactor"_s, QString(), plasma}, {u"reduced-motion"_s, 1u}},
        {still, plain, still});
}

TEST_F(SessionTests, aFileIsRevealedByTheFileBrowserElseItsFolderOpens)
{
    FakeService browser{u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s};

    for (OpeningSession *each : {&session, &session, &withoutBus})
        each->reveal(QUrl::fromLocalFile(u"/tmp/some file"_s));
    ASSERT_TRUE(browser.hears(2));
    EXPECT_EQ(browser.argument(0, 0), QStringList{u"file:///tmp/some%20file"_s});
    browser.answer(0, {});
    browser.refuse(1);

    EXPECT_TRUE(eventually([&] { return !session.opened.isEmpty(); }));
    EXPECT_THAT(session.opened, ElementsAre(u"file:///tmp/"_s));
    EXPECT_THAT(withoutBus.opened, ElementsAre(u"file:///tmp/"_s));
    for (const QString &text : {u"first"_s, u"second"_s})
        withoutBus.notify(u"a"_s, text, text);
    EXPECT_EQ(withoutBus.look(), DesktopLook());
}

} // namespace corvane::freedesktop

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    corvane::desktop::PrivateSession session;
    if (const QString error = session.startBus(); !error.isEmpty())
        qFatal("%s", qUtf8Printable(error));
    const auto address = session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit());
    return RUN_ALL_TESTS();
}
