#include "KeyCaps.h"
#include "KeyCombo.h"

#include <QtGui/QColor>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

TEST(BoardTests, everyTextCanBeReadOnEveryGroundAndHighContrastLeavesNoneFaint)
{
    constexpr double legible = 4.5; // to 1
    for (const DesktopLook &look :
        {DesktopLook{false, false}, {true, false}, {false, true}, {true, true}}) {
        const Board::Palette &palette = Board::palette(look);
        for (const QColor &text : {palette.fore, palette.muted, palette.faint, palette.accentType,
                 palette.error, palette.ready, palette.attention}) {
            for (const QColor &ground : {palette.ground, palette.sheet, palette.raised})
                EXPECT_GE(contrast(text, ground), legible)
                    << qPrintable(text.name()) << " on " << qPrintable(ground.name());
        }
        const QColor litCap = blended(KeyCaps::litFill(), palette.accent);
        EXPECT_GE(contrast(palette.onAccent, palette.accent), legible);
        EXPECT_GE(contrast(palette.onAccent, litCap), legible);
        EXPECT_GE(contrast(palette.fore, palette.control), legible);
        const bool isFaint = palette.muted != palette.fore || palette.faint != palette.fore
            || palette.hairline != palette.fore || palette.edge != palette.fore;
        EXPECT_NE(isFaint, look.hasHighContrast);
    }
}

TEST(BoardTests, theDesktopsFontIsUsedUnlessItsDescriptionIsOdd)
{
    const QFont before = QGuiApplication::font();
    const std::pair<QString, const char *> fonts[]{{u"DejaVu Sans Book 12.5"_s, "DejaVu Sans/12.5"},
        {u"Noto Sans, 10"_s, "Noto Sans/10"}, {u""_s, "Noto Sans/10"},
        {u"Cantarell"_s, "Noto Sans/10"}, {u"12"_s, "Noto Sans/10"},
        {u"Cantarell 0"_s, "Noto Sans/10"}};
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
        {u"⌃⌘", u"Ctrl+Super"_s, u"Control Super"_s},
        {u" ", {}, {}},
    };
    for (const auto &[text, plain, spoken] : texts) {
        const QStringList parts = KeyCaps::split(text);
        EXPECT_EQ(KeyCaps::plainText(parts), plain);
        EXPECT_EQ(KeyCaps::spoken(parts), spoken);
    }
    EXPECT_EQ(KeyCombo(123, KeyCombo::modifierMask).parts(), KeyCaps::split(get<0>(texts[0])));
    EXPECT_EQ(KeyCombo(51, KeyCombo::command).parts(), KeyCaps::split(get<0>(texts[1])));
    EXPECT_EQ(KeyCaps::plainText(KeyCombo(200, KeyCombo::control).parts()), u"Ctrl+key 200"_s);
    EXPECT_EQ(
        KeyCaps::plainSentence(u"[[⌃⌥A]] or [[⌘]], then [[x"_s), u"Ctrl+Alt+A or Super, then [[x");
}

TEST(KeyCapsTests, capsHoldTheirLabelsSideBySide)
{
    const KeyCapStyle style = KeyCapStyle::ofHeight(20);
    const KeyCaps caps(KeyCombo(123, KeyCombo::modifierMask).parts(), style);

    EXPECT_EQ(caps.labels().join(u' '), u"Ctrl Alt Shift Super \u2190"_s);
    double left = 10;
    const QList<QRectF> rects = caps.rects({left, 5});
    for (qsizetype i = 0; i < rects.size(); ++i) {
        const double text = QFontMetricsF(style.nameFont).horizontalAdvance(caps.labels()[i]);
        EXPECT_GE(rects[i].width(), std::max(rects[i].height(), text));
        EXPECT_EQ(rects[i].left(), left);
        left = rects[i].right() + style.gap;
    }
    EXPECT_EQ(rects.last().right() - 10, caps.size().width());
}

} // namespace corvane
