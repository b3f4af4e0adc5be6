#include "KeyCaps.h"

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

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

TEST(BoardTests, theDesktopsFontIsUsedUnlessItsDescriptionIsOdd)
{
    const QFont before = QGuiApplication::font();
    const auto used = [](const QString &description) {
        Board::useFont({.font = description});
        const QFont font = QGuiApplication::font();
        return u"%1/%2"_s.arg(font.family()).arg(font.pointSizeF());
    };

    EXPECT_EQ(used(u"DejaVu Sans Book 12.5"_s), u"DejaVu Sans/12.5");
    EXPECT_EQ(used(u"Noto Sans, 10"_s), u"Noto Sans/10");
    for (const QString &odd : {u""_s, u"Cantarell"_s, u"12"_s, u"Cantarell 0"_s})
        EXPECT_EQ(used(odd), u"Noto Sans/10") << qPrintable(odd);
    QGuiApplication::setFont(before);
}

} // namespace corvane
