#include "Disclosure.h"
#include "ModelDesk.h"
#include "ReportContentsList.h"
#include "ReportSession.h"
#include "ReportSheet.h"
#include "ReportWiring.h"
#include "SettingsWindow.h"
#include "Waiting.h"
#include "WindowOpener.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QStandardPaths>
#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Outcome = expected<QString, QString>;
using Phase = ReportSheetPhase;

constexpr QLatin1StringView draftFile{"report-draft.txt"};
const QString unreached = u"The report server could not be reached."_s;
const QString full = u"The disk is full."_s;
const QString onDesktop =
    QStandardPaths::writableLocation(QStandardPaths::DesktopLocation) + u"/report.txt"_s;

/// A session and its sheet, in a world in which the test says what becomes of a report.
struct ReportDesk {
    ReportDesk() { open(); }
    ~ReportDesk() { closeSheet(); }

    void open(const QString &added = {})
    {
        session->begin(added);
        sheet = makeReportSheet(*session, nullptr);
        sheet->open();
        sheet->activateWindow();
        QApplication::processEvents();
    }
    void closeSheet()
    {
        if (sheet)
            sheet->reject();
        sheet = nullptr;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void restart(bool hasAddress = true)
    {
        closeSheet();
        session.emplace(steps(hasAddress), folder.path());
        open();
    }
    ReportSession::Steps steps(bool hasAddress = true)
    {
        ReportSession::Steps steps{.build = [this](auto onEnd) { onBuilt = onEnd; },
            .send = {},
            .cancel = [this] { ++cancelled; },
            .save =
                [this](const ProblemReport &report) {
                    saved << report.text;
                    return saving;
                }};
        if (hasAddress)
            steps.send = [this](const QByteArray &document, auto onEnd) {
                sent << document;
                onSent = onEnd;
            };
        return steps;
    }

    void write(const QString &text) const { sheet->form().field().setPlainText(text); }
    [[nodiscard]] QPushButton *button(const QString &title) const
    {
        for (auto *each : sheet->findChildren<QPushButton *>()) {
            if (each->isVisible() && each->text() == title)
                return each;
        }
        return nullptr;
    }
    void press(int key, Qt::KeyboardModifiers held = {}, bool repeats = false) const
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(
                type, key, held, key < 0x100 ? QString(QChar(key)) : QString(), repeats);
            QApplication::sendEvent(sheet->windowHandle(), &event);
        }
    }
    [[nodiscard]] QStringList shown() const
    {
        QStringList texts;
        for (const auto *label : sheet->findChildren<QLabel *>()) {
            if (label->isVisible())
                texts << label->text();
        }
        return texts;
    }
    /// The text of the control that has the focus: its words, or what is selected there.
    [[nodiscard]] QString focused() const
    {
        const QWidget *focus = sheet->focusWidget();
        if (const auto *each = qobject_cast<const QPushButton *>(focus))
            return each->text();
        const auto *line = qobject_cast<const QLineEdit *>(focus);
        return line ? line->selectedText() : focus->accessibleName();
    }
    [[nodiscard]] QString defaultButton() const
    {
        for (const auto *each : sheet->findChildren<QPushButton *>()) {
            if (each->isVisible() && each->isDefault())
                return each->text();
        }
        return {};
    }

    StoreFolder folder;
    SimulatedPlatform platform;
    std::function<void(const ProblemReport &)> onBuilt;
    std::function<void(const Outcome &)> onSent;
    QByteArrayList sent;
    QStringList saved;
    Outcome saving = onDesktop;
    int cancelled = 0;
    std::optional<ReportSession> session{std::in_place, steps(), folder.path()};
    ReportSheet *sheet = nullptr;
};

struct ReportSheetTests : testing::Test, ReportDesk {
};

} // namespace

TEST_F(ReportSheetTests, everyEndSaysWhatBecameOfTheReportAndLeadsOn)
{
    struct Case {
        Outcome sending;
        Outcome saving;
        bool hasAddress;
        QStringList shown;
        QString focused;
        QString byDefault;
        bool isKept;
    };
    const QString noAddress = u"This copy of Corvane has no address to send reports to."_s;
    for (const Case &each :
        {Case{u"C-1"_s, onDesktop, true, {u"Sent"_s, u"Thanks."_s}, u"C-1"_s, u"Close"_s, false},
            {unexpected(unreached), onDesktop, true, {u"Saved on your Desktop"_s, unreached},
                u"Show in Finder"_s, u"Show in Finder"_s, false},
            {unexpected(unreached), u"/elsewhere/report.txt"_s, true, {u"Saved"_s, unreached},
                u"Show in Finder"_s, u"Show in Finder"_s, false},
            {unexpected(unreached), unexpected(full), true,
                {u"Not sent"_s, unreached + u" It could not be saved to a file, either: "_s + full},
                u"Try Again"_s, u"Try Again"_s, true},
            {unexpected(unreached), onDesktop, false, {u"Saved on your Desktop"_s, noAddress},
                u"Show in Finder"_s, u"Show in Finder"_s, false}}) {
        SCOPED_TRACE(each.shown.join(u", "_s).toStdString());
        restart(each.hasAddress);
        saving = each.saving;
        write(u"It broke."_s);
        EXPECT_EQ(focused(), u"What you saw"_s);

        button(each.hasAddress ? u"Send"_s : u"Save"_s)->click();
        EXPECT_EQ(focused(), u"Cancel"_s);
        EXPECT_TRUE(sheet->form().field().isReadOnly());
        onBuilt({});
        if (each.hasAddress)
            onSent(each.sending);

        for (const QString &text : each.shown)
            EXPECT_TRUE(shown().contains(text)) << qPrintable(text);
        EXPECT_EQ(focused(), each.focused);
        EXPECT_EQ(defaultButton(), each.byDefault);
        EXPECT_FALSE(sheet->form().isVisible());
        EXPECT_EQ(folder.read(draftFile).has_value(), each.isKept);
        EXPECT_EQ(session->text().isEmpty(), !each.isKept);
    }
}

TEST_F(ReportSheetTests, whatTheUserWroteIsTriedAgainCopiedAndKeptWhateverFails)
{
    saving = unexpected(full);
    onBuilt({});
    write(u"It broke."_s);
    button(u"Send"_s)->click();
    onSent(unexpected(unreached));

    button(u"Copy Report"_s)->click();
    EXPECT_TRUE(button(u"Copied"_s));
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"It broke."_s));
    restart();
    EXPECT_EQ(sheet->text(), u"It broke."_s) << "the program was started again";
    session->begin(u"Again."_s);
    EXPECT_EQ(sheet->text(), u"It broke.\n\nAgain."_s);

    onBuilt({});
    button(u"Send"_s)->click();
    session->begin(u"And once more."_s);
    onSent(unexpected(unreached));
    button(u"Try Again"_s)->click();
    onSent(u"C-1"_s);
    EXPECT_EQ(QJsonDocument::fromJson(sent.last())[u"text"_s].toString(),
        u"It broke.\n\nAgain.\n\nAnd once more."_s);
    button(u"Close"_s)->click();
    open();
    EXPECT_EQ(sheet->text(), QString());
    EXPECT_FALSE(folder.read(draftFile));
}

TEST_F(ReportSheetTests, whatIsAddedWhileAReportIsOnItsWayIsTheBeginningOfTheNext)
{
    onBuilt({});
    write(u"One."_s);
    button(u"Send"_s)->click();

    session->begin(u"Two."_s);
    onSent(u"C-1"_s);

    EXPECT_TRUE(shown().contains(u"Sent"_s));
    EXPECT_EQ(QJsonDocument::fromJson(sent.last())[u"text"_s].toString(), u"One."_s);
    EXPECT_EQ(folder.read(draftFile), "Two.");
}

TEST_F(ReportSheetTests, closingTheSheetCancelsTheSendingAndKeepsTheText)
{
    onBuilt({});
    write(u"It broke."_s);
    button(u"Send"_s)->click();
    const auto late = onSent;

    press(Qt::Key_Escape);
    late(u"C-1"_s);

    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(folder.read(draftFile), "It broke.");
    EXPECT_EQ(folder.mode(draftFile), mode_t(0600));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open();
    EXPECT_EQ(sheet->text(), u"It broke."_s);
    EXPECT_EQ(session->phase(), Phase());
}

TEST_F(ReportSheetTests, aDiskThatIsFullIsToldAndLosesNothing)
{
    const QString blocked = folder.path(draftFile);
    QDir().mkpath(blocked); // where no file can be put

    write(u"It broke."_s);

    EXPECT_TRUE(desktop::waitUntil([&] {
        QApplication::processEvents();
        return shown().join(u' ').contains(u"could not keep what you wrote"_s);
    }));
    closeSheet();
    QDir().rmdir(blocked);
    open();
    EXPECT_EQ(sheet->text(), u"It broke."_s);
    closeSheet();
    EXPECT_EQ(folder.read(draftFile), "It broke.");
    open();
    EXPECT_EQ(session->draft().problem(), QString());
    write({});
    closeSheet();
    EXPECT_THAT(folder.names(), IsEmpty()) << "the user threw it away";
}

TEST_F(ReportSheetTests, keysThatAreHeldFromBeforeAreNoTextAndReturnPressesTheFocusedButton)
{
    QPlainTextEdit &field = sheet->form().field();

    press(Qt::Key_X, {}, true);
    EXPECT_EQ(field.toPlainText(), QString());
    press(Qt::Key_X);
    press(Qt::Key_X, {}, true);
    EXPECT_EQ(field.toPlainText(), u"XX"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Show what is sent"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->findChild<Disclosure *>()->isChecked());
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), u"Cancel"_s);
    press(Qt::Key_Return);

    EXPECT_FALSE(sheet->isVisible());
    EXPECT_THAT(sent, IsEmpty());
}

RC_GTEST_PROP(ReportContentsProperties, theListShowsTheDocumentLineByLineAndNothingElse, ())
{
    const auto anyText = [] {
        return QString::fromStdString(*rc::gen::nonEmpty(rc::gen::string<std::string>()));
    };
    ProblemReport report{.date = noon, .text = u"mine"_s, .facts = {}, .events = {}};
    for (int i = *rc::gen::inRange(0, 5); i > 0; --i)
        report.facts.append({u"key%1"_s.arg(i), u"Title %1"_s.arg(i), anyText()});
    for (int i = *rc::gen::inRange(0, 5); i > 0; --i)
        report.events.append({noon.addSecs(i), u"kind"_s, anyText()});
    report.isShortened = *rc::gen::arbitrary<bool>();

    QJsonObject document = QJsonDocument::fromJson(report.toJson()).object();
    QStringList expected{u"Date: "_s + noon.toLocalTime().toString(Qt::ISODate)};
    RC_ASSERT(QDateTime::fromString(document.take(u"date"_s).toString(), Qt::ISODate) == noon);
    RC_ASSERT(document.take(u"text"_s) == u"mine"_s);
    const QJsonObject facts = document.take(u"facts"_s).toObject();
    for (const ProblemReport::Fact &fact : report.facts)
        expected << fact.title + u": "_s + facts[fact.key].toString();
    if (document.take(u"isShortened"_s).toBool())
        expected << u"Older events were left out."_s;
    for (const QJsonValue &event : document.take(u"events"_s).toArray())
        expected << ProblemReport::line(*FlightRecorder::Event::fromJson(event));
    document.remove(u"format"_s);
    RC_ASSERT(document.isEmpty() && facts.size() == report.facts.size());

    ReportContentsList list;
    list.setReport(report);
    list.selectAll();
    list.copy();
    RC_ASSERT(QGuiApplication::clipboard()->text() == expected.join(u'\n'));
}

TEST(ReportOpeningTests, aRequestOpensOneSheetInFrontOverTheSettingsAndGoesOnWithItsText)
{
    ModelDesk desk;
    AppModel model = desk.model();
    const WindowOpener opener(model, {});
    const auto sheets = [] {
        QList<ReportSheet *> found;
        for (QWidget *each : QApplication::topLevelWidgets()) {
            if (auto *sheet = qobject_cast<ReportSheet *>(each))
                found << sheet;
        }
        return found;
    };
    model.post(
        {.id = u"crash"_s, .text = u"It ended."_s, .reveal = {}, .offer = Notice::Offer::report});
    model.pendingPane = u"general"_s;
    QApplication::processEvents();
    QWidget *settings = nullptr;
    for (QWidget *each : QApplication::topLevelWidgets())
        settings = qobject_cast<SettingsWindow *>(each) ? each : settings;
    for (auto *each : settings->findChildren<QPushButton *>()) {
        if (each->text() == u"Report a Problem…"_s && each->isVisible())
            each->click();
    }
    QApplication::processEvents();
    EXPECT_EQ(sheets().size(), 1);
    EXPECT_EQ(sheets().first()->parentWidget(), settings);

    model.pendingActivation = u"token"_s;
    model.pendingReport = u"It broke."_s;
    QApplication::processEvents();

    EXPECT_EQ(sheets().size(), 1);
    EXPECT_EQ(sheets().first()->text(), u"It broke."_s);
    EXPECT_THAT(desk.platform.ownWindows().broughtForward, Contains(u"token"_s));
    settings->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(sheets(), IsEmpty());
    model.pendingReport = QString();
    EXPECT_EQ(sheets().first()->text(), u"It broke."_s) << "it went with the window";
    sheets().first()->form().field().clear();
    sheets().first()->reject();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace corvane
