#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class HungProgramTests : public LiveTests
{
protected:
    // One second for the outcome, the rest for starting the command that asks for it.
    static constexpr Milliseconds bound{2500};

    /// Has the program read the displays again for the next question.
    void outdateDisplays()
    {
        XConnection &other = desktop().connection();
        const char *current = "_NET_CURRENT_DESKTOP";
        other.setNumbers(other.root(), current, "CARDINAL", other.numbers(other.root(), current));
        other.sync();
    }
};

struct Stall {
    const char *name;
    std::function<void()> begin;
    std::function<void()> end;
    QString layoutLine; ///< that a layout during it is reported with
};

} // namespace

TEST_F(HungProgramTests, whateverIsStoppedCostsASecondAndAllWorksAgainAfterwards)
{
    const Stall stalls[]{{"the application", [&] { client().suspend(); },
                             [&] { client().resume(); }, u"placed at"_s},
        {"the window manager", [&] { desk().manager->suspend(); },
            [&] { desk().manager->resume(); }, u"did not answer"_s},
        {"the server", [&] { desktop().server().suspend(); }, [&] { desktop().server().resume(); },
            u"placed at"_s}};
    const QStringList layout{u"--apply-layout"_s, u"Work"_s};
    ASSERT_TRUE(desktop().displays().arrange({standardDisplay, {1920, 0, 1280, 1024}}));
    const xcb_window_t window = showFocusedOn(standardDisplay);
    ASSERT_EQ(corvane().ask({u"--capture"_s, u"Work"_s}).exitStatus, 0);
    for (const auto &[name, begin, end, layoutLine] : stalls) {
        SCOPED_TRACE(name);
        for (const auto &placement : {u"leftHalf"_s, u"nextDisplay"_s}) {
            outdateDisplays();
            begin();
            const auto answer = corvane().place(placement);
            end();

            EXPECT_TRUE(answer.exitStatus == 0 || answer.exitStatus == 1);
            EXPECT_LT(answer.duration, bound);
        }
        // What the window manager was asked for meanwhile, it does first.
        EXPECT_EQ(corvane().ask(layout).exitStatus, 0);
        const Rect quarter = frameOf(region(u"bottomRight"), standardDisplay);
        press(region(u"bottomRight").stroke);
        EXPECT_EQ(reached(window, quarter), quarter);
        const qsizetype seen = corvane().log().size();
        begin();
        static_cast<void>(corvane().ask(layout, bound));
        end();
        EXPECT_TRUE(corvane().waitForLog(layoutLine, seen));
        EXPECT_EQ(corvane().ask(layout).exitStatus, 0);
        EXPECT_TRUE(moved(corvane().place(u"nextDisplay"_s)));
        EXPECT_EQ(corvane().ask(layout).exitStatus, 0);
    }
}

} // namespace corvane::desktop
