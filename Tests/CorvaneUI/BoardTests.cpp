#include "KeyCaps.h"

#include <QtGui/QColor>

#include <gtest/gtest.h>

namespace corvane {

namespace {

constexpr double legible = 4.5; // to 1

class PaletteTests : public testing::TestWithParam<DesktopLook>
{
protected:
    const Board::Palette &palette = Board::palette(GetParam());
};

} // namespace

TEST_P(PaletteTests, everyTextCanBeReadOnEveryGround)
{
    for (const QColor &text : {palette.fore, palette.muted, palette.faint, palette.accentType,
             palette.error, palette.ready, palette.attention}) {
        for (const QColor &ground : {palette.ground, palette.sheet, palette.raised}) {
            EXPECT_GE(Board::contrast(text, ground), legible)
                << qPrintable(text.name()) << " on " << qPrintable(ground.name());
        }
    }
    EXPECT_GE(Board::contrast(palette.onAccent, palette.accent), legible);
    EXPECT_GE(Board::contrast(palette.fore, palette.control), legible);
    const QColor litCap = Board::blended(KeyCaps::litFill(), palette.accent);
    EXPECT_GE(Board::contrast(palette.onAccent, litCap), legible);
}

TEST_P(PaletteTests, highContrastLeavesNoTextAndNoLineFaint)
{
    const bool isFaint = palette.muted != palette.fore || palette.faint != palette.fore
        || palette.hairline != palette.fore || palette.edge != palette.fore;

    EXPECT_NE(isFaint, GetParam().hasHighContrast);
}

INSTANTIATE_TEST_SUITE_P(Looks, PaletteTests,
    testing::Values(DesktopLook{false, false}, DesktopLook{true, false}, DesktopLook{false, true},
        DesktopLook{true, true}));

TEST(BoardTests, contrastSpansFromOneToTwentyOne)
{
    EXPECT_NEAR(Board::contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(Board::contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(Board::contrast(Qt::red, Qt::red), 1, 0.01);
}

} // namespace corvane
