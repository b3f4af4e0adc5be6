#include "ModelDesk.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr Rect leftHalf{0, 0, 720, 900};

class AppModelTests : public testing::Test
{
protected:
    SimulatedDesktop &desktop() { return desk.platform.desktop(); }

    void save(const QList<WindowLayout> &layouts)
    {
        ASSERT_TRUE(LayoutStore(desk.folder.path()).save(layouts));
    }

    ModelDesk desk;
};

} // namespace

TEST_F(AppModelTests, aCaptureIsSavedUnderANameOfItsOwn)
{
    AppModel model = desk.model();

    const auto first = model.captureCurrentWindows(u"Work"_s);
    const auto second = model.captureCurrentWindows(u"Work"_s);

    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->name, u"Work");
    EXPECT_EQ(second->name, u"Work 2");
    EXPECT_THAT(first->panes, SizeIs(1));
    EXPECT_EQ(LayoutStore(desk.folder.path()).loadKeepingUnreadable().layouts, model.layouts());
    EXPECT_EQ(model.layout(u"Work 2"_s), *second);
    EXPECT_EQ(model.layout(first->id.toString()), *first);
    EXPECT_EQ(model.layout(u"work"_s), std::nullopt);
}

TEST_F(AppModelTests, aCaptureThatCannotBeSavedStaysForTheRun)
{
    AppModel model = desk.model();
    ASSERT_TRUE(QDir(desk.folder.path()).mkdir(u"layouts.json"_s));

    const auto captured = model.captureCurrentWindows(u"Work"_s);

    ASSERT_FALSE(captured);
    EXPECT_THAT(captured.error().toStdString(), HasSubstr("Corvane could not save to "));
    EXPECT_THAT(captured.error().toStdString(), HasSubstr(" Changes work until Corvane quits."));
    EXPECT_THAT(model.layouts(), SizeIs(1));
}

TEST_F(AppModelTests, layoutsEditedByHandAreReadAgainInsteadOfLost)
{
    AppModel model = desk.model();
    int changes = 0;
    QObject::connect(&model, &AppModel::layoutsChanged, &model, [&] { ++changes; });
    WindowLayout written = ModelDesk::leftHalfLayout(Screens::signature());
    written.name = u"By hand"_s;
    save({written});

    model.refreshLayouts();
    model.refreshLayouts();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(model.layout(u"By hand"_s), written);
    save({});
    ASSERT_TRUE(model.captureCurrentWindows(u"Work"_s));

    ASSERT_THAT(model.layouts(), SizeIs(1));
    EXPECT_EQ(LayoutStore(desk.folder.path()).loadKeepingUnreadable().layouts, model.layouts());
}

TEST_F(AppModelTests, anEditChangesWhatTheFileHoldsByNowAndATouchedFileNothing)
{
    AppModel model = desk.model();
    WindowLayout byHand = model.newEmptyLayout();
    byHand.panes.clear();
    save({byHand});

    model.renameLayout(byHand.id, u"Renamed"_s);
    byHand.name = u"Renamed"_s;
    EXPECT_THAT(
        LayoutStore(desk.folder.path()).loadKeepingUnreadable().layouts, ElementsAre(byHand));
    byHand.applyOnConnect = true;
    save({byHand});
    byHand.shortcut = KeyCombo(50, KeyCombo::option);
    model.assign(byHand.shortcut, {byHand.id});
    EXPECT_THAT(
        LayoutStore(desk.folder.path()).loadKeepingUnreadable().layouts, ElementsAre(byHand));

    QFile file(LayoutStore(desk.folder.path()).url().toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(
        QDateTime::currentDateTime().addDays(1), QFileDevice::FileModificationTime));
    model.refreshLayouts();
    EXPECT_EQ(model.undoTitle(), u"Change Shortcut"_s);
}

TEST_F(AppModelTests, anApplyIsWrittenDownAndTold)
{
    AppModel model = desk.model();
    const WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    int told = 0;
    QObject::connect(&model, &AppModel::lastApplyChanged, &model, [&] { ++told; });

    const auto apply = model.apply(layout);

    ASSERT_TRUE(apply.isReady());
    EXPECT_EQ(desk.frame(), leftHalf);
    EXPECT_EQ(told, 1);
    ASSERT_TRUE(model.lastApply.value());
    EXPECT_EQ(model.lastApply.value()->layout, layout.id);
    const QList<ActivityEntry> history = ActivityLog(desk.folder.path()).recent(10);
    ASSERT_THAT(history, SizeIs(1));
    EXPECT_EQ(history.first().action, ActivityEntry::layoutAction);
    EXPECT_EQ(history.first().title, u"Work");
    EXPECT_EQ(history.first().window, u"Letter");
    EXPECT_EQ(history.first().display, u"Laptop");
    EXPECT_THAT(history.first().from, ElementsAre(100, 100, 600, 500));
}

TEST_F(AppModelTests, aLayoutThatNamesAnApplicationByAnOldNameIsMendedByItsWindow)
{
    const AppRef writer{u"org.example.Writer"_s, u"Writer"_s};
    for (const QString &id : {writer.bundleID, u"org.example.Sheets"_s})
        desktop().install({.bundleIdentifier = id, .name = u"Writer"_s});
    const WindowElement other = desktop().openWindow(desk.editor, {});
    desktop().renameWindow(desk.window, writer.bundleID);
    desktop().renameWindow(other, u"org.example.Sheets"_s);
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    const AppRef old = *layout.panes.first().app;
    layout.panes << Pane{.app = AppRef{u"org.example.Gone"_s, {}}} << Pane{.app = old};
    layout.panes.first().titleContains = u"letter"_s;
    save({layout});
    AppModel model = desk.model();

    const auto apply = model.apply(*model.layout(layout.id));

    EXPECT_EQ(desk.frame(), leftHalf);
    layout.panes.first().app = writer;
    EXPECT_EQ(LayoutStore(desk.folder.path()).loadKeepingUnreadable().layouts, QList{layout});
}

TEST_F(AppModelTests, theGapOfTheSettingsStandsBetweenPanes)
{
    Settings settings;
    settings.gap = 20;
    ASSERT_TRUE(SettingsStore(desk.folder.path()).save(settings));
    AppModel model = desk.model();

    const auto apply = model.apply(ModelDesk::leftHalfLayout(Screens::signature()));

    EXPECT_EQ(desk.frame(), (Rect{20, 20, 690, 860}));
}

TEST_F(AppModelTests, aNewApplyEndsOneThatStillWaits)
{
    AppModel model = desk.model();
    desktop().install(
        {.bundleIdentifier = u"org.example.Slow"_s, .name = u"Slow"_s, .opensAfter = std::nullopt});
    WindowLayout slow = ModelDesk::leftHalfLayout(Screens::signature());
    slow.panes[0].app = AppRef{u"org.example.Slow"_s, u"Slow"_s};
    int told = 0;
    QObject::connect(&model, &AppModel::lastApplyChanged, &model, [&] { ++told; });

    const auto waiting = model.apply(slow);
    desk.settle(1s);
    EXPECT_FALSE(waiting.isReady());
    const auto next = model.apply(ModelDesk::leftHalfLayout(Screens::signature()));
    EXPECT_EQ(desk.frame(), leftHalf);
    desk.settle(1s);

    EXPECT_TRUE(next.isReady());
    EXPECT_TRUE(waiting.isReady());
    EXPECT_EQ(model.lastApply.value()->results.first().pane.app->name, u"Editor");
    EXPECT_EQ(told, 1) << "the one that gave way has failed at nothing";
}

TEST_F(AppModelTests, aLayoutIsAppliedOnceItsDisplaysHaveConnected)
{
    const quint32 second = desk.plugSecond();
    desk.settle(2s);
    const QList<DisplayKey> both = Screens::signature();
    desktop().unplug(second);
    desk.settle(2s);
    WindowLayout other = ModelDesk::leftHalfLayout(Screens::signature());
    other.applyOnConnect = false;
    save({other, ModelDesk::leftHalfLayout(both)});
    AppModel model = desk.model();
    model.applyOnConnect();
    QList<QUuid> applied;
    QObject::connect(&model, &AppModel::lastApplyChanged, &model,
        [&] { applied << model.lastApply.value()->layout; });

    desk.settle(5s);
    EXPECT_THAT(applied, IsEmpty()) << "they were connected before";
    desk.plugSecond();
    desk.settle();
    desk.settle(5s);

    EXPECT_THAT(applied, ElementsAre(model.layouts()[1].id));
    EXPECT_EQ(desk.frame(), leftHalf);
}

TEST_F(AppModelTests, aLayoutWrittenByHandWhileTheProgramRunsIsAppliedWhenItsDisplaysConnect)
{
    AppModel model = desk.model();
    model.applyOnConnect();
    QList<DisplayKey> both = Screens::signature();
    both << DisplayKey{u"Desk"_s, 1920, 1080};
    save({ModelDesk::leftHalfLayout(both)});

    desk.plugSecond();
    desk.settle();
    desk.settle(5s);

    EXPECT_EQ(desk.frame(), leftHalf);
}

TEST_F(AppModelTests, afterDisplaysConnectWhatTheDesktopMovedIsPutBackAndWhatTheUserMovedIsNot)
{
    const struct {
        const char *name;
        Clock::Duration after; ///< the pass
        std::function<void(ModelDesk &, AppModel &)> meanwhile;
        bool isPutBack;
    } examples[]{
        {"the desktop", 300ms, [](ModelDesk &, AppModel &) {}, true},
        {"a hand", 300ms,
            [](ModelDesk &each, AppModel &) { each.platform.session().isButtonDown = true; },
            false},
        {"a placement", 300ms,
            [](ModelDesk &each, AppModel &model) {
                model.leaveAlone({each.window, each.editor});
            },
            false},
        {"later, while a pane waits", 3s, [](ModelDesk &, AppModel &) {}, false},
    };

    for (const auto &[name, after, meanwhile, isPutBack] : examples) {
        SCOPED_TRACE(name);
        ModelDesk each;
        const QList<DisplayKey> both = Screens::signature() << DisplayKey{u"Desk"_s, 1920, 1080};
        WindowLayout layout = ModelDesk::leftHalfLayout(both);
        layout.panes << layout.panes.first(); // for which there is no window
        ASSERT_TRUE(LayoutStore(each.folder.path()).save({layout}));
        AppModel model = each.model();
        QList<Rect> undoable;
        model.onLayoutMoved = [&](const AXWindow &, const Rect &previous) { undoable << previous; };
        model.applyOnConnect();
        each.plugSecond();
        each.settle();
        each.settle(1s);
        ASSERT_EQ(each.frame(), leftHalf);

        each.settle(after);
        meanwhile(each, model);
        SimulatedDesktop &moved = each.platform.desktop();
        moved.moveWindow(moved.window(each.window), {300, 200});
        each.settle(500ms);

        const Rect strayed{300, 200, 720, 900};
        EXPECT_EQ(each.frame(), isPutBack ? leftHalf : strayed);
        EXPECT_EQ(undoable.last() == strayed, isPutBack);
        EXPECT_THAT(ActivityLog(each.folder.path()).recent(10), SizeIs(isPutBack ? 2 : 1));
        each.settle(30s);
        EXPECT_TRUE(model.lastApply.value());
    }
}

RC_GTEST_PROP(AppModelPropertyTests, plugsAndUnplugsApplyOncePerBurst, ())
{
    ModelDesk desk;
    SimulatedDesktop &desktop = desk.platform.desktop();
    quint32 second = desk.plugSecond();
    desk.settle(2s);
    const QList<DisplayKey> both = Screens::signature();
    const QList<WindowLayout> layouts{ModelDesk::leftHalfLayout(both)};
    RC_ASSERT(LayoutStore(desk.folder.path()).save(layouts).has_value());
    AppModel model = desk.model();
    model.applyOnConnect();
    int applied = 0;
    QObject::connect(&model, &AppModel::lastApplyChanged, &model, [&] { ++applied; });

    bool isPlugged = true;
    int events = 0;
    while (events < 20) { // a hundred times
        const int before = applied;
        const int length = *rc::gen::inRange(1, 8);
        for (int event = 0; event < length; ++event, ++events) {
            if (isPlugged)
                desktop.unplug(second);
            else
                second = desk.plugSecond();
            isPlugged = !isPlugged;
            desk.settle(Clock::Duration(*rc::gen::inRange(0, 900)));
        }
        desk.settle(3s);
        RC_ASSERT(applied - before == (isPlugged ? 1 : 0));
        RC_ASSERT(!isPlugged || desk.frame() == leftHalf);
    }
}

} // namespace corvane
