#include "Board.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <array>

namespace corvane::Board {

namespace {

constexpr double drawnTextSize = 13;

Palette lightPalette()
{
    return {.ground = 0xF4F2EC,
        .sheet = 0xFBFAF6,
        .raised = 0xFFFFFF,
        .fore = 0x1B1D22,
        .muted = 0x5C6069,
        .faint = 0x6B6E76,
        .accent = 0x2B55D9,
        .accentType = 0x2449BF,
        .onAccent = 0xFFFFFF,
        .hairline = 0xDEDAD0,
        .grid = 0xE9E6DD,
        .control = 0xFFFFFF,
        .edge = 0xCBC7BC,
        .error = 0xB3261E,
        .ready = 0x1F7A4D,
        .attention = 0x9A5B00};
}

Palette darkPalette()
{
    return {.ground = 0x16181D,
        .sheet = 0x1C1F26,
        .raised = 0x242832,
        .fore = 0xECEAE4,
        .muted = 0xA3A7B0,
        .faint = 0x8A8F9A,
        .accent = 0x5B82FF,
        .accentType = 0x8FACFF,
        .onAccent = 0x0E1016,
        .hairline = 0x2C313C,
        .grid = 0x20242C,
        .control = 0x262B35,
        .edge = 0x3D4452,
        .error = 0xFF8A80,
        .ready = 0x5CC08B,
        .attention = 0xF0A94B};
}

Palette inHighContrast(Palette palette)
{
    palette.hairline = palette.edge = palette.muted = palette.faint = palette.fore;
    return palette;
}

/// The font at a share of its size; in pixels, so that every view rounds it alike.
QFont scaled(QFont font, double share)
{
    font.setPixelSize(std::max(1, qRound(QFontInfo(font).pixelSize() * share)));
    return font;
}

} // namespace

const Palette &palette(const DesktopLook &look)
{
    static const std::array palettes{lightPalette(), darkPalette(), inHighContrast(lightPalette()),
        inHighContrast(darkPalette())};
    return palettes[(look.isDark ? 1U : 0U) + (look.hasHighContrast ? 2U : 0U)];
}

void useFont(const DesktopLook &look)
{
    static const QRegularExpression format(
        QStringLiteral("^(.+?)(?:,| (?:Regular|Book|Medium|Roman))* (\\d+(?:\\.\\d+)?)$"));
    const QRegularExpressionMatch found = format.match(look.font);
    const double size = found.captured(2).toDouble();
    if (!found.hasMatch() || size <= 0)
        return;
    QFont font(found.captured(1));
    font.setPointSizeF(size);
    if (font != QGuiApplication::font())
        QGuiApplication::setFont(font);
}

QFont font(Type type)
{
    const QFont body = scaled(QGuiApplication::font(), 1);
    switch (type) {
    case Type::title: {
        QFont font = scaled(body, 20 / drawnTextSize);
        font.setWeight(QFont::DemiBold);
        return font;
    }
    case Type::body:
        return body;
    case Type::secondary:
        return scaled(body, 12 / drawnTextSize);
    case Type::label: {
        QFont font = scaled(body, 11 / drawnTextSize);
        font.setWeight(QFont::DemiBold);
        font.setCapitalization(QFont::AllUppercase);
        font.setLetterSpacing(QFont::PercentageSpacing, 109);
        return font;
    }
    case Type::numerals:
    case Type::smallNumerals: {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPixelSize(type == Type::numerals ? body.pixelSize() : length(11));
        return font;
    }
    }
    return body;
}

int length(double drawn)
{
    return qRound(drawn * QFontInfo(QGuiApplication::font()).pixelSize() / drawnTextSize);
}

QMargins margins(int leading, int top, int trailing, int bottom)
{
    return QGuiApplication::isRightToLeft() ? QMargins(trailing, top, leading, bottom)
                                            : QMargins(leading, top, trailing, bottom);
}

} // namespace corvane::Board
