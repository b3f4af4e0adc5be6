#include "ShortcutPreset.h"

#include <QtCore/QSet>

#include <gtest/gtest.h>

namespace corvane {

TEST(ShortcutPresetTests, noTwoPlacementsShareACombination)
{
    for (const ShortcutPreset preset : shortcutPresets) {
        const ShortcutMap shortcuts = map(preset);

        const QSet<KeyCombo> combos(shortcuts.cbegin(), shortcuts.cend());

        EXPECT_EQ(combos.size(), shortcuts.size()) << qPrintable(title(preset));
    }
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

} // namespace corvane
