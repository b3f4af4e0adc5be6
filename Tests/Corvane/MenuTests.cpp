#include "AppDelegate.h"
#include "DataFolder.h"
#include "Identity.h"
#include "ModelDesk.h"
#include "StatusMenu.h"

#include <QtWidgets/QApplication>

#include <gmock/gmock.h>

namespace corvane {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAreArray;
using testing::SizeIs;
using testing::UnorderedElementsAreArray;

namespace {

/// A rule is empty.
QStringList lines(const QMenu &menu)
{
    QStringList lines;
    for (const QAction *action : menu.actions())
        lines << action->text();
    return lines;
}

QAction *row(const QMenu &menu, const QString &text)
{
    for (QAction *action : menu.actions()) {
        if (action->text().startsWith(text))
            return action;
    }
    qFatal("no row %s", qPrintable(text));
}

void chooseAll(const QMenu &menu)
{
    for (QAction *action : menu.actions()) {
        if (const auto *rows = action->menu<QMenu *>())
            chooseAll(*rows);
        else
            action->trigger();
    }
}

class MenuTests : public testing::Test
{
protected:
    MenuTests() { model.accessibilityTrusted = true; }

    /// Writes down what the rows ask for.
    MenuTarget target()
    {
        const auto note = [this](const QString &wish) { return [=, this] { asked << wish; }; };
        return {[this](Placement placement) { asked << title(placement); },
            [this](const WindowLayout &shown) { asked << shown.name; }, note(u"capture"_s),
            [this](const QUuid &layout) { asked << u"edit "_s + model.layout(layout)->name; },
            note(u"grant access"_s), note(u"shortcuts"_s),
            [this](const Competitor::Running &rival) { asked << rival.competitor.name; },
            note(u"updates"_s), note(u"about"_s), note(u"settings"_s), note(u"log"_s),
            note(u"website"_s), note(u"tour"_s), note(u"report"_s), note(u"hide"_s),
            note(u"hide others"_s), note(u"show all"_s), note(u"quit"_s), note(u"undo"_s),
            note(u"redo"_s)};
    }

    ModelDesk desk;
    AppModel model = desk.model();
    QStringList asked;
    StatusMenu status{RowForm::drawn, model, target()};
};

} // namespace

TEST_F(MenuTests, everyRowAsksForWhatItSays)
{
    QStringList all{u"about"_s, u"settings"_s, u"settings"_s, u"capture"_s, u"quit"_s, u"tour"_s,
        u"report"_s, u"log"_s, u"website"_s};
    for (const Placement placement : allPlacements())
        all << title(placement);

    status.fill();
    chooseAll(status.menu());

    EXPECT_THAT(asked, UnorderedElementsAreArray(all));
}

TEST_F(MenuTests, problemsStandAboveEverythingElseAndGoWithTheirCause)
{
    model.updateStatus = UpdateStatus{.availability = {}, .lastChecked = {}, .canUpdate = true};
    status.fill();
    const QStringList before = lines(status.menu());
    EXPECT_FALSE(status.needsAttention());
    model.accessibilityTrusted = false;
    model.unregistered = UnregisteredShortcuts{{{Placement::leftHalf}, {}}};
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};

    status.refreshFlags();

    EXPECT_TRUE(status.needsAttention());
    for (QAction *action : status.menu().actions().mid(2, 5))
        action->trigger();
    EXPECT_THAT(
        asked, ElementsAreArray({u"grant access"_s, u"shortcuts"_s, u"SizeUp"_s, u"updates"_s}));

    model.accessibilityTrusted = true;
    model.unregistered = UnregisteredShortcuts();
    model.competitors = QList<Competitor::Running>();
    status.refreshFlags();
    EXPECT_FALSE(status.needsAttention());
    EXPECT_EQ(lines(status.menu()), before);
}

TEST_F(MenuTests, rowsShowTheShortcutsInForceThatWorkInBothForms)
{
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    layout.name = u"R&D"_s;
    layout.shortcut = KeyCombo(18, KeyCombo::control);
    desk.save({layout, ModelDesk::leftHalfLayout({{u"Elsewhere"_s, 10, 10}})});
    model.refreshLayouts();
    model.assign(KeyCombo(0, KeyCombo::option), {Placement::rightHalf});
    model.unregistered = UnregisteredShortcuts{{{Placement::leftHalf}, {}}};
    StatusMenu plain(RowForm::plain, model, target());
    status.fill();
    plain.fill();

    EXPECT_THAT(lines(*row(status.menu(), u"Halves"_s)->menu<QMenu *>()),
        AllOf(Contains(u"Left Half"_s), Contains(u"Right Half, Alt A"_s)));
    EXPECT_THAT(lines(*row(plain.menu(), u"Halves"_s)->menu<QMenu *>()),
        AllOf(Contains(u"Left Half"_s), Contains(u"Right Half\tAlt+A"_s)));
    const QMenu &layouts = *row(status.menu(), u"Layouts"_s)->menu<QMenu *>();
    EXPECT_THAT(lines(layouts),
        ElementsAreArray({u"R&&D, Control 1"_s, u"Work, made for displays that are not connected"_s,
            QString(), u"Edit Layout"_s, u"Capture Current Windows"_s}));
    EXPECT_THAT(
        lines(*row(plain.menu(), u"Layouts"_s)->menu<QMenu *>()), Contains(u"R&&D\tCtrl+1"_s));
    chooseAll(layouts);
    EXPECT_THAT(asked,
        ElementsAreArray({u"R&D"_s, u"Work"_s, u"edit R&D"_s, u"edit Work"_s, u"capture"_s}));
    EXPECT_FALSE(plain.menu().actions().first()->isEnabled());
}

TEST(DelegateTests, whatItsRowsDoIsToldAndTheyTellTheDisplaysAndTheFileOfToday)
{
    ModelDesk desk;
    WindowLayout layout =
        ModelDesk::leftHalfLayout(Screens::signature() << DisplayKey{u"Desk"_s, 1920, 1080});
    layout.applyOnConnect = false;
    const LayoutStore store(dataFolder());
    ASSERT_TRUE(store.save({layout}));
    AppDelegate delegate(AppDelegate::Log::quiet);
    delegate.start();
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate.commands().show({.popMenu = true}), CommandResult{});
    QMenu &menu = *qobject_cast<QMenu *>(QApplication::activePopupWidget());
    const auto first = [&] { return row(menu, u"Layouts"_s)->menu<QMenu *>()->actions().first(); };
    const auto told = [&desk] { return desk.platform.session().notifications.last().body; };

    delegate.performFromMenu(Placement::nextDisplay);
    EXPECT_EQ(told(), u"There is only one display to be on."_s);
    desk.plugSecond();
    desk.settle();
    QCoreApplication::processEvents();
    EXPECT_NE(first()->text(), u"Work"_s) << "rows under the pointer stay what they are";
    menu.hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(first()->text(), u"Work"_s);

    layout.id = QUuid::createUuid();
    ASSERT_TRUE(store.save({layout})); // as by hand, behind the program's back
    first()->trigger();
    EXPECT_EQ(desk.frame(), (Rect{0, 0, 720, 900})) << "the layout that the row named";
    ASSERT_TRUE(store.save({}));
    first()->trigger();
    EXPECT_EQ(told(), u"There is no layout of this name any more."_s);
    delegate.captureLayout();
    EXPECT_TRUE(told().contains(u"as “Layout”. They come back"_s));
    desk.platform.desktop().closeWindow(desk.window);
    delegate.captureLayout();
    EXPECT_EQ(told(), u"No window could be captured."_s);
    EXPECT_THAT(store.loadKeepingUnreadable().layouts, SizeIs(1)) << "nor is it an empty layout";
    desk.platform.session().opensAddresses = false;
    row(menu, u"Corvane Website"_s)->trigger();
    EXPECT_EQ(told(), Identity::website);
}

} // namespace corvane
