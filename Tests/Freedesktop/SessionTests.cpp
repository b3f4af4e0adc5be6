#include "EntryFolders.h"
#include "FakeService.h"
#include "FreedesktopSession.h"

#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusVariant>

#include <gmock/gmock.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class SessionTests : public testing::Test
{
protected:
    FreedesktopSession session;

    static bool hasCalls(const FakeService &service, qsizetype count)
    {
        return eventually([&] { return service.calls.size() >= count; });
    }
};

class OpeningSession final : public FreedesktopSession
{
public:
    using FreedesktopSession::FreedesktopSession;
    bool openAddress(const QUrl &address) override
    {
        opened << address.toString();
        return true;
    }

    QStringList opened;
};

class NotificationTests : public SessionTests
{
protected:
    FakeService service{u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s};

    [[nodiscard]] quint32 replaced(qsizetype call) const
    {
        return service.calls.at(call).arguments().at(1).toUInt();
    }
    [[nodiscard]] QString body(qsizetype call) const
    {
        return service.calls.at(call).arguments().at(4).toString();
    }
};

class LookTests : public SessionTests
{
protected:
    const QString settings = u"org.freedesktop.portal.Settings"_s;
    const QString group = u"org.freedesktop.appearance"_s;
    FakeService portal{u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s};
    QList<DesktopLook> changes;

    void SetUp() override
    {
        qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
        QObject::connect(&session, &Session::lookChanged, &session,
            [this](const DesktopLook &look) { changes << look; });
    }
    void answer(const QVariantMap &values)
    {
        EXPECT_EQ(session.look(), DesktopLook());
        EXPECT_TRUE(hasCalls(portal, 1));
        portal.answer(0, {QVariant::fromValue(QMap<QString, QVariantMap>{{group, values}})});
    }
    void change(const QString &key, quint32 value)
    {
        portal.signal(
            settings, u"SettingChanged"_s, {group, key, QVariant::fromValue(QDBusVariant(value))});
    }
};

} // namespace

TEST_F(NotificationTests, aNotificationTakesThePlaceOfTheLastOneWithItsId)
{
    session.notify(u"a"_s, u"Title <1>"_s, u"<b>\"x\" & y</b>"_s);
    ASSERT_TRUE(hasCalls(service, 1));
    EXPECT_EQ(service.calls[0].signature(), u"susssasa{sv}i");
    EXPECT_EQ(service.calls[0].arguments()[3].toString(), u"Title <1>");
    EXPECT_EQ(body(0), u"&lt;b&gt;\"x\" &amp; y&lt;/b&gt;");
    service.answer(0, {7u});
    session.notify(u"b"_s, {}, {});
    ASSERT_TRUE(hasCalls(service, 2));

    session.notify(u"a"_s, {}, {});

    ASSERT_TRUE(hasCalls(service, 3));
    EXPECT_EQ(replaced(1), 0u);
    EXPECT_EQ(replaced(2), 7u);
}

TEST_F(NotificationTests, whileAnAnswerIsAwaitedOnlyTheNewestWaitsForIt)
{
    for (const QString &text : {u"first"_s, u"second"_s, u"third"_s})
        session.notify(u"a"_s, {}, text);
    ASSERT_TRUE(hasCalls(service, 1));

    service.answer(0, {7u});
    ASSERT_TRUE(hasCalls(service, 2));
    service.refuse(1);
    session.notify(u"a"_s, {}, u"fourth"_s);
    ASSERT_TRUE(hasCalls(service, 3));

    EXPECT_EQ(body(1), u"third");
    EXPECT_EQ(replaced(1), 7u);
    EXPECT_EQ(body(2), u"fourth");
    EXPECT_EQ(replaced(2), 0u);
}

TEST_F(LookTests, isWhatThePortalSaysHoweverWrapped)
{
    answer({{u"color-scheme"_s, QVariant::fromValue(QDBusVariant(1u))}, {u"contrast"_s, 1u}});

    EXPECT_TRUE(eventually([this] { return !changes.isEmpty(); }));

    EXPECT_EQ(session.look(), (DesktopLook{true, true}));
    EXPECT_THAT(changes, ElementsAre(DesktopLook{true, true}));
}

TEST_F(LookTests, onlyRealChangesAreTold)
{
    answer({{u"color-scheme"_s, 0u}});

    for (const quint32 scheme : {2u, 1u, 1u, 0u})
        change(u"color-scheme"_s, scheme);
    change(u"accent-color"_s, 1);
    change(u"contrast"_s, 1);

    EXPECT_TRUE(eventually([this] { return session.look().hasHighContrast; }));
    EXPECT_THAT(
        changes, ElementsAre(DesktopLook{true, false}, DesktopLook{}, DesktopLook{false, true}));
    EXPECT_EQ(portal.calls.size(), 1);
}

TEST_F(LookTests, aPortalThatKnowsNothingLeavesItLight)
{
    EXPECT_EQ(session.look(), DesktopLook());
    ASSERT_TRUE(hasCalls(portal, 1));
    portal.refuse(0);
    change(u"contrast"_s, 1);

    EXPECT_TRUE(eventually([this] { return !changes.isEmpty(); }));
    EXPECT_THAT(changes, ElementsAre(DesktopLook{false, true}));
}

TEST_F(SessionTests, aFileIsRevealedByTheFileBrowserElseItsFolderOpens)
{
    const QUrl file = QUrl::fromLocalFile(u"/tmp/some file"_s);
    OpeningSession onBus;
    OpeningSession withoutBus{QDBusConnection(u"none"_s)};
    FakeService service{u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s};

    onBus.reveal(file);
    onBus.reveal(file);
    withoutBus.reveal(file);
    ASSERT_TRUE(hasCalls(service, 2));
    EXPECT_EQ(service.calls[0].arguments()[0], QStringList{u"file:///tmp/some%20file"_s});
    service.answer(0, {});
    service.refuse(1);

    EXPECT_TRUE(eventually([&] { return !onBus.opened.isEmpty(); }));
    EXPECT_THAT(onBus.opened, ElementsAre(u"file:///tmp/"_s));
    EXPECT_THAT(withoutBus.opened, ElementsAre(u"file:///tmp/"_s));
}

TEST(SessionWithoutBusTests, nothingIsShownAndTheLookIsLight)
{
    FreedesktopSession session{QDBusConnection(u"none"_s)};

    for (const QString &text : {u"first"_s, u"second"_s})
        session.notify(u"a"_s, text, text);

    EXPECT_EQ(session.look(), DesktopLook());
    EXPECT_EQ(session.look(), DesktopLook());
}

} // namespace corvane::freedesktop
