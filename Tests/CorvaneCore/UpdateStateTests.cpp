#include "StoreFolder.h"
#include "UpdateState.h"

#include <gtest/gtest.h>

namespace corvane {

TEST(UpdateStateTests, whatIsSavedComesBackWithTheLatestFailures)
{
    const StoreFolder folder;
    UpdateState state{noon, noon.addMSecs(-1), {}, 0, true};
    for (qint64 build = 1; build <= UpdateState::mostFailedBuilds + 1; ++build)
        state.noteFailed(build);
    state.noteFailed(2);

    ASSERT_TRUE(state.save(folder.path()));

    EXPECT_EQ(UpdateState::load(folder.path()), state);
    EXPECT_EQ(state.failedBuilds.size(), UpdateState::mostFailedBuilds);
    EXPECT_EQ(state.failedBuilds.first(), 3);
    EXPECT_EQ(state.failedBuilds.last(), 2);
}

TEST(UpdateStateTests, whatIsDamagedCostsItselfAlone)
{
    const std::pair<QByteArray, UpdateState> rows[]{
        {R"({"seed": 5, "issued": 1, "lastChecked": "2026-03-01T12:00:00Z"})", {noon, {}, {}, 5}},
        {R"({"seed": 5, "failedBuilds": [1, "2", -3, 0, 1.5, 9000000000]})",
            {{}, {}, {1, 9000000000}, 5}},
        {R"({"seed": -1, "failedBuilds": 7, "issued": "2026-03-01T12:00:00Z"})",
            {{}, noon, {}, -1}},
        {"[]", {{}, {}, {}, -1}},
        {R"({"seed": )", {{}, {}, {}, -1}},
    };
    for (auto [content, state] : rows) {
        const StoreFolder folder;
        folder.write(u"update-state.json"_s, content);

        const UpdateState loaded = UpdateState::load(folder.path());

        EXPECT_GE(loaded.seed, 0);
        state.seed = state.seed < 0 ? loaded.seed : state.seed;
        EXPECT_EQ(loaded, state) << content.toStdString();
    }
}

} // namespace corvane
