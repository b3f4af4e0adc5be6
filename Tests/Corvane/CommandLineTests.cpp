#include "CommandLine.h"

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

TEST(CommandLineTests, flagsAreReadInAnyOrder)
{
    const auto line = CommandLine::parse({u"--json"_s, u"--place"_s, u"topLeftSixth"_s});

    ASSERT_TRUE(line);
    EXPECT_EQ(line->place, Placement::topLeftSixth);
    EXPECT_TRUE(line->json);
    EXPECT_FALSE(line->verbose);
}

TEST(CommandLineTests, aCaptureMayBeNamed)
{
    EXPECT_EQ(CommandLine::parse({u"--capture"_s, u"My desk"_s})->capture, u"My desk"_s);
    EXPECT_EQ(CommandLine::parse({u"--capture"_s, u"--json"_s})->capture, u"Layout"_s);
    EXPECT_EQ(CommandLine::parse({u"--capture"_s})->capture, u"Layout"_s);
}

TEST(CommandLineTests, theHistoryTakesANumber)
{
    EXPECT_EQ(CommandLine::parse({u"--history"_s})->history, CommandLine::usualHistory);
    EXPECT_EQ(CommandLine::parse({u"--history"_s, u"3"_s})->history, 3);
    EXPECT_EQ(CommandLine::parse({u"--history"_s, u"--json"_s, u"3"_s})->history, 3);
    for (const QString &wrong : {u"0"_s, u"-1"_s, u"x"_s, u"99999999999"_s})
        EXPECT_FALSE(CommandLine::parse({u"--history"_s, wrong}));
    EXPECT_FALSE(CommandLine::parse({u"3"_s}));
}

TEST(CommandLineTests, aMistakeIsAnsweredWithWhatExists)
{
    const struct {
        QStringList arguments;
        const char *named;
        const char *offered;
    } mistakes[]{
        {{u"--place"_s, u"LeftHalf"_s}, "\"LeftHalf\"", "leftHalf, rightHalf"},
        {{u"--place"_s}, "\"\"", "snapBack, original."},
        {{u"--place"_s, u"--json"_s}, "\"--json\"", "leftHalf"},
        {{u"--plaec"_s, u"leftHalf"_s}, "\"--plaec\"", "--place, --capture"},
        {{u"leftHalf"_s}, "\"leftHalf\"", "--place"},
    };
    for (const auto &mistake : mistakes) {
        const auto line = CommandLine::parse(mistake.arguments);

        ASSERT_FALSE(line);
        EXPECT_THAT(line.error().toStdString(), HasSubstr(mistake.named));
        EXPECT_THAT(line.error().toStdString(), HasSubstr(mistake.offered));
    }
}

TEST(CommandLineTests, theHelpNamesEveryPlacement)
{
    const QString help = CommandLine::helpText();

    for (const Placement placement : allPlacements())
        EXPECT_TRUE(help.contains(rawValue(placement))) << rawValue(placement).data();
}

} // namespace corvane
