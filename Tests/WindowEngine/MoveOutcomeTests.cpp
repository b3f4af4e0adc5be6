#include "Desk.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(MoveOutcomeTests, everyRefusalHasItsTextAndAMoveHasNone)
{
    struct Example {
        MoveOutcome outcome;
        QString name;
        QString text;
    };
    const Example examples[]{
        {{MoveOutcome::Moved{}}, u"moved"_s, {}},
        {{MoveOutcome::Refused{u"Editor: no"_s}}, u"refused"_s, u"Editor: no"_s},
        {{MoveOutcome::NoWindow{}}, u"noWindow"_s, u"no focused window (Editor)"_s},
        {{MoveOutcome::NotTrusted{}}, u"notTrusted"_s, u"accessibility not granted"_s},
        {{MoveOutcome::NothingToSnapBack{}}, u"nothingToSnapBack"_s, u"nothing to snap back"_s},
        {{MoveOutcome::NoOriginal{}}, u"noOriginal"_s,
            u"original orientation: this window was not seen opening"_s},
        {{MoveOutcome::SingleDisplay{}}, u"singleDisplay"_s, u"only one display"_s},
    };

    for (const Example &example : examples) {
        EXPECT_EQ(outcomeName(example.outcome), example.name);
        EXPECT_EQ(refusalText(example.outcome, u"Editor"_s), example.text);
    }
}

TEST(MoveOutcomeTests, withoutAFrontmostApplicationThereIsAQuestionMark)
{
    EXPECT_EQ(refusalText({MoveOutcome::NoWindow{}}, std::nullopt), u"no focused window (?)"_s);
}

TEST(MoveOutcomeTests, theActivityLogTellsThreeKindsOfRefusal)
{
    EXPECT_EQ(activityText(u"Editor: window is in native full screen"_s), u"is in full screen"_s);
    EXPECT_EQ(activityText(u"the app did not answer (it may be busy)"_s),
        u"did not answer (it may be busy)"_s);
    EXPECT_EQ(activityText(u"Editor: could not set size (AXError -25200)"_s),
        u"would not let its window move"_s);
}

} // namespace corvane
