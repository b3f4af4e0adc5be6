#include "AppCandidates.h"
#include "AppIcons.h"
#include "ModelDesk.h"
#include "SettingsWindow.h"
#include "Waiting.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A layout of one pane, in a window whose picker is asked for its application.
struct AppPickerTests : testing::Test {
    AppPickerTests()
    {
        for (const auto &[id, name] : {std::pair(u"a"_s, u"Archive"_s), {u"b"_s, u"Browser"_s},
                 {u"c"_s, u"Calendar"_s}, {u"d"_s, u"Drawing"_s}})
            desktop.install({.bundleIdentifier = id, .name = name});
        desk.save({ModelDesk::leftHalfLayout(Screens::signature())});
        model.refreshLayouts();
        model.pendingPane = u"layouts"_s;
        model.pendingAppPicker = true;
        window = new SettingsWindow(model, {});
        window->setVisible(true);
        settle();
    }
    ~AppPickerTests() override { delete window; }

    void settle()
    {
        desk.settle();
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    [[nodiscard]] QDialog *picker() const { return window->findChild<QDialog *>(); }
    [[nodiscard]] QLineEdit &field() const { return *picker()->findChild<QLineEdit *>(); }
    [[nodiscard]] QListView &list() const { return *picker()->findChild<QListView *>(); }
    [[nodiscard]] QString current() const { return list().currentIndex().data().toString(); }
    void press(int key, const QString &text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, {}, text);
        QApplication::sendEvent(picker()->focusWidget(), &event);
        settle();
    }
    void click(const QString &title)
    {
        for (QPushButton *button : picker()->findChildren<QPushButton *>()) {
            if (button->text() == title)
                button->click();
        }
        settle();
    }
    [[nodiscard]] std::optional<AppRef> app() const
    {
        return model.layouts().first().panes.first().app;
    }

    ModelDesk desk;
    SimulatedDesktop &desktop = desk.platform.desktop();
    AppModel model = desk.model();
    SettingsWindow *window = nullptr;
};

} // namespace

TEST(AppCandidatesTests, theBestMatchesOfWhatRunsComeFirstThenTheOthersAndHiddenOnesWhenSought)
{
    ModelDesk desk; // with an editor that has one window
    SimulatedDesktop &desktop = desk.platform.desktop();
    desktop.closeWindow(desktop.openWindow(desktop.start(u"chat"_s, u"Chat"_s), {}));
    desktop.openWindow(desktop.start(u"mine"_s, u"Mine"_s, QCoreApplication::applicationPid()), {});
    desktop.openWindow(desktop.start(u"dock"_s, u"Dock"_s), {.kind = WindowKind::panel});
    const QList<AppCandidate> candidates = appCandidates(
        {{u"files"_s, u"files"_s}, {u"org.gnome.Files"_s, u"Files"_s, u"Organise your disks"_s},
            {u"mate"_s, u"Café mate"_s}, {u"profile"_s, u"Profiles"_s, {}, {u"café"_s}},
            {u"setup"_s, u"Setup"_s, u"Settings of files"_s, {}, {}, true},
            {u"org.example.Editor"_s, u"Editor"_s, u"Write files"_s}, {u"chat"_s, u"Chat"_s}});
    const std::pair<QString, QStringList> cases[]{
        {u""_s,
            {u"org.example.Editor"_s, u"chat"_s, u"mate"_s, u"files"_s, u"org.gnome.Files"_s,
                u"profile"_s}},
        {u"FILE"_s,
            {u"org.example.Editor"_s, u"files"_s, u"org.gnome.Files"_s, u"setup"_s, u"profile"_s}},
        {u"cafe"_s, {u"mate"_s, u"profile"_s}}, {u"máte"_s, {u"mate"_s}},
        {u"gnome"_s, {u"org.gnome.Files"_s}}, {u"disk fil"_s, {u"org.gnome.Files"_s}},
        {u"etup"_s, {u"setup"_s}}, {u"filing"_s, {}}};
    for (const auto &[text, ids] : cases) {
        QStringList shown;
        for (const AppCandidate &candidate : found(candidates, text))
            shown << candidate.app.bundleID;
        EXPECT_EQ(shown, ids) << text.toStdString();
    }

    QStringList details;
    for (const AppCandidate &candidate : found(candidates, u"files"_s))
        details << candidate.detail();
    EXPECT_THAT(details.mid(0, 3),
        ElementsAre(u"1 window(s)"_s, u"files"_s, u"Organise your disks · org.gnome.Files"_s));
    EXPECT_EQ(found(candidates, u"chat"_s).first().detail(), u"Running, no window"_s);
}

TEST(AppIconsTests, anIconIsReadAfterItWasDrawnAsALetterAndWhatIsNoPictureStaysOne)
{
    ModelDesk desk;
    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(Qt::red);
    const QString file = desk.folder.path() + u"/red.png"_s;
    ASSERT_TRUE(red.save(file));
    int loads = 0;
    QObject listener;
    QObject::connect(&AppIcons::shared(), &AppIcons::loaded, &listener, [&loads] { ++loads; });
    const auto isRed = [](const QString &id) {
        QImage drawn(24, 24, QImage::Format_RGB32);
        drawn.fill(Qt::white);
        QPainter painter(&drawn);
        AppIcons::shared().paint(painter, {0, 0, 24, 24}, {id, u"Name"_s});
        return drawn.pixelColor(3, 12) == Qt::red && drawn.pixelColor(20, 12) == Qt::red;
    };
    for (const auto &[id, icon, hasIcon] :
        {std::tuple(u"icon.file"_s, file, true), {u"icon.folder"_s, desk.folder.path(), false},
            {u"icon.relative"_s, u"../red.png"_s, false}, {u"icon.none"_s, u"/no/file"_s, false}}) {
        desk.platform.desktop().install({.bundleIdentifier = id, .iconName = icon});
        EXPECT_FALSE(isRed(id));
        const int before = loads;

        EXPECT_TRUE(desktop::waitUntil([&] {
            QApplication::processEvents();
            return loads > before;
        }));

        EXPECT_EQ(isRed(id), hasIcon) << id.toStdString();
    }
}

TEST_F(AppPickerTests, keysLeadFromTheFieldThroughTheListToAChoiceThatCanBeUndone)
{
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(current(), u"Editor"_s);
    EXPECT_EQ(field().accessibleDescription(), u"Running, Editor"_s);
    press(Qt::Key_Down);
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(current(), u"Archive"_s); // over the section's title
    press(Qt::Key_D, u"d"_s);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(field().text(), u"d"_s);
    EXPECT_EQ(current(), u"Editor"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_TRUE(field().hasFocus());
    press(Qt::Key_R, u"r"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), u"Drawing"_s);

    press(Qt::Key_Return);

    EXPECT_EQ(picker(), nullptr);
    EXPECT_EQ(app(), (AppRef{u"d"_s, u"Drawing"_s}));
    EXPECT_EQ(model.undoTitle(), u"Choose App"_s);
    EXPECT_FALSE(model.pendingAppPicker.value());
}

TEST_F(AppPickerTests, noAppEmptiesThePaneAndEscapeLeavesItAsItIs)
{
    press(Qt::Key_Escape);
    EXPECT_EQ(picker(), nullptr);
    EXPECT_EQ(app().value_or(AppRef{}).name, u"Editor"_s);
    model.pendingAppPicker = true;
    settle();

    click(u"No App"_s);

    EXPECT_EQ(picker(), nullptr);
    EXPECT_EQ(app(), std::nullopt);
}

TEST_F(AppPickerTests, theListFollowsWhatRunsAndKeepsTheSelection)
{
    press(Qt::Key_Down);
    const pid_t pid = desktop.start(u"c"_s, u"Calendar"_s);
    desktop.openWindow(pid, {});
    settle();
    EXPECT_EQ(current(), u"Archive"_s);
    EXPECT_EQ(list().model()->index(1, 0).data().toString(), u"Calendar"_s);

    desktop.quit(pid);
    settle();

    EXPECT_EQ(current(), u"Archive"_s);
    EXPECT_EQ(list().model()->index(1, 0).data().toString(), u"Editor"_s);
}

TEST_F(AppPickerTests, whereNothingIsFoundTheSearchCanBeClearedAndReturnChoosesNothing)
{
    press(Qt::Key_Q, u"q"_s);
    press(Qt::Key_Return);
    ASSERT_NE(picker(), nullptr);
    EXPECT_FALSE(list().isVisible());

    click(u"Clear Search"_s);

    EXPECT_TRUE(list().isVisible());
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(current(), u"Editor"_s);
}

TEST_F(AppPickerTests, itClosesWithoutAChoiceWhenItsLayoutGoes)
{
    model.deleteLayout(model.layouts().first().id);
    settle();

    EXPECT_EQ(picker(), nullptr);
    EXPECT_THAT(model.layouts(), IsEmpty());
}

} // namespace corvane
