#include "Accessibility.h"
#include "Desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AccessibilityTests : public testing::Test
{
protected:
    AccessibilityTests()
    {
        Accessibility::onDiagnostic = [this](const QString &text) { told << text; };
    }
    ~AccessibilityTests() override { Accessibility::onDiagnostic = nullptr; }

    SimulatedPlatform platform;
    QStringList told;
};

} // namespace

TEST_F(AccessibilityTests, saysWhatBecameOfTheStaleRow)
{
    platform.session().clearingStatus = 0;
    Accessibility::clearStaleRow();
    platform.session().clearingStatus = 70;
    Accessibility::clearStaleRow();
    platform.session().clearingStatus = std::nullopt;
    Accessibility::clearStaleRow();

    EXPECT_THAT(told,
        ElementsAre(u"own row cleared before asking (app.corvane.Corvane, tccutil exit 0)"_s,
            u"own row not cleared before asking (app.corvane.Corvane, tccutil exit 70)"_s,
            u"own row not cleared before asking (app.corvane.Corvane): could not run tccutil"_s));
}

TEST_F(AccessibilityTests, askingClearsTheRowOnlyWhenToldTo)
{
    EXPECT_TRUE(Accessibility::requestTrust(Accessibility::StaleRow::keep));
    EXPECT_THAT(platform.session().clearedRows, IsEmpty());

    platform.desktop().loseTrust();

    EXPECT_FALSE(Accessibility::requestTrust(Accessibility::StaleRow::clear));
    EXPECT_THAT(platform.session().clearedRows, ElementsAre(u"app.corvane.Corvane"_s));
}

TEST_F(AccessibilityTests, thePaneHasAnotherNameFromTheSystemAfterTwentySix)
{
    EXPECT_EQ(Accessibility::paneName(), u"Accessibility"_s);
    platform.session().majorVersion = 26;
    EXPECT_EQ(Accessibility::paneName(), u"Accessibility"_s);
    platform.session().majorVersion = 27;
    EXPECT_EQ(Accessibility::paneName(), u"Device Control and Data Access"_s);
}

TEST_F(AccessibilityTests, theSettingsOpenWhereTheDesktopKeepsThem)
{
    platform.session().settingsAddress = QUrl(u"help:here"_s);

    Accessibility::openSettings();

    EXPECT_THAT(platform.session().openedAddresses, ElementsAre(QUrl(u"help:here"_s)));
}

TEST_F(AccessibilityTests, aHungApplicationCostsTheMessagingTimeout)
{
    const pid_t pid = platform.desktop().start(u"org.example.Hung"_s, u"Hung"_s);
    const AXWindow window{platform.desktop().openWindow(pid, {}), pid};
    platform.desktop().application(pid).hung = true;

    Accessibility::setMessagingTimeout(0.25);

    EXPECT_EQ(window.frame(), std::nullopt);
    EXPECT_EQ(platform.clock().now(), Clock::Duration(250));
}

} // namespace corvane
