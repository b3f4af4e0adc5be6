#include "KeyCaps.h"
#include "ModelDesk.h"

#include <QtGui/QGuiApplication>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using testing::SizeIs;

namespace {

constexpr quint64 hyper = KeyCombo::control | KeyCombo::option;
constexpr KeyCombo free{0, hyper};
constexpr KeyCombo leftArrow{123, hyper | KeyCombo::command}; // of the left half, by default

class ShortcutTests : public testing::Test
{
protected:
    ModelDesk desk;
    AppModel model = desk.model();
    const ShortcutOwner leftHalf{Placement::leftHalf};
    const ShortcutOwner topHalf{Placement::topHalf};
    const ShortcutOwner layout{model.newEmptyLayout().id};
};

} // namespace

TEST_F(ShortcutTests, aCombinationOfAnotherOwnerWaitsForTheAnswerWhichADeletedOneCannotGet)
{
    int registrations = 0;
    model.onShortcutsChanged = [&] { ++registrations; };
    model.assign(free, layout);

    model.assign(free, topHalf);

    ASSERT_TRUE(model.pendingSteal.value());
    EXPECT_EQ(model.pendingSteal.value()->from, layout);
    model.cancelSteal();
    EXPECT_EQ(model.owner(free), layout);
    model.assign(free, topHalf);
    model.confirmSteal();
    EXPECT_EQ(model.owner(free), topHalf);
    EXPECT_FALSE(model.layouts().first().shortcut || model.pendingSteal.value());
    EXPECT_EQ(registrations, 3) << "given to the layout, taken, given to the placement";

    model.assign(leftArrow, leftHalf);
    EXPECT_FALSE(model.pendingSteal.value()) << "its own";
    model.assign(leftArrow, layout);
    model.deleteLayout(model.layouts().first().id);
    model.confirmSteal();
    EXPECT_EQ(model.owner(leftArrow), leftHalf);
}

TEST_F(ShortcutTests, anUndoneEditDoesNotBringBackAShortcutThatFoundAnotherOwner)
{
    model.assign(free, layout);
    model.assign(std::nullopt, layout);
    model.assign(free, topHalf);

    model.undo();

    EXPECT_EQ(model.owner(free), topHalf);
    ASSERT_THAT(model.notices(), SizeIs(1));
    EXPECT_EQ(model.notices().first().text,
        u"[[⌃⌥A]] belongs to Top Half, so the “Layout” layout has no shortcut now.");
}

TEST_F(ShortcutTests, theUsersOwnShortcutsOutliveTheChangeBetweenPresets)
{
    model.assign(free, leftHalf);
    const ShortcutMap own = model.settings().shortcuts;

    model.applyPreset(ShortcutPreset::rectangle);
    model.applyPreset(ShortcutPreset::sizeUp);

    EXPECT_EQ(model.settings().shortcuts, map(ShortcutPreset::sizeUp));
    model.restoreCustomShortcuts();
    EXPECT_EQ(model.settings().shortcuts, own);
    EXPECT_EQ(model.settings().preset, u"Custom");
}

TEST_F(ShortcutTests, ofTwoOwnersInTheFilesTheFirstKeepsTheShortcut)
{
    WindowLayout rival{.name = u"Work"_s};
    rival.shortcut = leftArrow;
    desk.save({rival});

    const AppModel read = desk.model();

    EXPECT_EQ(read.owner(leftArrow), leftHalf);
    EXPECT_FALSE(read.layouts().first().shortcut);
    EXPECT_THAT(read.notices(), SizeIs(1));
}

TEST_F(ShortcutTests, recordingIsToldWhenItStartsAndEnds)
{
    QList<bool> told;
    model.onRecordingChanged = [&](bool isRecording) { told << isRecording; };

    model.recording = Placement::leftHalf;
    model.recordingLayout = QUuid::createUuid();
    EXPECT_FALSE(model.recording.value()) << "one row at a time";
    model.endRecording();

    EXPECT_EQ(told, (QList{true, false}));
}

TEST(BoardTests, theDesktopsFontIsUsedUnlessItsDescriptionIsOdd)
{
    const QFont before = QGuiApplication::font();
    const std::pair<QString, const char *> fonts[]{{u"DejaVu Sans Book 12.5"_s, "DejaVu Sans/12.5"},
        {u"Noto Sans, 10"_s, "Noto Sans/10"}, {u"Cantarell"_s, "Noto Sans/10"},
        {u"12"_s, "Noto Sans/10"}, {u"Cantarell 0"_s, "Noto Sans/10"}};
    for (const auto &[description, used] : fonts) {
        Board::useFont({.font = description});
        const QFont font = QGuiApplication::font();
        EXPECT_EQ(u"%1/%2"_s.arg(font.family()).arg(font.pointSizeF()), QLatin1StringView(used));
    }
    QGuiApplication::setFont(before);
}

TEST(KeyCapsTests, keysReadAsOnALinuxKeyboard)
{
    const std::tuple<const char16_t *, QString, QString> texts[]{
        {u"⌃⌥⇧⌘←", u"Ctrl+Alt+Shift+Super+Left"_s, u"Control Alt Shift Super Left Arrow"_s},
        {u" ⌘ ⌫ ", u"Super+Backspace"_s, u"Super Backspace"_s},
        {u"F⇧1", u"Shift+F1"_s, u"Shift F1"_s},
        {u"⌃/", u"Ctrl+/"_s, u"Control Slash"_s},
        {u" ", {}, {}},
    };
    for (const auto &[text, plain, spoken] : texts) {
        const QStringList parts = KeyCaps::split(text);
        EXPECT_EQ(KeyCaps::plainText(parts), plain);
        EXPECT_EQ(KeyCaps::spoken(parts), spoken);
    }
    EXPECT_EQ(KeyCombo(123, KeyCombo::modifierMask).parts(), KeyCaps::split(get<0>(texts[0])));
    EXPECT_EQ(KeyCaps::plainText(KeyCombo(200, KeyCombo::control).parts()), u"Ctrl+key 200"_s);
    EXPECT_EQ(
        KeyCaps::plainSentence(u"[[⌃⌥A]] or [[⌘]], then [[x"_s), u"Ctrl+Alt+A or Super, then [[x");
}

RC_GTEST_PROP(ShortcutPropertyTests, noCombinationIsEverHeldByTwoOwners, ())
{
    ModelDesk desk;
    AppModel model = desk.model();
    model.newEmptyLayout();
    model.newEmptyLayout();
    const auto anyLayout = [&] {
        return model.layouts().value(*rc::gen::inRange<qsizetype>(0, 3)).id;
    };
    const auto anyOwner = [&]() -> ShortcutOwner {
        const int placement = *rc::gen::inRange(0, 4);
        return placement < 3 ? ShortcutOwner{Placement(placement)} : ShortcutOwner{anyLayout()};
    };
    const QList<std::function<void()>> steps{
        [&] { model.assign(KeyCombo(quint16(*rc::gen::inRange(122, 127)), hyper), anyOwner()); },
        [&] { model.assign(leftArrow, anyOwner()); },
        [&] { model.assign(std::nullopt, anyOwner()); },
        [&] { model.confirmSteal(); },
        [&] { model.applyPreset(*rc::gen::elementOf(shortcutPresets)); },
        [&] { model.restoreCustomShortcuts(); },
        [&] { model.undo(); },
        [&] { model.redo(); },
        [&] { model.deleteLayout(anyLayout()); },
        [&] { model.duplicateLayout(anyLayout()); },
        [&] { model.revertLayout(anyLayout()); },
        [&] { model.saveLayout(anyLayout()); },
    };

    for (int i = 0; i < 40; ++i) {
        steps[*rc::gen::inRange<qsizetype>(0, steps.size())]();
        QList<KeyCombo> combos = model.settings().shortcuts.values();
        for (const WindowLayout &layout : model.layouts())
            combos += layout.shortcut ? QList{*layout.shortcut} : QList<KeyCombo>();
        RC_ASSERT(QSet(combos.begin(), combos.end()).size() == combos.size());
        RC_ASSERT(SettingsStore(desk.folder.path()).inspect().settings.shortcuts
            == model.settings().shortcuts);
    }
    RC_ASSERT(desk.saved() == model.layouts());
}

} // namespace corvane
