#include "KeyCaps.h"

#include "KeyCombo.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QGlyphRun>
#include <QtGui/QTextLayout>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 allModifiers =
    KeyCombo::control | KeyCombo::option | KeyCombo::shift | KeyCombo::command;

struct KeyTexts {
    KeyCombo combo;
    QString plain;
    QString spoken;
};

class KeyTextsTests : public testing::TestWithParam<KeyTexts>
{
};

/// Whether each glyph of the text comes from a font that has it.
bool isDrawn(const QString &text, const QFont &font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return !runs.isEmpty() && std::ranges::none_of(runs, [](const QGlyphRun &run) {
        return run.glyphIndexes().contains(0);
    });
}

} // namespace

TEST_P(KeyTextsTests, readAsOnALinuxKeyboard)
{
    const QStringList parts = GetParam().combo.parts();

    EXPECT_EQ(KeyCaps::plainText(parts), GetParam().plain);
    EXPECT_EQ(KeyCaps::spoken(parts), GetParam().spoken);
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyTextsTests,
    testing::Values(KeyTexts{{123, KeyCombo::control | KeyCombo::option | KeyCombo::command},
                        u"Ctrl+Alt+Super+Left"_s, u"Control Alt Super Left Arrow"_s},
        KeyTexts{{46, allModifiers}, u"Ctrl+Alt+Shift+Super+M"_s, u"Control Alt Shift Super M"_s},
        KeyTexts{{51, KeyCombo::command}, u"Super+Backspace"_s, u"Super Backspace"_s},
        KeyTexts{{44, KeyCombo::control}, u"Ctrl+/"_s, u"Control Slash"_s},
        KeyTexts{{200, KeyCombo::control}, u"Ctrl+key 200"_s, u"Control key 200"_s}));

TEST(KeyCapsTests, textIsSplitIntoModifiersAndOneKey)
{
    EXPECT_EQ(KeyCaps::split(u"⌃⌥F12"), (QStringList{u"⌃"_s, u"⌥"_s, u"F12"_s}));
    EXPECT_EQ(KeyCaps::split(u" ⌘ ← "), (QStringList{u"⌘"_s, u"←"_s}));
    EXPECT_EQ(KeyCaps::split(u"F⇧1"), (QStringList{u"⇧"_s, u"F1"_s}));
    EXPECT_EQ(KeyCaps::split(u"⌃⌘"), (QStringList{u"⌃"_s, u"⌘"_s}));
    EXPECT_TRUE(KeyCaps::split(u" ").isEmpty());
}

TEST(KeyCapsTests, keysInsideASentenceAreWordsOfIt)
{
    EXPECT_EQ(
        KeyCaps::plainSentence(u"[[⌃⌥A]] or [[⌘]], then [[x"_s), u"Ctrl+Alt+A or Super, then [[x");
}

TEST(KeyCapsTests, modifiersAreNamedAndArrowsDrawn)
{
    const KeyCaps caps(KeyCombo(123, allModifiers).parts(), KeyCapStyle::ofHeight(20));

    EXPECT_THAT(
        caps.labels(), testing::ElementsAre(u"Ctrl"_s, u"Alt"_s, u"Shift"_s, u"Super"_s, u"←"_s));
}

TEST(KeyCapsTests, everyLabelIsDrawnByAFontThatHasIt)
{
    const KeyCapStyle style = KeyCapStyle::ofHeight(20);
    for (const QStringView glyph : KeyCap::glyphs) {
        const QString label = KeyCap::label(glyph.toString(), style.glyphFont);
        EXPECT_TRUE(isDrawn(label, style.glyphFont)) << qPrintable(label);
    }
}

TEST(KeyCapsTests, capsAreAtLeastSquareAndDoNotOverlap)
{
    const KeyCapStyle style = KeyCapStyle::ofHeight(20);
    const KeyCaps caps(KeyCombo(123, allModifiers).parts(), style);
    const QList<QRectF> rects = caps.rects({10, 5});

    for (qsizetype i = 0; i < rects.size(); ++i) {
        EXPECT_GE(rects[i].width(), rects[i].height());
        EXPECT_GE(
            rects[i].width(), QFontMetricsF(style.nameFont).horizontalAdvance(caps.labels()[i]));
        if (i > 0) {
            EXPECT_EQ(rects[i].left() - rects[i - 1].right(), style.gap);
        }
    }
    EXPECT_EQ(rects.last().right() - 10, caps.size().width());
}

} // namespace corvane
