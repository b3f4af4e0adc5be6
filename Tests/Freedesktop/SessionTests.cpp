#include "EntryFolders.h"
#include "FreedesktopSession.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusVirtualObject>

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// A service on the session bus that notes every call, and answers when the test says so.
struct FakeService final : QDBusVirtualObject {
    FakeService(const QString &name, const QString &path)
        : bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name))
    {
        EXPECT_TRUE(bus.registerVirtualObject(path, this) && bus.registerService(name));
    }
    ~FakeService() override { QDBusConnection::disconnectFromBus(bus.name()); }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        message.setDelayedReply(true);
        calls << message;
        return true;
    }
    QString introspect(const QString &) const override { return {}; }

    void answer(qsizetype call, const QVariantList &values)
    {
        bus.send(calls[call].createReply(values));
    }
    void refuse(qsizetype call) { bus.send(calls[call].createErrorReply(QDBusError::Failed, {})); }
    bool hears(qsizetype count)
    {
        return eventually([&] { return calls.size() >= count; });
    }
    QVariant argument(qsizetype call, qsizetype index)
    {
        return calls.value(call).arguments().value(index);
    }

    QDBusConnection bus;
    QList<QDBusMessage> calls;
};

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

struct NotificationTests : SessionTests {
    FakeService service{u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s};
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
    void change(const QString &key, const QVariant &value,
        const QString &group = u"org.freedesktop.appearance"_s)
    {
        auto signal = QDBusMessage::createSignal(
            path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        portal.bus.send(signal);
    }
};

} // namespace

TEST_F(NotificationTests, aNotificationTakesThePlaceOfTheLastOneWithItsId)
{
    session.notify(u"a"_s, u"Title <1>"_s, u"<b>\"x\" & y</b>"_s);
    ASSERT_TRUE(service.hears(1));
    EXPECT_EQ(service.calls[0].signature(), u"susssasa{sv}i");
    EXPECT_EQ(service.argument(0, 3), u"Title <1>"_s);
    EXPECT_EQ(service.argument(0, 4), u"&lt;b&gt;\"x\" &amp; y&lt;/b&gt;"_s);
    service.answer(0, {7u});
    session.notify(u"b"_s, {}, {});
    ASSERT_TRUE(service.hears(2));

    session.notify(u"a"_s, {}, {});

    ASSERT_TRUE(service.hears(3));
    EXPECT_EQ(service.argument(1, 1), 0u);
    EXPECT_EQ(service.argument(2, 1), 7u);
}

TEST_F(NotificationTests, whileAnAnswerIsAwaitedOnlyTheNewestWaitsForIt)
{
    for (const QString &text : {u"first"_s, u"second"_s, u"third"_s})
        session.notify(u"a"_s, {}, text);
    ASSERT_TRUE(service.hears(1));

    service.answer(0, {7u});
    ASSERT_TRUE(service.hears(2));
    service.refuse(1);
    session.notify(u"a"_s, {}, u"fourth"_s);
    ASSERT_TRUE(service.hears(3));

    EXPECT_EQ(service.argument(1, 4), u"third"_s);
    EXPECT_EQ(service.argument(1, 1), 7u);
    EXPECT_EQ(service.argument(2, 4), u"fourth"_s);
    EXPECT_EQ(service.argument(2, 1), 0u);
}

TEST_F(LookTests, isWhatThePortalSaysHoweverWrappedAndOnlyRealChangesAreTold)
{
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    const QVariantMap values{
        {u"color-scheme"_s, QVariant::fromValue(QDBusVariant(1u))}, {u"contrast"_s, 1u}};
    const QMap<QString, QVariantMap> groups{{u"org.freedesktop.appearance"_s, values}};
    portal.answer(0, {QVariant::fromValue(groups)});

    for (const quint32 scheme : {1u, 2u, 0u, 1u})
        change(u"color-scheme"_s, scheme);
    change(u"accent-color"_s, 1u);
    change(u"contrast"_s, 0u);

    EXPECT_TRUE(eventually([this] { return changes.size() == 4; }));
    EXPECT_THAT(changes,
        ElementsAre(DesktopLook{true, true, {}}, DesktopLook{false, true, {}},
            DesktopLook{true, true, {}}, DesktopLook{true, false, {}}));
}

TEST_F(LookTests, withoutAnAnswerItStaysLightUntilASettingChanges)
{
    portal.refuse(0);
    change(u"contrast"_s, 1u);
    change(u"font-name"_s, u"Cantarell 11"_s, u"org.gnome.desktop.interface"_s);
    change(u"font"_s, u"Noto Sans,10,-1,5"_s, u"org.kde.kdeglobals.General"_s);

    EXPECT_TRUE(eventually([this] { return changes.size() == 3; }));
    EXPECT_THAT(changes,
        ElementsAre(DesktopLook{false, true, {}}, DesktopLook{false, true, u"Cantarell 11"_s},
            DesktopLook{false, true, u"Noto Sans 10"_s}));
}

TEST_F(LookTests, motionIsReducedForAsLongAsAnySettingWantsThat)
{
    portal.refuse(0);
    const QString gnome = u"org.gnome.desktop.interface"_s;
    const QString plasma = u"org.kde.kdeglobals.KDE"_s;
    change(u"enable-animations"_s, false, gnome);
    change(u"reduced-motion"_s, 0u);
    change(u"AnimationDurationFactor"_s, u"0"_s, plasma);
    change(u"enable-animations"_s, true, gnome);
    change(u"AnimationDurationFactor"_s, u"0.5"_s, plasma);
    change(u"AnimationDurationFactor"_s, QString(), plasma);
    change(u"reduced-motion"_s, 1u);

    EXPECT_TRUE(eventually([this] { return changes.size() == 3; }));
    EXPECT_THAT(changes,
        ElementsAre(
            DesktopLook{.reducesMotion = true}, DesktopLook{}, DesktopLook{.reducesMotion = true}));
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
}

TEST_F(SessionTests, withoutABusNothingIsShownAndTheLookIsLight)
{
    for (const QString &text : {u"first"_s, u"second"_s})
        withoutBus.notify(u"a"_s, text, text);

    EXPECT_EQ(withoutBus.look(), DesktopLook());
}

} // namespace corvane::freedesktop
