#include "ModelDesk.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr Rect leftHalf{0, 0, 720, 900};

class AppModelTests : public testing::Test
{
protected:
    ModelDesk desk;
    SimulatedDesktop &desktop = desk.platform.desktop();
    AppModel model = desk.model();
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
};

} // namespace

TEST_F(AppModelTests, anApplyKeepsTheGapAndIsWrittenDown)
{
    Settings settings;
    settings.gap = 20;
    model.setSettings(settings);

    ASSERT_TRUE(model.apply(layout).isReady());

    EXPECT_EQ(desk.frame(), (Rect{20, 20, 690, 860}));
    EXPECT_THAT(ActivityLog(desk.folder.path()).recent(10),
        ElementsAre(ActivityEntry::placedByLayout(u"Work"_s, u"Editor"_s, u"Letter"_s, u"Laptop"_s,
            {100, 100, 600, 500}, {20, 20, 690, 860}, desk.platform.clock().date())));
}

TEST_F(AppModelTests, aLayoutThatNamesAnApplicationByAnOldNameIsMendedByItsWindow)
{
    const AppRef writer{u"org.example.Writer"_s, u"Writer"_s};
    desktop.install({.bundleIdentifier = writer.bundleID, .name = writer.name});
    desktop.renameWindow(desk.window, writer.bundleID);
    layout.panes << Pane{.app = AppRef{u"org.example.Gone"_s, {}}};
    desk.save({layout});
    model.refreshLayouts();

    const auto apply = model.apply(*model.layout(layout.id));

    EXPECT_EQ(desk.frame(), leftHalf);
    layout.panes.first().app = writer;
    EXPECT_EQ(desk.saved(), QList{layout});
}

TEST_F(AppModelTests, aNewApplyEndsOneThatStillWaits)
{
    desktop.install({.bundleIdentifier = u"org.example.Slow"_s, .opensAfter = std::nullopt});
    WindowLayout slow = ModelDesk::leftHalfLayout(Screens::signature());
    slow.panes[0].app = AppRef{u"org.example.Slow"_s, {}};
    const auto waiting = model.apply(slow);
    desk.settle(1s);
    EXPECT_FALSE(waiting.isReady());

    const auto next = model.apply(layout);
    EXPECT_EQ(desk.frame(), leftHalf);
    desk.settle(1s);

    EXPECT_TRUE(next.isReady() && waiting.isReady());
    EXPECT_EQ(model.lastApply.value()->layout, layout.id) << "the one that gave way is no failure";
}

TEST_F(AppModelTests, afterDisplaysConnectWhatTheDesktopMovedIsPutBackAndWhatAPlacementMovedIsNot)
{
    layout.displays << DisplayKey{u"Desk"_s, 1920, 1080};
    layout.panes << layout.panes.first(); // for which there is no window
    desk.save({layout});
    QList<Rect> undoable;
    model.onLayoutMoved = [&](const AXWindow &, const Rect &previous) { undoable << previous; };
    model.applyOnConnect();
    desk.plugSecond();
    desk.settle();
    desk.settle(1s);
    const auto stray = [this](double x) {
        desktop.moveWindow(desktop.window(desk.window), {x, 200});
        desk.settle(500ms);
        return desk.frame().x;
    };

    EXPECT_EQ(stray(300), 0);
    model.leaveAlone({desk.window, desk.editor});
    EXPECT_EQ(stray(400), 400);

    EXPECT_THAT(undoable, ElementsAre(Rect{100, 100, 600, 500}, Rect{300, 200, 720, 900}));
    EXPECT_THAT(ActivityLog(desk.folder.path()).recent(10), SizeIs(2));
    desk.settle(30s);
    EXPECT_TRUE(model.lastApply.value());
}

TEST_F(AppModelTests, undoAndRedoWalkThroughTheLayoutsAndTheirFile)
{
    const auto names = [this] {
        QStringList all;
        for (const WindowLayout &each : desk.saved())
            all << each.name;
        return all.join(u',');
    };
    const QUuid id = model.newEmptyLayout().id;
    model.renameLayout(id, u" Work "_s);
    EXPECT_TRUE(model.duplicateLayout(id));
    model.deleteLayout(id);

    EXPECT_EQ(names(), u"Work 2");
    EXPECT_EQ(model.undoTitle(), u"Delete Layout");
    model.undo();
    EXPECT_EQ(names(), u"Work,Work 2");
    model.undo();
    model.undo();
    EXPECT_EQ(names(), u"Layout");
    model.redo();
    EXPECT_EQ(names(), u"Work");
    model.revertLayout(id);
    EXPECT_EQ(names(), u"Layout");

    desk.save({layout, layout}); // by hand, behind its back
    model.undo();
    EXPECT_EQ(names(), u"Layout");
}

RC_GTEST_PROP(AppModelPropertyTests, plugsAndUnplugsApplyOncePerBurst, ())
{
    ModelDesk desk;
    SimulatedDesktop &desktop = desk.platform.desktop();
    quint32 second = desk.plugSecond();
    desk.settle(2s);
    AppModel model = desk.model();
    model.applyOnConnect();
    // Written while it runs; others come first that do not ask for it or are for other displays.
    WindowLayout unasked = ModelDesk::leftHalfLayout(Screens::signature());
    unasked.applyOnConnect = false;
    const WindowLayout wanted = ModelDesk::leftHalfLayout(Screens::signature());
    desk.save({unasked, ModelDesk::leftHalfLayout({{u"Elsewhere"_s, 10, 10}}), wanted});
    QList<QUuid> applied;
    QObject::connect(&model, &AppModel::lastApplyChanged, &model,
        [&] { applied << model.lastApply.value()->layout; });
    desktop.makePrimary(second); // neither it nor a panel is news
    desktop.addPanel(desk.laptop, {SimulatedPanel::Edge::right, 30});
    desk.settle(5s);
    RC_ASSERT(applied.isEmpty());

    bool isPlugged = true;
    for (int burst = 0; burst < 5; ++burst) {
        applied.clear();
        const int length = *rc::gen::inRange(1, 8);
        for (int event = 0; event < length; ++event) {
            if (isPlugged)
                desktop.unplug(second);
            else
                second = desk.plugSecond();
            isPlugged = !isPlugged;
            desk.settle(Clock::Duration(*rc::gen::inRange(0, 900)));
        }
        desk.settle(3s);
        RC_ASSERT(applied == (isPlugged ? QList{wanted.id} : QList<QUuid>()));
    }
}

} // namespace corvane
