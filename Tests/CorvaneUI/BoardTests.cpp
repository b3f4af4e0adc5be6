#include "KeyCaps.h"

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double legible = 4.5; // to 1

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

/// As a screen shows `over`, which may be translucent, on an opaque ground.
QColor blended(const QColor &over, const QColor &ground)
{
    const auto mix = [share = over.alphaF()](
                         float above, float below) { return above * share + below * (1 - share); };
    return QColor::fromRgbF(mix(over.redF(), ground.redF()), mix(over.greenF(), ground.greenF()),
        mix(over.blueF(), ground.blueF()));
}

/// By WCAG, from 1 to 21.
double contrast(const QColor &text, const QColor &ground)
{
    const double first = luminance(text) + 0.05;
    const double second = luminance(ground) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

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
            EXPECT_GE(contrast(text, ground), legible)
                << qPrintable(text.name()) << " on " << qPrintable(ground.name());
        }
    }
    EXPECT_GE(contrast(palette.onAccent, palette.accent), legible);
    EXPECT_GE(contrast(palette.fore, palette.control), legible);
    const QColor litCap = blended(KeyCaps::litFill(), palette.accent);
    EXPECT_GE(contrast(palette.onAccent, litCap), legible);
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
