#include "ShortcutPreset.h"

#include <QtCore/QSet>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString shown(ShortcutPreset preset, Placement placement)
{
    return map(preset).value(placement).display();
}

} // namespace

TEST(ShortcutPresetTests, noTwoPlacementsShareACombination)
{
    for (const ShortcutPreset preset : shortcutPresets) {
        const ShortcutMap shortcuts = map(preset);

        const QSet<KeyCombo> combos(shortcuts.cbegin(), shortcuts.cend());

        EXPECT_EQ(combos.size(), shortcuts.size()) << qPrintable(title(preset));
    }
}

TEST(ShortcutPresetTests, onlyTheSixthsAndOneMoreGoWithout)
{
    for (const ShortcutPreset preset : shortcutPresets) {
        const ShortcutMap shortcuts = map(preset);
        for (const Placement placement : allPlacements()) {
            const bool without = group(placement) == PlacementGroup::sixths
                || (preset == ShortcutPreset::sizeUp && placement == Placement::almostMaximize);
            EXPECT_EQ(shortcuts.contains(placement), !without) << rawValue(placement).data();
        }
    }
}

TEST(ShortcutPresetTests, thePresetsSwapHalvesAndDisplays)
{
    using enum ShortcutPreset;

    EXPECT_EQ(shown(sizeUp, Placement::leftHalf), u"⌃⌥⌘←"_s);
    EXPECT_EQ(shown(sizeUp, Placement::nextDisplay), u"⌃⌥→"_s);
    EXPECT_EQ(shown(rectangle, Placement::leftHalf), u"⌃⌥←"_s);
    EXPECT_EQ(shown(rectangle, Placement::nextDisplay), u"⌃⌥⌘→"_s);
}

TEST(ShortcutPresetTests, theQuartersTurnClockwise)
{
    QString keys;
    for (const Placement corner :
        {Placement::topLeft, Placement::topRight, Placement::bottomRight, Placement::bottomLeft})
        keys += shown(ShortcutPreset::sizeUp, corner);

    EXPECT_EQ(keys, u"⌃⌥⇧←⌃⌥⇧↑⌃⌥⇧→⌃⌥⇧↓"_s);
}

TEST(ShortcutPresetTests, onlyTheWholeMapMatches)
{
    for (const ShortcutPreset preset : shortcutPresets) {
        ShortcutMap shortcuts = map(preset);
        EXPECT_EQ(matching(shortcuts), preset);

        shortcuts[Placement::center].modifiers |= 1;
        EXPECT_EQ(matching(shortcuts), std::nullopt);

        shortcuts.remove(Placement::center);
        EXPECT_EQ(matching(shortcuts), std::nullopt);
    }
}

TEST(ShortcutPresetTests, aPresetIsFoundAgainByTheNameInTheFile)
{
    for (const ShortcutPreset preset : shortcutPresets)
        EXPECT_EQ(shortcutPresetNamed(rawValue(preset)), preset);
    EXPECT_EQ(shortcutPresetNamed(u"sizeUp"), std::nullopt);
}

} // namespace corvane
