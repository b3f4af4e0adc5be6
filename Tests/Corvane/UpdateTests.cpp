#include "AboutPane.h"
#include "FlightRecorder.h"
#include "Match.h"
#include "ModelDesk.h"
#include "NotesView.h"
#include "ScreenRequests.h"
#include "SettingsWindow.h"
#include "SimulatedUpdater.h"
#include "Switch.h"
#include "Updates.h"
#include "UpdateSheet.h"
#include "WindowOpener.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

#include <gmock/gmock.h>

namespace corvane {

using testing::ElementsAre;
using testing::IsSupersetOf;

namespace {

using Stage = UpdateSession::Stage;
using Step = SimulatedUpdater::Step;

const UpdateCandidate newer{u"1.3.0"_s, u"45"_s,
    QDateTime::fromString(u"2023-11-21T02:00:00Z"_s, Qt::ISODate)}; // the day before in New York
const UpdaterError broken{UpdaterError::Kind::other, u"test"_s, 7, u"It broke."_s};

QString nameOf(const Stage &stage)
{
    return match(
        stage.value, [](Stage::Checking) { return u"checking"_s; },
        [](Stage::Found) { return u"found"_s; }, [](Stage::Downloading) { return u"download"_s; },
        [](Stage::Extracting) { return u"extract"_s; },
        [](Stage::Installing) { return u"install"_s; },
        [](Stage::UpToDate) { return u"up to date"_s; },
        [](const Stage::Failed &failed) { return failed.message; });
}

/// A program with an updater that plays in memory.
struct UpdateDesk {
    UpdateDesk()
    {
        updates.driver().onShow = [this] { isOpen = true; };
        updates.driver().onClose = [this] { isOpen = false; };
        QObject::connect(&session, &UpdateSession::stageChanged, &context,
            [this] { stages << nameOf(session.stage); });
        FlightRecorder::shared().record(u"test"_s, marker);
    }

    UpdateSource source()
    {
        auto made = std::make_unique<SimulatedUpdater>(desk.platform.clock());
        updater = made.get();
        return {{.kind = InstallKind::bundle, .build = 44}, std::move(made)};
    }
    /// Lets the pass go on by a step.
    void step() { desk.settle(SimulatedUpdater::stepLength); }
    /// The events since the beginning.
    [[nodiscard]] QStringList events() const
    {
        QStringList events;
        for (const FlightRecorder::Event &event : FlightRecorder::shared().ledger()) {
            if (event.detail == marker)
                events.clear();
            else
                events << event.kind + u": "_s + event.detail;
        }
        return events;
    }

    const QString marker = QUuid::createUuid().toString();
    ModelDesk desk;
    AppModel model = desk.model();
    SimulatedUpdater *updater = nullptr;
    Updates updates{model, source()};
    UpdateSession &session = updates.driver().session();
    QStringList stages;
    bool isOpen = false;
    QObject context;
};

struct UpdateTests : testing::Test, UpdateDesk {
};

} // namespace

TEST(UpdatePassTests, everyPassShowsItsStagesAndLeavesItsTraces)
{
    using Act = void (*)(UpdateSession &);
    const Act install = [](UpdateSession &session) { session.onInstall(); };
    const Act later = [](UpdateSession &session) { session.onLater(); };
    const Act cancel = [](UpdateSession &session) { session.onCancel(); };
    const Act retry = [](UpdateSession &session) { session.onRetry(); };
    struct Case {
        const char *what;
        std::optional<UpdateCandidate> offer;
        std::optional<SimulatedUpdater::Failure> failure;
        QList<std::pair<QString, Act>> acts; ///< when that stage shows
        QStringList stages;
        bool staysOpen;
        QStringList events;
    };
    const QStringList upTo{u"found"_s, u"download"_s, u"extract"_s, u"install"_s};
    const std::pair<QString, Act> installs{u"found"_s, install};
    const QString found = u"update-available: 1.3.0 (45)"_s;
    const QString ended = u"update-cycle-ended: 1.3.0 (45) was found"_s;
    const QString failed = u"update-cycle-ended: failed"_s;
    for (const Case &each : {Case{"nothing newer", {}, {}, {}, {u"up to date"_s}, true,
                                 {u"update-cycle-ended: no newer build on the feed"_s}},
             {"the check fails", newer, {{Step::check, broken}}, {}, {u"It broke."_s}, true,
                 {u"update-check-failed: test 7: It broke."_s, failed}},
             {"and again", {}, {{Step::check, broken}}, {{u"It broke."_s, retry}},
                 {u"It broke."_s, u"checking"_s, u"It broke."_s}, true, {}},
             {"called off in the check", newer, {}, {{u"checking"_s, cancel}}, {}, false,
                 {u"update-cycle-ended: called off"_s}},
             {"later", newer, {}, {{u"found"_s, later}}, {u"found"_s}, false, {found, ended}},
             {"installed", newer, {}, {installs}, upTo, false,
                 {found, u"update-installing: the program runs still"_s,
                     u"update-installed: relaunched"_s, ended}},
             {"called off in the download", newer, {}, {installs, {u"download"_s, cancel}},
                 upTo.first(2), false, {found, ended}},
             {"the installation fails", newer, {{Step::installation, broken}}, {installs},
                 QStringList(upTo) << u"It broke."_s, true,
                 {found, u"update-failed: test 7: It broke."_s, failed}}}) {
        SCOPED_TRACE(each.what);
        UpdateDesk desk;
        desk.updates.start();
        desk.updater->newer = each.offer;
        desk.updater->failure = each.failure;
        auto acts = each.acts;

        desk.model.onCheckForUpdatesNow();
        for (int i = 0; i < 20; ++i) {
            if (!acts.isEmpty() && acts.first().first == nameOf(desk.session.stage))
                acts.takeFirst().second(desk.session);
            desk.step();
        }

        EXPECT_EQ(desk.stages.join(u", "_s), each.stages.join(u", "_s));
        EXPECT_EQ(desk.isOpen, each.staysOpen);
        EXPECT_FALSE(desk.updater->isUnderWay() || desk.updater->downloadsByItself.value());
        EXPECT_EQ(desk.updater->hasRelaunched(), each.stages == upTo);
        EXPECT_THAT(desk.events(), IsSupersetOf(each.events))
            << desk.events().join(u'\n').toStdString();
        EXPECT_FALSE(desk.model.updateStatus.value().checking);
        EXPECT_EQ(desk.model.updateStatus.value().failed,
            each.failure && each.failure->step == Step::check);
    }
}

TEST_F(UpdateTests, theFeedIsReadQuietlyOnlyWhileTheSwitchIsOn)
{
    updater->newer = newer;
    updater->checksByItself = false;
    updates.start();
    updates.readFeedQuietly();
    EXPECT_FALSE(updater->isUnderWay());

    model.setAutomaticUpdateChecks(true);
    updates.readFeedQuietly();
    EXPECT_TRUE(model.updateStatus.value().checking);
    step();

    EXPECT_EQ(model.updateStatus.value().statusLine(), u"v1.3.0 is available."_s);
    EXPECT_TRUE(events().contains(u"update-found-quietly: 1.3.0 (45): left to the menu row"_s));
    updater->failure = {Step::check, broken};
    updates.readFeedQuietly();
    step();
    EXPECT_TRUE(model.updateStatus.value().failed);
    EXPECT_TRUE(events().contains(u"update-check-failed: test 7: It broke."_s));
    EXPECT_TRUE(stages.isEmpty() && !isOpen);
}

TEST_F(UpdateTests, anUpdaterThatDoesNotStartIsRecordedAndMissing)
{
    updater->failure = {Step::start, broken};

    updates.start();

    EXPECT_FALSE(model.updateStatus.value().canUpdate || model.onCheckForUpdatesNow);
    EXPECT_TRUE(events().contains(u"update-check-failed: the updater did not start: 7"_s));
}

TEST_F(UpdateTests, aTestPressesInstallByItself)
{
    qputenv("CORVANE_UPDATE_TEST_INSTALL", "1");
    qputenv("CORVANE_UPDATE_TEST_FEED", "http://127.0.0.1:1/feed.json");
    UpdateDesk pressing;
    for (const char *variable : {"CORVANE_UPDATE_TEST_INSTALL", "CORVANE_UPDATE_TEST_FEED"})
        qunsetenv(variable);
    pressing.updates.start();
    pressing.updater->newer = newer;

    pressing.model.onInstallUpdate();
    for (int i = 0; i < 20; ++i)
        pressing.step();

    EXPECT_TRUE(pressing.updater->hasRelaunched());
    EXPECT_EQ(pressing.updates.driver().host, u"127.0.0.1"_s);
}

namespace {

/// The sheet of a session that the test drives.
struct UpdateSheetTests : testing::Test {
    ~UpdateSheetTests() override { close(); }

    void open(const Stage &stage)
    {
        close();
        told.clear();
        session.stage = stage;
        sheet = new UpdateSheet(session, nullptr);
        sheet->open();
        sheet->activateWindow();
        QApplication::processEvents();
    }
    void close()
    {
        if (sheet)
            sheet->dismiss();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void press(int key) const
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, {});
            QApplication::sendEvent(sheet->windowHandle(), &event);
        }
        QApplication::processEvents();
    }
    [[nodiscard]] QString shown() const
    {
        QStringList texts;
        for (const auto *label : sheet->findChildren<QLabel *>()) {
            if (label->isVisible() && !label->text().isEmpty())
                texts << label->text();
        }
        return texts.join(u" | "_s);
    }
    [[nodiscard]] QString focused() const
    {
        const auto *button = qobject_cast<const QPushButton *>(sheet->focusWidget());
        return button ? button->text() : sheet->focusWidget()->accessibleName();
    }

    ModelDesk desk;
    UpdateSession session;
    QStringList told;
    QPointer<UpdateSheet> sheet;

    void SetUp() override
    {
        session.version = u"1.3.0"_s;
        session.released = newer.released;
        session.onInstall = [this] { told << u"install"_s; };
        session.onLater = [this] { told << u"later"_s; };
        session.onCancel = [this] { told << u"cancel"_s; };
        session.onClose = [this] { told << u"close"_s; };
        session.onRetry = [this] { told << u"retry"_s; };
    }
};

} // namespace

TEST_F(UpdateSheetTests, everyStageIsHeardHasTheFocusWhereItHelpsAndIsLeftByEscape)
{
    struct Case {
        Stage stage;
        QString description;
        QString focused;
        QStringList byReturn;
        QStringList byEscape; ///< none where there is no way back
    };
    for (const Case &each :
        {Case{{Stage::Checking{}}, u"Looking for a newer Corvane"_s, u"Cancel"_s, {u"cancel"_s},
             {u"cancel"_s}},
            {{Stage::Found{}}, u"1.3.0"_s, u"Install and Relaunch"_s, {u"install"_s}, {u"later"_s}},
            {{Stage::Downloading{}}, u"Downloading"_s, u"Cancel"_s, {u"cancel"_s}, {u"cancel"_s}},
            {{Stage::Extracting{}}, u"Unpacking"_s, u"Unpacking"_s, {}, {}},
            {{Stage::Installing{}}, u"Installing"_s, u"Installing"_s, {}, {}},
            {{Stage::UpToDate{}}, u"You have the newest Corvane"_s, u"Close"_s, {u"close"_s},
                {u"close"_s}},
            {{Stage::Failed{u"No."_s}}, u"The update did not finish"_s, u"Try Again"_s,
                {u"retry"_s}, {u"close"_s}}}) {
        SCOPED_TRACE(each.description.toStdString());
        open({Stage::Checking{}});

        session.stage = each.stage;
        QApplication::processEvents();

        EXPECT_EQ(sheet->accessibleDescription(), each.description);
        EXPECT_EQ(focused(), each.focused);
        EXPECT_EQ(QApplication::focusWidget(), sheet->focusWidget()) << "it is active still";
        press(Qt::Key_Return);
        EXPECT_EQ(told, each.byReturn);
        const std::function<void()> ways[]{
            [this] { press(Qt::Key_Escape); }, [this] { sheet->close(); }};
        for (const auto &leave : ways) {
            open(each.stage);
            leave();
            EXPECT_EQ(told, each.byEscape);
            EXPECT_EQ(!sheet || sheet->isHidden(), !each.byEscape.isEmpty());
        }
        open(each.stage);
        delete sheet;
        EXPECT_EQ(told, each.byEscape) << "it went with its window";
    }
}

TEST_F(UpdateSheetTests, theNotesAreTextScrollByKeysAndTakeTheFocusFromNobody)
{
    open({Stage::Found{}});
    EXPECT_TRUE(shown().contains(u"Released Nov 20, 2023"_s)) << shown().toStdString();
    auto *notes = sheet->findChild<NotesView *>();
    EXPECT_EQ(notes->placeholderText(), u"Loading what's new…"_s);
    press(Qt::Key_Left); // to Later

    ReleaseNotes::Section section{u"<h1>New</h1>"_s};
    for (int i = 0; i < 40; ++i)
        section.items << ReleaseNotes::Item{{u"<img src=x> "_s}, {u"bold"_s, true}};
    session.notes = QList{section};
    press(Qt::Key_PageDown);

    EXPECT_EQ(focused(), u"Later"_s);
    EXPECT_TRUE(notes->toPlainText().startsWith(u"<h1>New</h1>\n<img src=x> bold\n"_s));
    EXPECT_GT(notes->verticalScrollBar()->value(), 0);
    session.notesFailed = true;
    EXPECT_FALSE(notes->isVisible());
    EXPECT_TRUE(shown().contains(u"The notes for this version did not load here."_s));
}

TEST_F(UpdateSheetTests, bytesChangeFourTimesASecondAndTheirTotalMayBeUnknown)
{
    open({Stage::Downloading{}});
    const auto *bar = sheet->findChild<QProgressBar *>();
    EXPECT_TRUE(shown().endsWith(u"0.0 MB"_s)) << shown().toStdString();
    EXPECT_EQ(bar->maximum(), 0) << "busy";

    session.expected = 12'400'000;
    session.received = 4'700'000;
    desk.settle(249ms);
    EXPECT_TRUE(shown().endsWith(u"0.0 MB"_s));
    desk.settle(1ms);

    EXPECT_TRUE(shown().endsWith(u"4.7 MB of 12.4 MB | 38 %"_s)) << shown().toStdString();
    EXPECT_EQ(bar->value() * 1000 / bar->maximum(), 379);
    session.received = 99'000'000; // more than was told
    desk.settle(250ms);
    EXPECT_TRUE(shown().endsWith(u"99.0 MB of 12.4 MB | 100 %"_s));
    session.received = 1;
    session.stage = Stage{Stage::Extracting{}}; // before the bytes are shown
    session.extraction = 0.5;
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    desk.settle(250ms);
    EXPECT_EQ(sheet->findChild<QProgressBar *>()->value(), 500);
}

TEST(AboutPaneTests, everyKindOfCopySaysWhoUpdatesIt)
{
    struct Case {
        InstalledCopy copy;
        bool hasUpdater;
        QString sentence;
        QString explanation;
        QStringList buttons;
    };
    const QString packaged = u"This copy came with a package"_s;
    for (const Case &each :
        {Case{{}, false, u"Built from source"_s, u"Running v"_s, {}},
            {{.kind = InstallKind::package}, false, packaged, u"Running v"_s, {u"Open Software"_s}},
            {{.kind = InstallKind::package, .command = u"apt x"_s}, false, packaged, u" · apt x"_s,
                {u"Copy Command"_s}},
            {{.kind = InstallKind::flatpak, .maker = u"A. Packager"_s}, false,
                u"This copy came as a Flatpak from A. Packager"_s, {}, {}},
            {{.kind = InstallKind::image}, false, u"This copy came as an AppImage"_s, {}, {}},
            {{.kind = InstallKind::bundle, .isInPlace = false}, true,
                u"This copy is not in the Applications folder"_s, {}, {}},
            {{.kind = InstallKind::bundle}, false, u"This build has no updater."_s, {}, {}},
            {{.kind = InstallKind::bundle, .build = 44}, true, u"Not checked yet"_s,
                u"automatic checks are off"_s, {u"Check Now"_s, {}}}}) {
        SCOPED_TRACE(each.sentence.toStdString());
        ModelDesk desk;
        AppModel model = desk.model();
        std::unique_ptr<SimulatedUpdater> updater;
        if (each.hasUpdater) {
            updater = std::make_unique<SimulatedUpdater>(desk.platform.clock());
            updater->checksByItself = false;
        }
        Updates updates(model, {each.copy, std::move(updater)});
        updates.start();

        const AboutPane pane(model);

        const auto *card = pane.findChild<QWidget *>(u"updates"_s);
        QStringList texts;
        for (const auto *label : card->findChildren<QLabel *>())
            texts << (label->text().isEmpty() ? label->accessibleName() : label->text());
        QStringList buttons;
        for (const auto *button : card->findChildren<QAbstractButton *>())
            buttons << button->text();
        EXPECT_TRUE(texts.first().startsWith(each.sentence)) << texts.first().toStdString();
        EXPECT_TRUE(texts.value(1).contains(each.explanation)) << texts.value(1).toStdString();
        EXPECT_EQ(buttons, each.buttons);
    }
}

TEST(AboutPaneTests, aPreviewTurnsThePaneThatIsOpenAlreadyAndLeadsToItsSheet)
{
    ModelDesk desk;
    AppModel model = desk.model();
    const AboutPane pane(model);

    EXPECT_EQ(ScreenRequests::show({.previewUpdateAvailable = u"1.3"_s}, model), CommandResult{});

    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto buttons = pane.findChild<QWidget *>(u"updates"_s)->findChildren<QPushButton *>();
    ASSERT_EQ(buttons.size(), 2) << "Check Now and Install";
    buttons.last()->click();
    EXPECT_EQ(model.pendingUpdatePreview.value(), ViewState::UpdatePreview{u"1.3"_s});
}

TEST_F(UpdateTests, theFocusStaysWithTheUpdatesWhileACheckGoesOn)
{
    updates.start();
    auto *window = new SettingsWindow(model, {});
    window->show(SettingsPane::about);
    window->setVisible(true);
    window->activateWindow();
    QApplication::processEvents();
    auto *check = window->findChild<QWidget *>(u"updates"_s)->findChild<QPushButton *>();
    check->setFocus();

    check->click();

    EXPECT_TRUE(qobject_cast<Switch *>(QApplication::focusWidget())) << "Check Now is disabled";
    step();
    EXPECT_EQ(qobject_cast<QPushButton *>(QApplication::focusWidget())->text(), u"Check Now"_s);
    delete window;
}

TEST(UpdateWindowTests, aSessionHasOneSheetAndAPreviewAnother)
{
    ModelDesk desk;
    AppModel model = desk.model();
    UpdateSession session;
    int cancelled = 0;
    session.onCancel = [&] { ++cancelled; };
    WindowOpener opener(model, {});
    const auto sheets = [] {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QStringList descriptions;
        for (const QWidget *each : QApplication::topLevelWidgets()) {
            if (qobject_cast<const UpdateSheet *>(each) && each->isVisible())
                descriptions << each->accessibleDescription();
        }
        return descriptions;
    };

    opener.openUpdate(session);
    opener.openUpdate(session);
    EXPECT_THAT(sheets(), ElementsAre(u"Looking for a newer Corvane"_s));
    model.pendingUpdatePreview = ViewState::UpdatePreview{u"9.9"_s};
    EXPECT_THAT(sheets(), ElementsAre(u"9.9"_s));
    EXPECT_EQ(cancelled, 1);
    opener.closeUpdate();
    EXPECT_TRUE(sheets().isEmpty());
}

} // namespace corvane
