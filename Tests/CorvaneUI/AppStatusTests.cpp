#include "AppStatus.h"

#include "ModelDesk.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct StatusCase {
    bool isTrusted = true;
    bool hasUnregistered = false;
    int competitors = 0;
    QString line;
};

class AppStatusTests : public testing::TestWithParam<StatusCase>
{
};

} // namespace

TEST_P(AppStatusTests, theFirstProblemIsTold)
{
    ModelDesk desk;
    AppModel model = desk.model();
    model.accessibilityTrusted = GetParam().isTrusted;
    if (GetParam().hasUnregistered)
        model.unregistered = QSet<ShortcutOwner>{{QUuid::createUuid()}};
    QList<Competitor::Running> competitors;
    for (int i = 0; i < GetParam().competitors; ++i)
        competitors.append({Competitor::known().at(static_cast<size_t>(i)), {}});
    model.competitors = competitors;
    const bool isReady = GetParam().line == u"Ready"_s;

    EXPECT_EQ(AppStatus::line(model), GetParam().line);
    EXPECT_EQ(AppStatus::isReady(model), isReady);
    EXPECT_EQ(
        AppStatus::tone(model), isReady ? AppStatus::Tone::ready : AppStatus::Tone::attention);
}

INSTANTIATE_TEST_SUITE_P(States, AppStatusTests,
    testing::Values(StatusCase{.line = u"Ready"_s},
        StatusCase{false, true, 1, u"Waiting on Accessibility"_s},
        StatusCase{true, true, 1, u"A shortcut is not working"_s},
        StatusCase{true, false, 2, u"SizeUp is also running"_s}));

} // namespace corvane
