#include "AppDelegate.h"
#include "DataFolder.h"
#include "LayoutPicture.h"
#include "LayoutReport.h"
#include "ModelDesk.h"
#include "PaneCard.h"
#include "ReportRow.h"
#include "SettingsWindow.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtGui/QAction>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

#include <gmock/gmock.h>

namespace corvane {

using namespace std::chrono_literals;
using testing::SizeIs;

namespace {

/// The settings window on one layout, whose pane is the editor's.
struct ApplyReportTests : testing::Test {
    ApplyReportTests()
    {
        target.applyLayout = [this](
                                 const WindowLayout &wanted) { std::ignore = model.apply(wanted); };
        layout.displays << DisplayKey{u"Gone"_s, 1920, 1080};
        desk.save({layout});
        model.refreshLayouts();
        model.accessibilityTrusted = true;
        model.pendingPane = u"layouts"_s;
        window = std::make_unique<SettingsWindow>(model, target);
        window->setVisible(true);
        QApplication::processEvents();
    }

    /// What is seen of a kind, by its words.
    template <typename Widget>
    Widget *shown(const QString &text) const
    {
        for (Widget *each : window->findChildren<Widget *>()) {
            if (each->isVisible() && each->text() == text)
                return each;
        }
        return nullptr;
    }
    QPushButton *button(const QString &text) const { return shown<QPushButton>(text); }
    /// The rows of the report.
    QList<ReportRow *> rows() const
    {
        QList<ReportRow *> rows = window->findChildren<ReportRow *>();
        rows.removeIf([](const ReportRow *row) { return !row->isVisible(); });
        return rows;
    }
    void report(const PaneStatus &status)
    {
        model.lastApply = std::nullopt;
        model.lastApply = AppModel::LastApply{
            layout.id, {{layout.panes.first(), status}}, desk.platform.clock().date()};
    }
    void update()
    {
        model.updateLayout(layout, u"Edit"_s);
        layout = *model.layout(layout.id);
    }
    void press(QPushButton &pressed)
    {
        pressed.setFocus();
        pressed.click();
        QApplication::processEvents();
    }
    void installSlow(Clock::Duration opensAfter)
    {
        desk.platform.desktop().install(
            {.bundleIdentifier = u"org.example.Slow"_s, .windows = {{}}, .opensAfter = opensAfter});
        layout.panes << Pane{
            .rect = {0.5, 0, 0.5, 1}, .app = AppRef{u"org.example.Slow"_s, u"Slow"_s}};
        update();
    }
    void settle(Clock::Duration duration)
    {
        for (Clock::Duration passed{}; passed < duration; passed += 250ms)
            desk.settle(250ms);
        QApplication::processEvents();
    }

    ModelDesk desk;
    AppModel model = desk.model();
    MenuTarget target;
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    std::unique_ptr<SettingsWindow> window;
};

} // namespace

TEST_F(ApplyReportTests, everyStatusIsSaidAsOnTheTerminalAndItsCureLeadsToApplyAgain)
{
    using Status = PaneStatus;
    struct Case {
        Status status;
        QString text;
        QString cure = {};
        QString undoTitle = u"Edit"_s; ///< what was done to the layout
        QString focus = u"Apply Again"_s;
        bool hasTitle = false;
        int display = 0;
    };
    const QString led = u"Applied %1 · 1 of 1 placed"_s.arg(QLocale().toString(
        desk.platform.clock().date().toLocalTime().time(), QLocale::ShortFormat));
    const QList<Case> cases{{{Status::Placed{}}, u"is in its place"_s},
        {{Status::Placed{{}, {}, {}, true}}, u"was opened, and is in its place"_s},
        {{Status::Refused{u"cannot be moved"_s}}, u"cannot be moved"_s, u"Apply Again"_s, u"Edit"_s,
            led},
        {{Status::Empty{}}, u"has no app"_s, u"Choose App…"_s, u"Choose App"_s},
        {{Status::DisplayMissing{}}, u"its display is not connected"_s, u"Use Another Display…"_s,
            u"Change Display"_s, u"Apply Again"_s, false, 1},
        {{Status::NotInstalled{}}, u"is not installed on this Mac"_s, u"Choose App…"_s,
            u"Choose App"_s},
        {{Status::NotRunning{}}, u"is not running (opening it is off for this pane)"_s,
            u"Turn On Opening"_s, u"Change Opening"_s},
        {{Status::Launched{}}, u"was opened, and still had no window after 20 seconds"_s,
            u"Apply Again"_s, u"Edit"_s, led},
        {{Status::NoWindow{}}, u"is running but has no window to place"_s, u"Change Title…"_s,
            u"Edit"_s, u"Draft"_s, true},
        {{Status::NoWindow{}}, u"is running but has no window to place"_s, u"Open a Window"_s}};
    desk.platform.desktop().install({.bundleIdentifier = u"org.example.Editor"_s,
        .windows = {{}},
        .opensFurtherWindows = true});
    // As the picker does.
    QObject::connect(
        window->findChild<LayoutPicture *>(), &LayoutPicture::appAsked, &model, [this] {
            WindowLayout changed = *model.layout(layout.id);
            changed.panes.first().app = AppRef{u"org.example.Other"_s, u"Other"_s};
            model.updateLayout(changed, u"Choose App"_s);
        });
    const WindowLayout before = layout;
    for (const Case &each : cases) {
        SCOPED_TRACE(each.text.toStdString());
        layout = before;
        Pane &pane = layout.panes.first();
        pane.launch = each.undoTitle != u"Change Opening";
        pane.display = each.display;
        pane.titleContains = each.hasTitle ? std::optional(u"Draft"_s) : std::nullopt;
        pane.rect.w = model.layout(layout.id)->panes.first().rect.w == 0.5 ? 0.4 : 0.5;
        update();
        report(each.status);
        for (QPushButton *fold : window->findChildren<QPushButton *>(u"fold"_s)) {
            if (fold->isVisible())
                fold->click();
        }

        ASSERT_THAT(rows(), SizeIs(1));
        const QString said = rows().first()->accessibleName();
        EXPECT_EQ(said, u"Editor "_s + each.text);
        const CommandResult terminal =
            applyResult(layout, model.lastApply.value()->results, ReportForm::json);
        const QString reason =
            QJsonDocument::fromJson(terminal.output.toUtf8())[u"panes"_s][0][u"reason"_s]
                .toString();
        EXPECT_TRUE(said.endsWith(reason));
        EXPECT_EQ(reason.isEmpty(), needsNothing(each.status));
        QPushButton *cure = rows().first()->cure();
        ASSERT_EQ(cure ? cure->text() : QString(), each.cure);
        if (!cure)
            continue;
        const auto windows = desk.platform.desktop().stack().size();
        press(*cure);
        if (auto *menu = rows().isEmpty() ? nullptr : rows().first()->findChild<QMenu *>())
            menu->actions().first()->trigger();
        desk.settle();
        QApplication::processEvents();

        EXPECT_EQ(model.undoTitle(), each.undoTitle);
        const Pane cured = model.layout(layout.id)->panes.first();
        EXPECT_EQ(cured.display, 0);
        EXPECT_TRUE(cured.launch);
        EXPECT_EQ(desk.platform.desktop().stack().size() > windows, each.cure == u"Open a Window");
        const QWidget *focused = window->focusWidget();
        if (const auto *label = qobject_cast<const QLabel *>(focused))
            EXPECT_EQ(label->text(), each.focus);
        else if (const auto *field = qobject_cast<const QLineEdit *>(focused))
            EXPECT_EQ(field->text(), each.focus);
        else
            EXPECT_EQ(focused, button(each.focus));
    }
}

TEST_F(ApplyReportTests, anApplyIsFollowedUntilItsReportWhichAnEditTakesAway)
{
    installSlow(3s);
    press(*button(u"Apply"_s));

    EXPECT_EQ(model.applying.value(), layout.id);
    EXPECT_THAT(model.applyProgress.value().settled, SizeIs(1));
    ASSERT_TRUE(button(u"Applying…"_s));
    EXPECT_TRUE(button(u"Applying…"_s)->accessibleDescription().contains(u"28"));
    settle(8s);
    EXPECT_TRUE(model.applying.value().isNull());
    EXPECT_TRUE(qobject_cast<QLabel *>(window->focusWidget())->text().endsWith(u"2 of 2 placed"));
    EXPECT_TRUE(button(u"Apply Again"_s)->isDefault() && !button(u"Apply"_s)->isDefault());

    layout.panes.first().rect.w = 0.4;
    update();
    EXPECT_FALSE(button(u"Apply Again"_s));
    EXPECT_TRUE(button(u"Apply"_s)->isDefault());
    model.undo();
    EXPECT_FALSE(button(u"Apply Again"_s)) << "what was taken away stays so";
}

TEST_F(ApplyReportTests, whatHappensToTheLayoutDuringAnApplyLeavesNoReportOnSomethingElse)
{
    installSlow(3s);
    const WindowLayout other = *model.duplicateLayout(layout.id);
    const std::function<void()> happenings[]{
        [&] { std::ignore = model.apply(other); },
        [&] {
            layout.panes.first().rect.w = 0.3;
            update();
        },
        [&] { model.deleteLayout(layout.id); },
    };
    for (const auto &happen : happenings) {
        if (const auto slow = desk.platform.desktop().processOf(u"org.example.Slow"_s))
            desk.platform.desktop().quit(*slow);
        model.pendingLayout = layout.id;
        std::ignore = model.apply(*model.layout(layout.id));
        settle(1s);
        EXPECT_EQ(model.applying.value(), layout.id);

        happen();
        EXPECT_FALSE(model.applying.value().isNull());
        settle(9s);

        EXPECT_TRUE(model.applying.value().isNull());
        EXPECT_FALSE(button(u"Apply Again"_s));
        EXPECT_FALSE(button(u"Applying…"_s));
    }
}

TEST_F(ApplyReportTests, whereNoWindowCanBeMovedOneBannerSaysSoAndLeadsToWhy)
{
    model.accessibilityTrusted = false;
    report({PaneStatus::Refused{u"accessibility not granted"_s}});

    EXPECT_FALSE(rows().first()->cure()->isVisible());
    button(u"Show Why"_s)->click();

    EXPECT_EQ(window->pane(), SettingsPane::general);
}

TEST_F(ApplyReportTests, anApplyByKeysTakesTheTextThatIsBeingTyped)
{
    auto *title = window->findChild<PaneCard *>()->findChild<QLineEdit *>();
    title->setFocus();
    title->setText(u"Letter"_s);

    for (auto *keys : window->findChildren<QShortcut *>()) {
        if (keys->key() == QKeySequence(Qt::CTRL | Qt::Key_Return))
            Q_EMIT keys->activated();
    }

    EXPECT_EQ(model.lastApply.value()->results.first().pane.titleContains, u"Letter"_s);
}

TEST(ApplyNotificationTests, aClickOnWhatAnApplyToldOpensItsReportOnceItsWindowIsClosed)
{
    ModelDesk desk;
    WindowLayout layout = ModelDesk::leftHalfLayout(Screens::signature());
    layout.panes << Pane{.app = AppRef{u"org.example.Gone"_s, u"Gone"_s}};
    layout.applyOnConnect = false;
    ASSERT_TRUE(LayoutStore(dataFolder()).save({layout}));
    AppDelegate delegate(AppDelegate::Log::quiet);
    delegate.start();
    const auto task = delegate.commands().run({.commands = {{Command::ApplyLayout{layout.name}}}});
    desk.settle();
    SimulatedSession &session = desk.platform.session();
    ASSERT_THAT(session.notifications, SizeIs(1));
    const auto notification = session.notifications.first();
    EXPECT_EQ(notification.action, u"Show"_s);
    const auto reported = [&] {
        Q_EMIT session.notificationClicked(notification.id, u"token"_s);
        QApplication::processEvents();
        for (QWidget *each : QApplication::topLevelWidgets()) {
            const auto rows = each->findChildren<ReportRow *>();
            const bool isReported = std::ranges::any_of(rows, &QWidget::isVisible);
            if (each->close(); isReported)
                return true;
        }
        return false;
    };

    EXPECT_TRUE(reported());
    EXPECT_THAT(desk.platform.ownWindows().broughtForward, SizeIs(1));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(reported()) << "it was seen";
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace corvane
