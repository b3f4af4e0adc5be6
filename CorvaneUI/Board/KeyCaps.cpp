#include "KeyCaps.h"

#include "DevicePixels.h"
#include "Platform.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

enum class Caption { glyph, name };

struct PartRow {
    QStringView part;
    const char *name; ///< on a cap that shows no glyph, and in plain text
    const char *spoken;
    Caption caption = Caption::glyph;
};

// clang-format off
constexpr std::array partTable{
    PartRow{u"⌃", QT_TRANSLATE_NOOP("Keys", "Ctrl"), QT_TRANSLATE_NOOP("Keys", "Control"), Caption::name},
    PartRow{u"⌥", QT_TRANSLATE_NOOP("Keys", "Alt"), QT_TRANSLATE_NOOP("Keys", "Alt"), Caption::name},
    PartRow{u"⇧", QT_TRANSLATE_NOOP("Keys", "Shift"), QT_TRANSLATE_NOOP("Keys", "Shift"), Caption::name},
    PartRow{u"⌘", QT_TRANSLATE_NOOP("Keys", "Super"), QT_TRANSLATE_NOOP("Keys", "Super"), Caption::name},
    PartRow{u"⇪", QT_TRANSLATE_NOOP("Keys", "Caps Lock"), QT_TRANSLATE_NOOP("Keys", "Caps Lock")},
    PartRow{u"⏎", QT_TRANSLATE_NOOP("Keys", "Return"), QT_TRANSLATE_NOOP("Keys", "Return")},
    PartRow{u"↩", QT_TRANSLATE_NOOP("Keys", "Return"), QT_TRANSLATE_NOOP("Keys", "Return")},
    PartRow{u"⌫", QT_TRANSLATE_NOOP("Keys", "Backspace"), QT_TRANSLATE_NOOP("Keys", "Backspace")},
    PartRow{u"⌦", QT_TRANSLATE_NOOP("Keys", "Del"), QT_TRANSLATE_NOOP("Keys", "Delete"), Caption::name},
    PartRow{u"⎋", QT_TRANSLATE_NOOP("Keys", "Esc"), QT_TRANSLATE_NOOP("Keys", "Escape"), Caption::name},
    PartRow{u"⇥", QT_TRANSLATE_NOOP("Keys", "Tab"), QT_TRANSLATE_NOOP("Keys", "Tab"), Caption::name},
    PartRow{u"⌤", QT_TRANSLATE_NOOP("Keys", "Enter"), QT_TRANSLATE_NOOP("Keys", "Enter")},
    PartRow{u"←", QT_TRANSLATE_NOOP("Keys", "Left"), QT_TRANSLATE_NOOP("Keys", "Left Arrow")},
    PartRow{u"→", QT_TRANSLATE_NOOP("Keys", "Right"), QT_TRANSLATE_NOOP("Keys", "Right Arrow")},
    PartRow{u"↑", QT_TRANSLATE_NOOP("Keys", "Up"), QT_TRANSLATE_NOOP("Keys", "Up Arrow")},
    PartRow{u"↓", QT_TRANSLATE_NOOP("Keys", "Down"), QT_TRANSLATE_NOOP("Keys", "Down Arrow")},
    PartRow{u",", ",", QT_TRANSLATE_NOOP("Keys", "Comma")},
    PartRow{u".", ".", QT_TRANSLATE_NOOP("Keys", "Period")},
    PartRow{u"/", "/", QT_TRANSLATE_NOOP("Keys", "Slash")},
    PartRow{u"\\", "\\", QT_TRANSLATE_NOOP("Keys", "Backslash")},
    PartRow{u";", ";", QT_TRANSLATE_NOOP("Keys", "Semicolon")},
    PartRow{u"'", "'", QT_TRANSLATE_NOOP("Keys", "Quote")},
    PartRow{u"`", "`", QT_TRANSLATE_NOOP("Keys", "Backquote")},
    PartRow{u"[", "[", QT_TRANSLATE_NOOP("Keys", "Left Bracket")},
    PartRow{u"]", "]", QT_TRANSLATE_NOOP("Keys", "Right Bracket")},
    PartRow{u"-", "-", QT_TRANSLATE_NOOP("Keys", "Minus")},
    PartRow{u"=", "=", QT_TRANSLATE_NOOP("Keys", "Equals")},
    PartRow{u"Space", QT_TRANSLATE_NOOP("Keys", "Space"), QT_TRANSLATE_NOOP("Keys", "Space")},
    // English names these by their numbers; a language may use the words that its keyboards bear.
    //: Insert
    PartRow{u"key 114", QT_TRANSLATE_NOOP("Keys", "key 114"), QT_TRANSLATE_NOOP("Keys", "key 114")},
    //: Home
    PartRow{u"key 115", QT_TRANSLATE_NOOP("Keys", "key 115"), QT_TRANSLATE_NOOP("Keys", "key 115")},
    //: Page Up
    PartRow{u"key 116", QT_TRANSLATE_NOOP("Keys", "key 116"), QT_TRANSLATE_NOOP("Keys", "key 116")},
    //: End
    PartRow{u"key 119", QT_TRANSLATE_NOOP("Keys", "key 119"), QT_TRANSLATE_NOOP("Keys", "key 119")},
    //: Page Down
    PartRow{u"key 121", QT_TRANSLATE_NOOP("Keys", "key 121"), QT_TRANSLATE_NOOP("Keys", "key 121")},
};
// clang-format on

const PartRow *rowOf(QStringView part)
{
    const auto row = std::ranges::find(partTable, part, &PartRow::part);
    return row == partTable.end() ? nullptr : &*row;
}

/// The text of a column for a part that has a row, the part itself for any other.
QString inColumn(const QString &part, const char *PartRow::*const text)
{
    if (const PartRow *row = rowOf(part))
        return QCoreApplication::translate("Keys", row->*text);
    constexpr QLatin1StringView numbered("key ");
    return part.startsWith(numbered)
        ? QCoreApplication::translate("Keys", "key %1").arg(part.sliced(numbered.size()))
        : part;
}

QStringList column(const QStringList &parts, const char *PartRow::*const text)
{
    QStringList texts;
    for (const QString &part : parts)
        texts << inColumn(part, text);
    return texts;
}

bool isGlyph(QStringView text)
{
    return std::ranges::find(KeyCap::glyphs, text) != KeyCap::glyphs.end();
}

bool isModifier(QChar character)
{
    return u"⌃⌥⇧⌘"_s.contains(character);
}

struct CapColors {
    QColor fill;
    QColor edge;
    QColor text;
};

CapColors colorsOf(KeyCaps::Form form, const Board::Palette &palette)
{
    switch (form) {
    case KeyCaps::Form::plain:
        return {palette.control, palette.edge, palette.fore};
    case KeyCaps::Form::lit:
        return {KeyCaps::litFill(), QColor::fromRgbF(1, 1, 1, 0.35F), palette.onAccent};
    case KeyCaps::Form::dimmed:
        return {palette.sheet, palette.hairline, palette.faint};
    }
    return {};
}

} // namespace

QString KeyCap::label(const QString &part, const QFont &glyphFont)
{
    const PartRow *row = rowOf(part);
    const bool isDrawn = row && isGlyph(part) && row->caption == Caption::glyph
        && QFontMetricsF(glyphFont).inFontUcs4(part.at(0).unicode());
    return isDrawn ? part : inColumn(part, &PartRow::name);
}

KeyCapStyle KeyCapStyle::ofHeight(double drawn)
{
    QFont name = Board::font(Board::Type::body);
    name.setPixelSize(Board::length(11));
    name.setWeight(QFont::Medium);
    // Not those of the text among which the caps stand.
    name.setCapitalization(QFont::MixedCase);
    name.setLetterSpacing(QFont::PercentageSpacing, 100);
    QFont glyph = name;
    glyph.setPixelSize(Board::length(12));
    const double tallest = QFontMetricsF(name).height() + 2 * Board::length(2);
    return {.height = std::max<double>(Board::length(drawn), std::ceil(tallest)),
        .gap = static_cast<double>(Board::length(3)),
        .cornerRadius = static_cast<double>(Board::length(5)),
        .padding = static_cast<double>(Board::length(6)),
        .glyphFont = glyph,
        .nameFont = name};
}

KeyCaps::KeyCaps(const QStringList &parts, KeyCapStyle style) : m_style(std::move(style))
{
    for (const QString &part : parts)
        m_labels << KeyCap::label(part, m_style.glyphFont);
}

QStringList KeyCaps::partsOf(const KeyCombo &combo)
{
    QStringList parts = combo.parts();
    // Names of more than one character are those of keys that are the same everywhere.
    const bool isPrinted = parts.last().size() == 1 && !isGlyph(parts.last());
    const QString label =
        isPrinted ? Platform::current().hotKeys().label(combo.keyCode) : QString();
    if (!label.isEmpty())
        parts.last() = label;
    return parts;
}

QString KeyCaps::glyphsOf(const KeyCombo &combo)
{
    return partsOf(combo).join(QString());
}

QStringList KeyCaps::split(QStringView glyphs)
{
    QStringList parts;
    QString rest;
    for (const QChar character : glyphs) {
        if (isModifier(character))
            parts << character;
        else if (!character.isSpace())
            rest += character;
    }
    if (!rest.isEmpty())
        parts << rest;
    return parts;
}

QString KeyCaps::plainText(const QStringList &parts)
{
    return column(parts, &PartRow::name).join(u'+');
}

QString KeyCaps::plainSentence(const QString &text)
{
    QString plain;
    qsizetype at = 0;
    for (;;) {
        const qsizetype opening = text.indexOf("[["_L1, at);
        const qsizetype closing = opening < 0 ? -1 : text.indexOf("]]"_L1, opening);
        if (closing < 0)
            return plain + text.mid(at);
        const QStringView keys = QStringView(text).sliced(opening + 2, closing - opening - 2);
        plain += text.mid(at, opening - at) + plainText(split(keys));
        at = closing + 2;
    }
}

QString KeyCaps::spoken(const QStringList &parts)
{
    return column(parts, &PartRow::spoken).join(u' ');
}

QSizeF KeyCaps::size() const
{
    const QList<QRectF> caps = rects({});
    return caps.isEmpty() ? QSizeF() : QSizeF(caps.last().right(), m_style.height);
}

QList<QRectF> KeyCaps::rects(const QPointF &at) const
{
    QList<QRectF> caps;
    double x = at.x();
    for (const QString &label : m_labels) {
        const double text = QFontMetricsF(fontOf(label)).horizontalAdvance(label);
        // One character makes a square, so that equal combinations stand in equal columns.
        const double padding = label.size() == 1 ? m_style.padding / 2 : m_style.padding;
        const double width = std::max(m_style.height, std::ceil(text) + 2 * padding);
        caps << QRectF(x, at.y(), width, m_style.height);
        x += width + m_style.gap;
    }
    return caps;
}

void KeyCaps::paint(
    QPainter &painter, const QPointF &at, const Board::Palette &palette, Form form) const
{
    const CapColors colors = colorsOf(form, palette);
    const QList<QRectF> caps = rects(at);
    for (qsizetype i = 0; i < caps.size(); ++i) {
        drawField(painter, caps[i], m_style.cornerRadius, colors.fill, colors.edge,
            {.side = 1, .bottom = 2});
        painter.setPen(colors.text);
        paintLabel(painter, caps[i], m_labels[i]);
    }
}

const QFont &KeyCaps::fontOf(const QString &label) const
{
    return isGlyph(label) ? m_style.glyphFont : m_style.nameFont;
}

// Names stand on one baseline, capitals in the middle; a glyph, which has none, stands in the middle
// by its own shape.
void KeyCaps::paintLabel(QPainter &painter, const QRectF &cap, const QString &label) const
{
    const QFont &font = fontOf(label);
    const QFontMetricsF metrics(font);
    const double middle = cap.center().y() - 0.5;
    const double left = cap.center().x() - metrics.horizontalAdvance(label) / 2;
    const double baseline = isGlyph(label) ? middle - metrics.tightBoundingRect(label).center().y()
                                           : middle + metrics.capHeight() / 2;
    painter.setFont(font);
    painter.drawText(QPointF(left, std::round(baseline)), label);
}

} // namespace corvane
