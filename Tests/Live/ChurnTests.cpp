#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class ChurnTests : public LiveTests
{
protected:
    // AddressSanitizer keeps what was freed, which would look like a leak.
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(LiveTests::SetUp());
        m_options = desktop().environment().value(u"ASAN_OPTIONS"_s);
        restartWith(m_options + u":quarantine_size_mb=1:thread_local_quarantine_size_kb=64"_s);
    }

    void TearDown() override
    {
        restartWith(m_options);
        LiveTests::TearDown();
    }

private:
    void restartWith(const QString &sanitizerOptions)
    {
        corvane().stop();
        desktop().setVariable(u"ASAN_OPTIONS"_s, sanitizerOptions);
        EXPECT_TRUE(corvane().start());
    }

    QString m_options;
};

int churnSeconds()
{
    bool given = false;
    const int seconds = qEnvironmentVariableIntValue("CORVANE_TEST_CHURN_SECONDS", &given);
    return given ? seconds : 60;
}

} // namespace

TEST_F(ChurnTests, aHundredWindowsASecondLeaveNothingBehind)
{
    constexpr int perSecond = 100;
    TestClient busy(desktop());
    const xcb_window_t window = showFocused();
    // The first second warms every cache and pool up.
    busy.beginChurn(perSecond, perSecond);
    ASSERT_EQ(busy.finishChurn(Milliseconds{20000}), perSecond);
    ASSERT_TRUE(focus(window));
    press(strokes::leftHalf);
    const Rect left = frameOf(region(u"leftHalf"), standardDisplay);
    ASSERT_EQ(reached(window, left), left);
    const qint64 memoryBefore = corvane().residentKilobytes();
    const qsizetype filesBefore = corvane().openFiles();

    const int count = perSecond * churnSeconds();
    busy.beginChurn(perSecond, count);
    ASSERT_EQ(busy.finishChurn(Milliseconds{churnSeconds() * 4000 + 30000}), count);

    ASSERT_TRUE(focus(window));
    press(strokes::rightHalf);
    const Rect right = frameOf(region(u"rightHalf"), standardDisplay);
    EXPECT_EQ(reached(window, right), right);
    // The watcher may hold a few thousand first frames, and the sanitizer takes room of its own.
    constexpr qint64 allowedKilobytes = 4096;
    RecordProperty(
        "grownKilobytes", static_cast<int>(corvane().residentKilobytes() - memoryBefore));
    EXPECT_LE(corvane().residentKilobytes() - memoryBefore, allowedKilobytes);
    EXPECT_LE(corvane().openFiles(), filesBefore);
}

TEST_F(ChurnTests, aReusedWindowNumberIsANewWindow)
{
    const xcb_window_t window = showFocused({.geometry = {310, 220, 520, 340}});
    ASSERT_TRUE(waitUntil([&] { return corvane().place(u"original"_s).name() == u"moved"; }));
    press(strokes::leftHalf);
    const Rect left = frameOf(region(u"leftHalf"), standardDisplay);
    ASSERT_EQ(reached(window, left), left);
    client().close(window);
    ASSERT_TRUE(waitUntil([&] { return !probe().clients().contains(window); }));

    const xcb_window_t again = showFocused({.geometry = {700, 400, 300, 200}, .number = window});
    ASSERT_EQ(again, window);
    const Rect fresh = frame(again);

    EXPECT_TRUE(refused(corvane().place(u"snapBack"_s), u"nothing to snap back"_s));
    const auto early = corvane().place(u"original"_s);
    if (early.name() != u"moved") {
        EXPECT_TRUE(refused(early, u"this window was not seen opening"_s));
    }
    ASSERT_TRUE(waitUntil([&] { return corvane().place(u"original"_s).name() == u"moved"; }));
    EXPECT_EQ(frame(again), fresh);
    const auto answer = corvane().place(u"leftHalf"_s);
    EXPECT_EQ(answer.outcome["placement"_L1].toString(), u"leftHalf") << "the cycle starts afresh";
}

} // namespace corvane::desktop
