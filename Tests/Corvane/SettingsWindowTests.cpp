#include "KeySentence.h"
#include "ModelDesk.h"
#include "NoticeStrip.h"
#include "PhysicalKey.h"
#include "SettingsWindow.h"
#include "ShortcutRecorder.h"
#include "StealSheet.h"
#include "Switch.h"
#include "TremorLogModel.h"
#include "Waiting.h"
#include "WindowOpener.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using testing::ElementsAre;

namespace {

constexpr quint64 shift = KeyCombo::shift;
constexpr quint64 control = KeyCombo::control;
constexpr quint64 option = KeyCombo::option;
constexpr quint64 command = KeyCombo::command;
constexpr quint16 keyK = 40;

/// The settings window over a model on a simulated desk.
struct WindowDesk {
    WindowDesk()
    {
        window->setVisible(true);
        QApplication::processEvents();
    }
    ~WindowDesk()
    {
        delete window;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void press(quint16 keyCode, quint64 modifiers) const
    {
        Qt::KeyboardModifiers held;
        for (const auto &[modifier, flag] :
            {std::pair(shift, Qt::ShiftModifier), {control, Qt::ControlModifier},
                {option, Qt::AltModifier}, {command, Qt::MetaModifier}})
            held.setFlag(flag, modifiers & modifier);
        const auto key = PhysicalKey::withVirtualKeyCode(keyCode).value();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_unknown, held, key.xkbKeycode(), 0, 0);
            QApplication::sendEvent(window, &event);
        }
        QApplication::processEvents();
    }
    [[nodiscard]] QList<ShortcutRecorder *> recorders(bool recording) const
    {
        QList<ShortcutRecorder *> found = window->findChildren<ShortcutRecorder *>();
        found.removeIf([&](const auto *each) { return each->isRecording() != recording; });
        return found;
    }
    [[nodiscard]] std::optional<KeyCombo> combo(Placement placement) const
    {
        const ShortcutMap &shortcuts = model.settings().shortcuts;
        return shortcuts.contains(placement) ? std::optional(shortcuts[placement]) : std::nullopt;
    }

    ModelDesk desk;
    AppModel model = desk.model();
    SettingsWindow *window = new SettingsWindow(model, {});
};

struct SettingsWindowTests : testing::Test, WindowDesk {
    [[nodiscard]] QStringList shownNotices() const
    {
        QStringList texts;
        for (const NoticeStrip *strip : window->findChildren<NoticeStrip *>()) {
            if (!strip->isHidden())
                texts << strip->notice().text;
        }
        return texts;
    }
};

} // namespace

TEST_F(SettingsWindowTests, aRowRecordsKeysByTheirRules)
{
    window->show(SettingsPane::shortcuts);
    const auto before = combo(Placement::topHalf);
    struct Case {
        quint16 keyCode;
        quint64 modifiers;
        std::optional<KeyCombo> combo;
        bool goesOn = false;
    };
    for (const auto &[keyCode, modifiers, expected, goesOn] :
        {Case{keyK, shift | option, before, true}, Case{keyK, 0, before, true},
            Case{53, command, before}, Case{48, 0, before}, Case{51, 0, {}}, Case{117, 0, {}},
            Case{51, command, KeyCombo(51, command)},
            Case{keyK, control, KeyCombo(keyK, control)}}) {
        SCOPED_TRACE(KeyCombo(keyCode, modifiers).parts().join(u' ').toStdString());
        model.assign(before, {Placement::topHalf});
        model.recording = Placement::topHalf;
        ASSERT_EQ(recorders(true).size(), 1);

        press(keyCode, modifiers);

        EXPECT_EQ(combo(Placement::topHalf), expected);
        EXPECT_EQ(model.isRecording(), goesOn);
    }
}

TEST_F(SettingsWindowTests, whateverTheUserTurnsToEndsTheRecording)
{
    const std::function<void()> turns[]{[this] { window->show(SettingsPane::about); },
        [this] { model.pendingPane = u"general"_s; },
        [this] {
            QEvent away(QEvent::WindowDeactivate);
            QApplication::sendEvent(window, &away);
        },
        [this] { window->close(); }};
    for (const auto &turn : turns) {
        window->show(SettingsPane::shortcuts);
        model.recording = Placement::center;

        turn();
        QApplication::processEvents();

        EXPECT_FALSE(model.isRecording());
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window = nullptr;
}

TEST_F(SettingsWindowTests, requestsAndNoticesAreShownAndTakenOff)
{
    model.pendingPane = u"nowhere"_s;
    EXPECT_EQ(window->pane(), SettingsPane::general);
    EXPECT_EQ(model.pendingPane.value(), QString());
    model.pendingPane = u"about"_s;
    EXPECT_EQ(window->pane(), SettingsPane::about);

    for (const QString &text : {u"first"_s, u"again"_s})
        model.post({u"a"_s, text, {}});
    model.post({u"b"_s, u"other"_s, {}});
    EXPECT_THAT(shownNotices(), ElementsAre(u"again"_s, u"other"_s));
}

TEST_F(SettingsWindowTests, anEditOfTheFileIsShownAndTakesNothingFromTheUsersOwn)
{
    const QString file = u"settings.json"_s;
    QSlider &gap = *window->findChild<QSlider *>();
    Switch &cycling = *window->findChild<Switch *>();
    gap.setSliderDown(true);
    gap.setSliderPosition(20);

    desk.folder.write(file, R"({"gap": 4, "cycling": false})");
    model.refreshFiles();

    EXPECT_FALSE(cycling.isChecked());
    EXPECT_EQ(gap.value(), 20);
    gap.setSliderDown(false);
    EXPECT_EQ(model.settings().gap, 20);
    EXPECT_FALSE(model.settings().cycling);

    desk.folder.write(file, "{");
    model.refreshFiles();

    EXPECT_EQ(shownNotices().size(), 1);
    EXPECT_EQ(gap.value(), 20);
    cycling.click();
    const Settings saved = SettingsStore(desk.folder.path()).inspect().settings;
    EXPECT_EQ(saved.gap, 20);
    EXPECT_TRUE(saved.cycling);
}

TEST(WindowOpenerTests, requestsOpenOneWindowInFrontWithTheTokenOfWhoAsked)
{
    ModelDesk desk;
    AppModel model = desk.model();
    const WindowOpener opener(model, {});
    for (const QString &token : {u"first"_s, u"second"_s}) {
        model.pendingActivation = token;
        model.pendingPane = u"about"_s;
        QApplication::processEvents();
    }
    EXPECT_EQ(std::ranges::count_if(QApplication::topLevelWidgets(),
                  [](const QWidget *each) { return qobject_cast<const SettingsWindow *>(each); }),
        1);
    EXPECT_THAT(desk.platform.ownWindows().broughtForward, ElementsAre(u"first"_s, u"second"_s));
    EXPECT_EQ(model.pendingActivation.value(), QString());
}

RC_GTEST_PROP(SettingsWindowProperties, noStormLeavesAShortcutWithTwoOwnersOrAKeyboardTaken, ())
{
    WindowDesk desk;
    const auto any = [](int count) { return *rc::gen::inRange(0, count); };
    desk.model.newEmptyLayout();
    for (int step = any(40); step > 0; --step) {
        QList<ShortcutRecorder *> idle = desk.recorders(false);
        idle.removeIf([](const auto *each) { return !each->isVisible(); });
        switch (any(7)) {
        case 0:
            desk.window->show(settingsPanes[size_t(any(int(settingsPanes.size())))]);
            break;
        case 1:
        case 2:
            if (!idle.isEmpty())
                idle[any(int(idle.size()))]->click();
            break;
        case 3:
            desk.press(quint16(any(50)), quint64(any(16)) << 17);
            break;
        case 4:
            if (StealSheet *sheet = desk.window->findChild<StealSheet *>())
                any(2) ? sheet->accept() : sheet->reject();
            break;
        case 5:
            desk.model.applyPreset(shortcutPresets[size_t(any(2))]);
            desk.model.restoreCustomShortcuts();
            break;
        default:
            any(2) ? desk.model.post({u"a"_s, u"text"_s, {}}) : desk.model.dismissNotice(u"a"_s);
            desk.model.undo();
        }
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QList<KeyCombo> held = desk.model.settings().shortcuts.values();
        for (const WindowLayout &layout : desk.model.layouts()) {
            if (layout.shortcut)
                held << *layout.shortcut;
        }
        for (qsizetype one = 0; one < held.size(); ++one)
            RC_ASSERT(held.indexOf(held[one], one + 1) < 0);
        RC_ASSERT(desk.recorders(true).size() == (desk.model.isRecording() ? 1 : 0));
        RC_ASSERT(
            desk.desk.platform.ownWindows().takingAllKeys.isEmpty() != desk.model.isRecording());
        RC_ASSERT(desk.model.pendingSteal.value().has_value()
            == (desk.window->findChild<StealSheet *>() != nullptr));
    }
    desk.window->close();
    RC_ASSERT(!desk.model.isRecording());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    desk.window = nullptr;
}

TEST(KeySentenceTests, keysStandBetweenWordsAndKeepWhatFollowsThem)
{
    using Word = KeySentence::Word;
    using Keys = KeySentence::Keys;
    EXPECT_THAT(KeySentence::parse(u"Press  [[⌃⌥←]]. Now (([[⌘]] or [[x"_s),
        ElementsAre(KeySentence::Piece(Word{u"Press"_s}), Keys{u"⌃⌥←"_s, u"."_s}, Word{u"Now"_s},
            Word{u"(("_s}, Keys{u"⌘"_s}, Word{u"or"_s}, Word{u"[[x"_s}));
    EXPECT_EQ(KeySentence::spoken(u"Off ([[⌥⇥]])."_s), u"Off (Alt Tab).");

    const WordFlow flow{.space = 5, .lineSpacing = 2};
    const QList<WordFlow::Piece> pieces{
        {{40, 10}}, {{40, 20}}, {{10, 10}, false}, {{300, 10}}, {{10, 10}}};
    EXPECT_THAT(flow.rects(pieces, 100),
        ElementsAre(QRectF(0, 5, 40, 10), QRectF(45, 0, 40, 20), QRectF(85, 5, 10, 10),
            QRectF(0, 22, 300, 10), QRectF(0, 34, 10, 10)));
    const auto page = flow.rects({{{40, 10}}, {{30, 10}}}, 100, Qt::RightToLeft, Qt::LeftToRight);
    EXPECT_THAT(page, ElementsAre(QRectF(25, 0, 40, 10), QRectF(70, 0, 30, 10)));
}

TEST(KeySentenceTests, aLinkStandsAmongTheWordsAndIsAButtonOfItsOwn)
{
    KeySentence sentence({});
    QString followed;
    QObject::connect(&sentence, &KeySentence::linkFollowed, &sentence,
        [&followed](const QString &address) { followed = address; });

    sentence.setLinkedSentence(u"Press [[⌘]] in [The Panes](corvane://settings/x). [Or] (not)"_s);
    sentence.resize(sentence.sizeHint());

    EXPECT_EQ(sentence.accessibleName(), u"Press Super in The Panes. [Or] (not)");
    auto *link = sentence.findChild<QAbstractButton *>();
    ASSERT_TRUE(link);
    EXPECT_TRUE(sentence.rect().contains(link->geometry()));
    link->click();
    EXPECT_EQ(followed, u"corvane://settings/x");
    sentence.setSentence(u"[a](b)"_s);
    EXPECT_EQ(sentence.accessibleName(), u"[a](b)") << "names that users give lead nowhere";
}

TEST(KeySentenceTests, itIsMeasuredAnewInAnotherFontAndWithOtherWords)
{
    KeySentence sentence(u"Press [[⌃⌥←]]"_s);
    const QSize small = sentence.sizeHint();

    QFont large = sentence.font();
    large.setPixelSize(2 * large.pixelSize());
    sentence.setFont(large);
    const QSize inLarge = sentence.sizeHint();
    sentence.setSentence(u"Press [[⌃⌥←]] twice"_s);

    EXPECT_GT(inLarge.width(), small.width());
    EXPECT_GT(sentence.sizeHint().width(), inLarge.width());
}

TEST(TremorLogTests, entriesStandUnderTheirDayTheNewestFirstAsFarAsTheFilterLetsThem)
{
    const QDateTime midday(QDate(2026, 11, 20), QTime(12, 0));
    const auto moved = [&](int hours, const QString &app) {
        return ActivityEntry::moved({midday.addSecs(3600 * hours), Placement::leftHalf, app,
            u"Letter"_s, {0, 0, 10, 10}, {0, 0, 20, 20}, u"Laptop"_s});
    };
    const ActivityEntry refused = ActivityEntry::refused(
        Placement::topHalf, u"Chess"_s, u"is in full screen"_s, {}, midday.addSecs(60));
    TremorLogModel log;
    const auto texts = [&] {
        QStringList shown;
        for (int row = 0; row < log.rowCount(); ++row) {
            const TremorLogModel::Row &each = log.row(log.index(row));
            shown << (each.entry ? each.entry->app : TremorLogModel::counts(each));
        }
        return shown;
    };
    log.setEntries({moved(0, u"Editor"_s), refused, moved(24, u"Browser"_s)});
    EXPECT_THAT(texts(),
        ElementsAre(
            u"1 move(s)"_s, u"Browser"_s, u"1 move(s) · 1 refused"_s, u"Chess"_s, u"Editor"_s));
    EXPECT_TRUE(log.row(log.index(3)).isFirst && log.row(log.index(4)).isLast);
    log.setFilter(TremorLogModel::Kind::refused, {});
    EXPECT_THAT(texts(), ElementsAre(u"1 refused"_s, u"Chess"_s));
    log.setFilter(TremorLogModel::Kind::all, u"brow"_s);
    EXPECT_THAT(texts(), ElementsAre(u"1 move(s)"_s, u"Browser"_s));
    EXPECT_EQ(log.data(log.index(1), Qt::AccessibleTextRole).toString(),
        u"Sat Nov 21, 12:00 PM, Left Half, Browser — Letter, Laptop, from 0, 0, 10 × 10 to 0, 0, "
        u"20 × 20");
}

TEST_F(SettingsWindowTests, aLayoutThatWasCapturedElsewhereIsNamedAtOnceWhateverIsShown)
{
    std::ignore = model.newEmptyLayout();
    for (const bool wasShown : {false, true}) {
        SCOPED_TRACE(wasShown);
        const WindowLayout captured = model.newEmptyLayout();
        window->show(wasShown ? SettingsPane::layouts : SettingsPane::general);

        model.pendingRename = captured.id;
        model.pendingPane = u"layouts"_s;
        QApplication::processEvents();

        const auto *field = qobject_cast<QLineEdit *>(window->focusWidget());
        ASSERT_TRUE(field);
        EXPECT_EQ(field->text(), captured.name);
        EXPECT_EQ(field->selectedText(), captured.name);
    }
}

TEST_F(SettingsWindowTests, theDesktopShowsTheChosenLayoutUntilTheUserIsDoneWithIt)
{
    const auto overlays = [] {
        QList<QWindow *> windows = QGuiApplication::topLevelWindows();
        windows.removeIf([](QWindow *each) { return !each->inherits("corvane::PaneOverlay"); });
        return windows.size();
    };
    desk.plugSecond();
    desk.settle();
    const WindowLayout both = model.newEmptyLayout();
    const WindowLayout other = model.newEmptyLayout();
    window->show(SettingsPane::layouts);
    model.pendingLayout = both.id;
    QWidget *picture = nullptr;
    for (QWidget *each : window->findChildren<QWidget *>())
        picture = each->inherits("corvane::LayoutPicture") ? each : picture;
    QAbstractButton *button = nullptr;
    for (auto *each : window->findChildren<QPushButton *>())
        button = each->accessibleName() == u"Show on Desktop" ? each : button;
    const auto space = [&](QEvent::Type type, bool repeats) {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, u" "_s, repeats);
        QApplication::sendEvent(picture, &event);
    };
    const std::function<void()> ends[]{[&] { space(QEvent::KeyRelease, false); },
        [&] { button->click(); }, [&] { window->show(SettingsPane::about); },
        [&] { model.deleteLayout(both.id); }};
    for (const auto &end : ends) {
        window->show(SettingsPane::layouts);
        if (&end == &ends[0])
            space(QEvent::KeyPress, false);
        else
            button->click();
        const auto begun = overlays();
        space(QEvent::KeyRelease, false); // of a repetition that nobody knows for one
        space(QEvent::KeyPress, true);
        desk.platform.desktop().unplug(desk.laptop);
        desk.settle();
        const auto unplugged = overlays();
        const Rect frame = desk.platform.ownWindows().overlays.last();
        desk.laptop = desk.platform.desktop().plug({{0, 0, 1440, 900}, u"Laptop"_s});
        desk.settle();

        EXPECT_THAT((std::array{begun, unplugged, overlays()}), ElementsAre(2, 1, 2));
        EXPECT_EQ(frame, (Rect{1440, 0, 1920, 1080}));
        end();
        EXPECT_TRUE(desktop::waitUntil([&] {
            QApplication::processEvents();
            return overlays() == 0;
        }));
        EXPECT_FALSE(button->isChecked());
    }
}

} // namespace corvane
