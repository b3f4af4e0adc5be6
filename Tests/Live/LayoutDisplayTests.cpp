#include "LayoutRuns.h"

#include <random>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using Displays = QList<Rect>;

const Displays pair{{0, 0, 1920, 1080}, {1920, 0, 1600, 900}};

constexpr UnitRect leftHalf{0, 0, 0.5, 1};
constexpr UnitRect rightHalf{0.5, 0, 0.5, 1};

class LayoutDisplayTests : public LayoutRuns
{
protected:
    void arrange(const Displays &displays) { ASSERT_TRUE(desktop().displays().arrange(displays)); }

    /// Made for these displays: on each a window with its number as title, in the left half.
    WindowLayout showOnePerDisplay(const QList<DisplayKey> &displays)
    {
        WindowLayout layout{.name = u"Desk"_s, .displays = displays};
        for (int i = 0; i < displays.size(); ++i) {
            const QString title = u"Window %1"_s.arg(i);
            m_windows << showAt({300.0 + 60 * i, 200.0 + 60 * i, 400, 300}, title.toUtf8());
            Pane pane = clientPane(leftHalf, title);
            pane.display = i;
            layout.panes << pane;
        }
        return layout;
    }

    void expectLeftHalves(const Displays &displays)
    {
        for (qsizetype i = 0; i < displays.size(); ++i) {
            const Rect expected = frameOf(leftHalf, displays[i]);
            EXPECT_EQ(reached(m_windows[i], expected), expected) << "window " << i;
        }
    }

    /// Puts ten windows on both displays, overlapping, none mostly hidden.
    void showTen()
    {
        for (int i = 0; i < 10; ++i) {
            const Rect &display = pair[i % 2];
            const Rect place{display.x + 37 + 211 * (i / 2), 41 + 101.0 * (i / 2), 613, 377};
            m_windows << showAt(place, "Window " + QByteArray::number(i));
            moveTo(m_windows.last(), place);
        }
    }

    /// Five events, the last of which connects the pair. How many took so long that the displays may
    /// have settled before.
    qsizetype plugAndUnplug(std::mt19937 &random)
    {
        constexpr int events = 5;
        constexpr Milliseconds nearlySettled{900};
        const Displays others[]{{pair[0]}, {pair[0], {1920, 0, 1280, 1024}},
            {pair[0], pair[1], {0, 1080, 1280, 1024}}, {pair[0], {}, {0, 1080, 1280, 1024}}, pair};
        arrange(others[random() % (std::size(others) - 1)]);
        qsizetype slow = 0;
        for (int event = 1; event < events; ++event) {
            const auto start = std::chrono::steady_clock::now();
            arrange(event == events - 1 ? pair : others[random() % std::size(others)]);
            slow += std::chrono::steady_clock::now() - start > nearlySettled;
        }
        return slow;
    }

    QList<Rect> frames()
    {
        QList<Rect> frames;
        for (const xcb_window_t window : std::as_const(m_windows))
            frames << frame(window);
        return frames;
    }

    QList<xcb_window_t> m_windows;
};

} // namespace

TEST_F(LayoutDisplayTests, panesOfMissingDisplaysSaySoAndTheOthersAreFilled)
{
    const Displays three{{0, 0, 1920, 1080}, {1920, 0, 1600, 900}, {0, 1080, 1280, 1024}};
    keep({showOnePerDisplay(keysOf(three))});

    const auto alone = apply(u"Desk"_s);
    EXPECT_EQ(alone.statuses(), "placed displayMissing displayMissing");
    EXPECT_EQ(alone.exitStatus, 1);
    expectLeftHalves({three[0]});

    arrange(pair);
    const auto two = apply(u"Desk"_s);
    EXPECT_EQ(two.statuses(), "placed placed displayMissing");
    expectLeftHalves(pair);

    arrange(three);
    EXPECT_EQ(apply(u"Desk"_s).exitStatus, 0);
    expectLeftHalves(three);
}

TEST_F(LayoutDisplayTests, aScatteredDeskIsRestoredWithItsStacking)
{
    arrange(pair);
    showTen();
    const QList<Rect> before = frames();
    const QList<xcb_window_t> stacking = probe().stacking();
    ASSERT_EQ(capture(u"Ten"_s).panes.size(), m_windows.size());
    for (qsizetype i = 0; i < m_windows.size(); ++i) {
        const xcb_window_t window = m_windows[(i * 7 + 3) % m_windows.size()];
        moveTo(window, {500.0 + 11 * double(i), 300.0 + 13 * double(i), 300, 200});
        pager().activate(window);
        ASSERT_TRUE(waitUntil([&] { return probe().stacking().last() == window; }));
    }

    const auto applied = apply(u"Ten"_s);

    EXPECT_EQ(applied.exitStatus, 0);
    EXPECT_EQ(frames(), before);
    EXPECT_TRUE(waitUntil([&] { return probe().stacking() == stacking; }));
    EXPECT_EQ(probe().activeWindow(), m_windows.last());
}

TEST_F(LayoutDisplayTests, plugsAndUnplugsApplyTheLayoutOnceABurst)
{
    constexpr int bursts = 10;
    arrange(pair);
    WindowLayout layout = showOnePerDisplay(keysOf(pair));
    layout.applyOnConnect = true;
    keep({layout});
    std::mt19937 random(20240607);

    qsizetype before = 0;
    for (int burst = 0; burst < bursts; ++burst) {
        SCOPED_TRACE(testing::Message() << "burst " << burst);
        const qsizetype slowEvents = plugAndUnplug(random);

        EXPECT_TRUE(waitUntil([&] { return applies() > before; }));
        const qsizetype after = settled([this] { return applies(); });
        EXPECT_LE(after, before + 1 + slowEvents);
        expectLeftHalves(pair);
        before = after;
    }
    EXPECT_EQ(settled([this] { return applies(); }, Milliseconds{1500}), before);
}

} // namespace corvane::desktop
