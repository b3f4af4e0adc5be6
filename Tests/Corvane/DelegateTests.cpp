#include "AppDelegate.h"
#include "DataFolder.h"
#include "Identity.h"
#include "ModelDesk.h"

#include <QtCore/QDir>
#include <QtWidgets/QApplication>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

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

    /// Opens the menu of the status item; null when it is open already.
    QMenu *openMenu()
    {
        QCoreApplication::processEvents();
        EXPECT_EQ(delegate->commands().show({.popMenu = true}), CommandResult{});
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    static QAction *row(const QMenu &menu, const QString &text)
    {
        for (QAction *action : menu.actions()) {
            if (action->text().startsWith(text))
                return action;
        }
        return nullptr;
    }

    static QString firstLayout(const QMenu &menu)
    {
        const QAction *layouts = row(menu, u"Layouts"_s);
        return layouts ? layouts->menu<QMenu *>()->actions().first()->text() : QString();
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

TEST_F(DelegateTests, aRefusalAndACaptureAreSentencesThatLeaveProblemsStanding)
{
    delegate->performFromMenu(Placement::nextDisplay);
    delegate->captureLayout();

    EXPECT_EQ(told(u"placement"_s), u"Next Display: There is only one display to be on.");
    EXPECT_THAT(told(u"capture"_s).toStdString(),
        testing::HasSubstr("Captured 1 window(s) on 1 display(s) as “Layout”. They come back"));
    EXPECT_THAT(told(u"problem-unreadable-settings.json"_s).toStdString(),
        testing::HasSubstr("could not read some of your settings"));
}

TEST_F(DelegateTests, layoutRowsTellTheDisplaysAndTheFileOfToday)
{
    const quint32 second = desk.plugSecond();
    desk.settle();
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    layout.applyOnConnect = false;
    desk.platform.desktop().unplug(second);
    desk.settle();
    LayoutStore store(dataFolder());
    ASSERT_TRUE(store.save({layout})); // as by hand, behind the program's back

    QMenu *menu = openMenu();
    const QString away = u"Work, made for displays that are not connected"_s;
    EXPECT_EQ(firstLayout(*menu), away);
    desk.plugSecond();
    desk.settle();
    QCoreApplication::processEvents();
    EXPECT_EQ(firstLayout(*menu), away) << "rows under the pointer stay what they are";
    menu->hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(firstLayout(*menu), u"Work"_s);

    layout.id = QUuid::createUuid();
    ASSERT_TRUE(store.save({layout, layout}));
    row(*menu, u"Layouts"_s)->menu<QMenu *>()->actions().first()->trigger();
    EXPECT_EQ(told(u"layout"_s), QString());
    EXPECT_EQ(desk.frame(), (Rect{0, 0, 720, 900})) << "the layout that the row named";
    ASSERT_TRUE(store.save({}));
    row(*menu, u"Layouts"_s)->menu<QMenu *>()->actions().first()->trigger();
    EXPECT_EQ(
        told(u"layout"_s), u"“Work” was not applied: There is no layout of this name any more.");
}

TEST_F(DelegateTests, aLinkThatNothingOpensIsShownInstead)
{
    desk.platform.session().opensAddresses = false;
    desk.platform.desktop().loseTrust();
    desk.settle();
    const QMenu *menu = openMenu();

    row(*menu, u"Corvane Website"_s)->trigger();
    EXPECT_EQ(told(u"link"_s), u"No program opened the link: "_s + Identity::website);
    row(*menu, u"Accessibility Is Off"_s)->trigger();
    EXPECT_EQ(told(u"link"_s), u"No program opened the link: help:window-access");
}

} // namespace corvane
