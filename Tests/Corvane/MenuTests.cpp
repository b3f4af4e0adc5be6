#include "AppDelegate.h"
#include "DataFolder.h"
#include "Identity.h"
#include "MainMenu.h"
#include "ModelDesk.h"
#include "StatusIcon.h"
#include "StatusMenu.h"

#include <QtCore/QDir>
#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

namespace {

/// A menu's rows as they are read out; a rule is empty.
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

QMenu &submenu(const QMenu &menu, const QString &title)
{
    return *row(menu, title)->menu<QMenu *>();
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

/// A status menu on a simulated desk that writes down what its rows ask for.
class MenuTests : public testing::Test
{
protected:
    MenuTests() { model.accessibilityTrusted = true; }

    StatusMenu statusMenu(RowForm form = RowForm::drawn) { return {form, model, target()}; }

    MenuTarget target()
    {
        const auto note = [this](const QString &wish) { return [=, this] { asked << wish; }; };
        return {.perform = [this](Placement placement) { asked << title(placement); },
            .applyLayout = [this](const WindowLayout &shown) { asked << shown.name; },
            .captureLayout = note(u"capture"_s),
            .grantAccess = note(u"grant access"_s),
            .openShortcuts = note(u"shortcuts"_s),
            .quitCompetitor =
                [this](const Competitor::Running &running) {
                    asked << u"quit "_s + running.competitor.name;
                },
            .openUpdates = note(u"updates"_s),
            .openAbout = note(u"about"_s),
            .openSettings = note(u"settings"_s),
            .openTremorLog = note(u"log"_s),
            .openWebsite = note(u"website"_s),
            .showTour = note(u"tour"_s),
            .hide = note(u"hide"_s),
            .hideOthers = note(u"hide others"_s),
            .showAll = note(u"show all"_s),
            .quit = note(u"quit"_s),
            .undo = note(u"undo"_s),
            .redo = note(u"redo"_s)};
    }

    ModelDesk desk;
    AppModel model = desk.model();
    QStringList asked;
};

/// The whole program on a simulated desk, with a damaged settings file.
class DelegateTests : public testing::Test
{
protected:
    DelegateTests()
    {
        QDir().mkpath(dataFolder());
        QFile settings(dataFolder() + u"/settings.json"_s);
        EXPECT_TRUE(settings.open(QFile::WriteOnly) && settings.write("{") == 1);
        settings.close();
        delegate.emplace(AppDelegate::Log::quiet);
        delegate->start();
    }

    QMenu &openMenu()
    {
        QCoreApplication::processEvents();
        EXPECT_EQ(delegate->commands().show({.popMenu = true}), CommandResult{});
        return *qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    /// What the notification of this kind says.
    QString told(const QString &kind)
    {
        const auto &all = desk.platform.session().notifications;
        const auto found = std::ranges::find(all, kind, &SimulatedSession::Notification::id);
        return found == all.end() ? QString() : found->title + u": "_s + found->body;
    }

    ModelDesk desk;
    std::optional<AppDelegate> delegate;
};

} // namespace

TEST_F(MenuTests, everyRowAsksForWhatItSays)
{
    QStringList all{u"about"_s, u"settings"_s, u"capture"_s, u"quit"_s};
    for (const Placement placement : allPlacements())
        all << title(placement);
    StatusMenu status = statusMenu();
    status.fill();
    MenuRows rows(RowForm::drawn);
    const auto bar = MainMenu::build(rows, target(), model);

    chooseAll(status.menu());
    EXPECT_THAT(asked,
        UnorderedElementsAreArray(
            all + QStringList{u"settings"_s, u"tour"_s, u"log"_s, u"website"_s}));
    asked.clear();
    for (const QAction *menu : bar->actions())
        chooseAll(*menu->menu<const QMenu *>());
    EXPECT_THAT(asked,
        UnorderedElementsAreArray(
            all + QStringList{u"hide"_s, u"hide others"_s, u"show all"_s, u"undo"_s, u"redo"_s}));
}

TEST_F(MenuTests, problemsStandAboveEverythingElseAndGoWithTheirCause)
{
    model.updateStatus = UpdateStatus{.availability = {}, .lastChecked = {}, .canUpdate = true};
    StatusMenu status = statusMenu();
    status.fill();
    const QStringList before = lines(status.menu());
    EXPECT_FALSE(status.needsAttention());
    model.accessibilityTrusted = false;
    model.unregistered = QSet<ShortcutOwner>{{Placement::leftHalf}};
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};

    status.refreshFlags();

    EXPECT_TRUE(status.needsAttention());
    EXPECT_THAT(lines(status.menu()).mid(2, 6),
        ElementsAreArray({u"Accessibility Is Off: Open Accessibility Settings"_s,
            u"A Shortcut Is Not Working: Open Shortcuts, Left Half"_s,
            u"SizeUp Is Also Running: Quit It"_s, QString(), u"Check for Updates"_s, QString()}));
    for (QAction *action : status.menu().actions().mid(2, 5))
        action->trigger();
    EXPECT_THAT(asked,
        ElementsAreArray({u"grant access"_s, u"shortcuts"_s, u"quit SizeUp"_s, u"updates"_s}));

    model.accessibilityTrusted = true;
    model.unregistered = QSet<ShortcutOwner>();
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
    model.unregistered = QSet<ShortcutOwner>{{Placement::leftHalf}};
    StatusMenu drawn = statusMenu();
    StatusMenu plain = statusMenu(RowForm::plain);
    drawn.fill();
    plain.fill();

    EXPECT_THAT(lines(submenu(drawn.menu(), u"Halves"_s)),
        AllOf(Contains(u"Left Half"_s), Contains(u"Right Half, Alt A"_s)));
    EXPECT_THAT(lines(submenu(plain.menu(), u"Halves"_s)),
        AllOf(Contains(u"Left Half"_s), Contains(u"Right Half\tAlt+A"_s)));
    const QMenu &layouts = submenu(drawn.menu(), u"Layouts"_s);
    EXPECT_THAT(lines(layouts),
        ElementsAreArray({u"R&&D, Control 1"_s, u"Work, made for displays that are not connected"_s,
            QString(), u"Capture Current Windows"_s}));
    EXPECT_THAT(lines(submenu(plain.menu(), u"Layouts"_s)), Contains(u"R&&D\tCtrl+1"_s));
    chooseAll(layouts);
    EXPECT_THAT(asked, ElementsAreArray({u"R&D"_s, u"Work"_s, u"capture"_s}));
    ASSERT_EQ(plain.menu().actions().size(), drawn.menu().actions().size());
    EXPECT_FALSE(plain.menu().actions().first()->isEnabled());
    for (const QAction *action : plain.menu().actions().mid(1)) {
        const QImage icon = action->icon().pixmap(16).toImage();
        const uchar *const end = icon.constBits() + icon.sizeInBytes();
        const bool isDrawn = std::find_if(icon.constBits(), end, std::identity()) != end;
        EXPECT_NE(isDrawn, action->isSeparator()) << qPrintable(action->text());
    }
}

TEST_F(MenuTests, assistiveTechnologyAndTypingFindEveryRow)
{
    StatusMenu status = statusMenu();
    status.fill();
    QMenu &menu = status.menu();
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&menu);
    QStringList names;
    for (int i = 0; i < accessible->childCount(); ++i)
        names << accessible->child(i)->text(QAccessible::Name);
    EXPECT_EQ(names, lines(menu));
    EXPECT_THAT(names,
        AllOf(Contains(u"Corvane, Ready"_s), Contains(u"Snap Back, Control Alt Super Slash"_s)));
    for (const QAction *action : menu.actions())
        EXPECT_NE(action->text().isEmpty(), !action->isSeparator());

    QStringList reached;
    for (int press = 0; press < 4; ++press) {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, u"c"_s);
        QCoreApplication::sendEvent(&menu, &event);
        reached << menu.activeAction()->text();
    }
    EXPECT_THAT(reached,
        ElementsAreArray({u"Capture Current Windows"_s, u"Corvane Tour"_s, u"Corvane Website"_s,
            u"Capture Current Windows"_s}));
}

TEST_F(MenuTests, editingGoesToTheTextFieldThatHasTheFocus)
{
    MenuRows rows(RowForm::drawn);
    QWidget window;
    const auto bar = MainMenu::build(rows, target(), model);
    QLineEdit field(u"text"_s, &window);
    const QMenu &edit = *bar->actions().at(1)->menu<QMenu *>();
    window.show();
    QApplication::setActiveWindow(&window);
    field.setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &field);

    row(edit, u"Select All"_s)->trigger();
    row(edit, u"Delete"_s)->trigger();
    EXPECT_EQ(field.text(), QString());
    row(edit, u"Undo"_s)->trigger();
    EXPECT_EQ(field.text(), u"text"_s);
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(DelegateTests, aRefusalAndACaptureAreSentencesThatLeaveProblemsStanding)
{
    delegate->performFromMenu(Placement::nextDisplay);
    delegate->captureLayout();

    EXPECT_EQ(told(u"placement"_s), u"Next Display: There is only one display to be on.");
    EXPECT_THAT(told(u"capture"_s).toStdString(),
        HasSubstr("Captured 1 window(s) on 1 display(s) as “Layout”. They come back"));
    EXPECT_THAT(told(u"problem-unreadable-settings.json"_s).toStdString(),
        HasSubstr("could not read some of your settings"));
    const QString icon = desk.folder.filePath(u"icon.png"_s);
    EXPECT_TRUE(StatusIcon::render(icon) && !QImage(icon).isNull());
    EXPECT_TRUE(StatusIcon::render(u"/nowhere/icon.png"_s).error().contains(u"/nowhere"_s));
}

TEST_F(DelegateTests, layoutRowsTellTheDisplaysAndTheFileOfToday)
{
    WindowLayout layout =
        ModelDesk::leftHalfLayout(Screens::signature() << DisplayKey{u"Desk"_s, 1920, 1080});
    layout.applyOnConnect = false;
    const LayoutStore store(dataFolder());
    ASSERT_TRUE(store.save({layout})); // as by hand, behind the program's back
    QMenu &menu = openMenu();
    const auto first = [&menu] { return submenu(menu, u"Layouts"_s).actions().first(); };
    const QString away = u"Work, made for displays that are not connected"_s;

    EXPECT_EQ(first()->text(), away);
    desk.plugSecond();
    desk.settle();
    QCoreApplication::processEvents();
    EXPECT_EQ(first()->text(), away) << "rows under the pointer stay what they are";
    menu.hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(first()->text(), u"Work"_s);

    layout.id = QUuid::createUuid();
    ASSERT_TRUE(store.save({layout, layout}));
    first()->trigger();
    EXPECT_EQ(told(u"layout"_s), QString());
    EXPECT_EQ(desk.frame(), (Rect{0, 0, 720, 900})) << "the layout that the row named";
    ASSERT_TRUE(store.save({}));
    first()->trigger();
    EXPECT_EQ(
        told(u"layout"_s), u"“Work” was not applied: There is no layout of this name any more.");
}

TEST_F(DelegateTests, aLinkThatNothingOpensIsShownInstead)
{
    desk.platform.session().opensAddresses = false;
    desk.platform.desktop().loseTrust();
    desk.settle();
    const QMenu &menu = openMenu();

    row(menu, u"Corvane Website"_s)->trigger();
    EXPECT_EQ(told(u"link"_s), u"No program opened the link: "_s + Identity::website);
    row(menu, u"Accessibility Is Off"_s)->trigger();
    EXPECT_EQ(told(u"link"_s), u"No program opened the link: help:window-access");
}

} // namespace corvane
