#include "ModelDesk.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
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

/// The combinations in force, each once per owner.
QList<KeyCombo> held(const AppModel &model)
{
    QList<KeyCombo> combos = model.settings().shortcuts.values();
    for (const WindowLayout &layout : model.layouts()) {
        if (layout.shortcut)
            combos << *layout.shortcut;
    }
    return combos;
}

} // namespace

TEST_F(ShortcutTests, aCombinationOfAnotherOwnerWaitsForTheAnswer)
{
    int registrations = 0;
    model.onShortcutsChanged = [&] { ++registrations; };
    model.assign(free, layout);

    model.assign(free, topHalf);

    ASSERT_TRUE(model.pendingSteal.value());
    EXPECT_EQ(model.pendingSteal.value()->from, layout);
    EXPECT_EQ(model.owner(free), layout);
    EXPECT_EQ(model.title(layout), u"the “Layout” layout");
    model.cancelSteal();
    EXPECT_EQ(model.owner(free), layout);
    model.assign(free, topHalf);
    model.confirmSteal();
    EXPECT_EQ(model.owner(free), topHalf);
    EXPECT_FALSE(model.layouts().first().shortcut);
    EXPECT_FALSE(model.pendingSteal.value());
    EXPECT_EQ(registrations, 3) << "given to the layout, taken, given to the placement";
}

TEST_F(ShortcutTests, neitherOnesOwnNorNoCombinationNorADeletedLayoutTakesAny)
{
    model.assign(leftArrow, leftHalf);
    model.assign(std::nullopt, topHalf);
    EXPECT_FALSE(model.pendingSteal.value());
    EXPECT_FALSE(model.settings().shortcuts.contains(Placement::topHalf));
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
    EXPECT_FALSE(model.layouts().first().shortcut);
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
    EXPECT_EQ(model.settings().preset, u"SizeUp");
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
    model.endRecording();

    EXPECT_EQ(told, (QList{true, false}));
}

RC_GTEST_PROP(ShortcutPropertyTests, noCombinationIsEverHeldByTwoOwners, ())
{
    ModelDesk desk;
    AppModel model = desk.model();
    model.newEmptyLayout();
    model.newEmptyLayout();
    const auto anyLayout = [&] {
        const auto index = *rc::gen::inRange<qsizetype>(0, 3);
        return index < model.layouts().size() ? model.layouts()[index].id : QUuid::createUuid();
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
        const QList<KeyCombo> combos = held(model);
        RC_ASSERT(QSet(combos.begin(), combos.end()).size() == combos.size());
        RC_ASSERT(SettingsStore(desk.folder.path()).inspect().settings.shortcuts
            == model.settings().shortcuts);
    }
    RC_ASSERT(desk.saved() == model.layouts());
}

} // namespace corvane
