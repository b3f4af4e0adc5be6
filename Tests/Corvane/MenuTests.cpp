#include "MainMenu.h"
#include "ModelDesk.h"
#include "StatusIcon.h"
#include "StatusMenu.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAreArray;
using testing::Not;

namespace {

const QString rule = u"-"_s;

QStringList titles(const QMenu &menu)
{
    QStringList titles;
    for (const QAction *action : menu.actions()) {
        titles << (action->isSeparator()  ? rule
                : MenuHeader::of(*action) ? u"header"_s
                                          : MenuRow::of(*action)->title);
    }
    return titles;
}

bool isEmpty(const QImage &image)
{
    QImage empty(image.size(), image.format());
    empty.fill(Qt::transparent);
    return image == empty;
}

QStringList texts(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

/// A status menu on a simulated desk that writes down what its rows ask for.
class MenuTests : public testing::Test
{
protected:
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

    WindowLayout addLayout(const QString &name, const QList<DisplayKey> &displays)
    {
        WindowLayout layout = ModelDesk::leftHalfLayout(displays);
        layout.name = name;
        layout.shortcut = KeyCombo(18, KeyCombo::control);
        const QList<WindowLayout> layouts = model.layouts() + QList<WindowLayout>{layout};
        EXPECT_TRUE(LayoutStore(desk.folder.path()).save(layouts));
        model.refreshLayouts();
        return layout;
    }

    static QAction *row(const QMenu &menu, const QString &text)
    {
        for (QAction *action : menu.actions()) {
            if (action->text().startsWith(text))
                return action;
        }
        ADD_FAILURE() << qPrintable(text);
        return nullptr;
    }
    static QMenu &submenu(const QMenu &menu, const QString &title)
    {
        return *row(menu, title)->menu<QMenu *>();
    }

    ModelDesk desk;
    AppModel model = desk.model();
    QStringList asked;
};

} // namespace

TEST_F(MenuTests, rowsStandInTheirOrder)
{
    model.accessibilityTrusted = true;
    StatusMenu status = statusMenu();
    status.fill();

    EXPECT_THAT(titles(status.menu()),
        ElementsAreArray({u"header"_s, rule, u"About Corvane"_s, rule, u"Settings"_s,
            u"Capture Current Windows"_s, u"Halves"_s, u"Quarters"_s, u"Thirds"_s, u"Sixths"_s,
            u"Screen"_s, u"Displays"_s, u"Snap Back"_s, u"Original Orientation"_s, rule,
            u"Corvane Tour"_s, u"Tremor Log"_s, u"Corvane Website"_s, rule, u"Quit Corvane"_s}));
    EXPECT_THAT(titles(submenu(status.menu(), u"Screen"_s)),
        ElementsAreArray(
            {u"Maximize"_s, u"Almost Maximize"_s, u"Center"_s, rule, u"Larger"_s, u"Smaller"_s}));
    EXPECT_FALSE(status.needsAttention());
}

TEST_F(MenuTests, problemsStandAboveEverythingElseAndGoWithTheirCause)
{
    model.accessibilityTrusted = true;
    model.updateStatus = UpdateStatus{.availability = {}, .lastChecked = {}, .canUpdate = true};
    StatusMenu status = statusMenu();
    status.fill();
    const QStringList before = titles(status.menu());
    model.accessibilityTrusted = false;
    model.unregistered = QSet<ShortcutOwner>{{Placement::leftHalf}};
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};

    status.refreshFlags();

    EXPECT_TRUE(status.needsAttention());
    EXPECT_THAT(titles(status.menu()).mid(0, 8),
        ElementsAreArray({u"header"_s, rule, u"Accessibility Is Off: Open Accessibility Settings"_s,
            u"A Shortcut Is Not Working: Open Shortcuts"_s, u"SizeUp Is Also Running: Quit It"_s,
            rule, u"Check for Updates"_s, rule}));
    for (const QAction *action : status.menu().actions().mid(2, 5)) {
        if (!action->isSeparator())
            const_cast<QAction *>(action)->trigger();
    }
    EXPECT_THAT(asked,
        ElementsAreArray({u"grant access"_s, u"shortcuts"_s, u"quit SizeUp"_s, u"updates"_s}));

    model.accessibilityTrusted = true;
    model.unregistered = QSet<ShortcutOwner>();
    model.competitors = QList<Competitor::Running>();
    status.refreshFlags();
    EXPECT_EQ(titles(status.menu()), before);
}

TEST_F(MenuTests, layoutsTellWhetherTheirDisplaysAreConnectedAndCanAllBeChosen)
{
    addLayout(u"Here & Now"_s, Screens::signature());
    addLayout(u"Away"_s, {{u"Elsewhere"_s, 10, 10}});
    StatusMenu status = statusMenu();
    status.fill();
    QMenu &layouts = submenu(status.menu(), u"Layouts"_s);
    const auto symbol = [&](int index) {
        return MenuRow::of(*layouts.actions().at(index))->symbol;
    };

    EXPECT_THAT(titles(layouts),
        ElementsAreArray({u"Here & Now"_s, u"Away"_s, rule, u"Capture Current Windows"_s}));
    EXPECT_EQ(symbol(0), u"display"_s);
    EXPECT_EQ(symbol(1), u"display.trianglebadge.exclamationmark"_s);
    EXPECT_THAT(texts(status.menu()), Not(Contains(u"Capture Current Windows"_s)));
    for (QAction *action : layouts.actions())
        action->trigger();
    EXPECT_THAT(asked, ElementsAreArray({u"Here & Now"_s, u"Away"_s, u"capture"_s}));
}

TEST_F(MenuTests, onlyShortcutsThatWorkAreShown)
{
    StatusMenu status = statusMenu();
    model.unregistered = QSet<ShortcutOwner>{{Placement::leftHalf}};
    status.fill();

    EXPECT_THAT(texts(submenu(status.menu(), u"Halves"_s)),
        AllOf(Contains(u"Left Half"_s), Contains(u"Right Half, Control Alt Super Right Arrow"_s)));
}

TEST_F(MenuTests, everyPlacementIsInBothMenusAndIsPerformed)
{
    StatusMenu status = statusMenu();
    status.fill();
    MenuRows rows(RowForm::drawn);
    const auto bar = MainMenu::build(rows, target(), model);
    QStringList all;
    for (const Placement placement : allPlacements())
        all << title(placement);

    for (const QMenu *menu :
        {const_cast<const QMenu *>(&status.menu()), bar->actions().at(2)->menu<const QMenu *>()}) {
        asked.clear();
        for (QAction *action : menu->actions()) {
            const auto *group = action->menu<QMenu *>();
            for (QAction *placement : group ? group->actions() : QList<QAction *>{action}) {
                if (all.contains(placement->text().section(u',', 0, 0)))
                    placement->trigger();
            }
        }
        EXPECT_THAT(asked, testing::UnorderedElementsAreArray(all));
    }
}

TEST_F(MenuTests, assistiveTechnologyFindsANameForEveryRow)
{
    StatusMenu status = statusMenu();
    status.fill();
    QAccessibleInterface *menu = QAccessible::queryAccessibleInterface(&status.menu());
    ASSERT_EQ(menu->childCount(), status.menu().actions().size());
    QStringList names;
    for (int i = 0; i < menu->childCount(); ++i)
        names << menu->child(i)->text(QAccessible::Name);

    EXPECT_THAT(names,
        AllOf(Contains(u"Corvane, Ready"_s), Contains(u"Snap Back, Control Alt Super Slash"_s),
            Contains(u"Halves"_s)));
    for (qsizetype i = 0; i < names.size(); ++i)
        EXPECT_NE(names[i].isEmpty(), !status.menu().actions().at(i)->isSeparator()) << i;
}

TEST_F(MenuTests, thePlainFormHasTheSameRowsInWords)
{
    addLayout(u"R&D"_s, Screens::signature());
    StatusMenu drawn = statusMenu();
    StatusMenu plain = statusMenu(RowForm::plain);
    drawn.fill();
    plain.fill();

    EXPECT_EQ(titles(plain.menu()), titles(drawn.menu()));
    EXPECT_FALSE(plain.menu().actions().first()->isEnabled());
    for (const QAction *action : plain.menu().actions().mid(1)) {
        const QImage icon = action->icon().pixmap(16).toImage();
        EXPECT_NE(isEmpty(icon), !action->isSeparator()) << qPrintable(action->text());
    }
    EXPECT_THAT(
        texts(submenu(plain.menu(), u"Halves"_s)), Contains(u"Left Half\tCtrl+Alt+Super+Left"_s));
    EXPECT_THAT(texts(submenu(plain.menu(), u"Layouts"_s)), Contains(u"R&&D\tCtrl+1"_s));
}

TEST_F(MenuTests, typingGoesToTheRowThatBeginsSo)
{
    StatusMenu status = statusMenu();
    status.fill();
    QMenu &menu = status.menu();
    const auto type = [&](const QString &text) {
        for (const QChar letter : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
            QCoreApplication::sendEvent(&menu, &press);
        }
        return MenuRow::of(*menu.activeAction())->title;
    };

    EXPECT_EQ(type(u"c"_s), u"Capture Current Windows"_s);
    EXPECT_EQ(type(u"c"_s), u"Corvane Tour"_s);
    EXPECT_EQ(type(u"c"_s), u"Corvane Website"_s);
    EXPECT_EQ(type(u"c"_s), u"Capture Current Windows"_s);
}

TEST_F(MenuTests, theMainMenuStandsInItsOrder)
{
    addLayout(u"Work"_s, Screens::signature());
    MenuRows rows(RowForm::drawn);
    const auto bar = MainMenu::build(rows, target(), model);
    const auto rowsOf = [&](int index) {
        return titles(*bar->actions().at(index)->menu<QMenu *>());
    };

    ASSERT_EQ(bar->actions().size(), 4);
    EXPECT_THAT(rowsOf(0),
        ElementsAreArray({u"About Corvane"_s, rule, u"Settings"_s, rule, u"Hide Corvane"_s,
            u"Hide Others"_s, u"Show All"_s, rule, u"Quit Corvane"_s}));
    EXPECT_THAT(rowsOf(1),
        ElementsAreArray({u"Undo"_s, u"Redo"_s, rule, u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Delete"_s,
            rule, u"Select All"_s}));
    EXPECT_THAT(rowsOf(2),
        ElementsAreArray({u"Halves"_s, u"Quarters"_s, u"Thirds"_s, u"Sixths"_s, u"Screen"_s,
            u"Size"_s, u"Displays"_s, u"History"_s}));
    EXPECT_THAT(rowsOf(3), ElementsAreArray({u"Work"_s, rule, u"Capture Current Windows"_s}));
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

    field.clearFocus();
    row(edit, u"Undo"_s)->trigger();
    EXPECT_EQ(asked, QStringList{u"undo"_s});
}

TEST_F(MenuTests, theStatusIconIsWrittenOrSaysWhyNot)
{
    const QString path = desk.folder.filePath(u"icon.png"_s);

    EXPECT_TRUE(StatusIcon::render(path));
    EXPECT_FALSE(QImage(path).isNull());
    EXPECT_TRUE(StatusIcon::render(u"/nowhere/icon.png"_s).error().contains(u"/nowhere"_s));
}

} // namespace corvane
