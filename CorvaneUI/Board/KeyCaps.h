#pragma once

#include "Board.h"
#include "KeyCombo.h"

#include <QtCore/QRectF>
#include <QtCore/QStringList>

#include <array>

class QPainter;

namespace corvane {

struct KeyCap {
    /// The characters that stand for a key or a modifier.
    static constexpr std::array<QStringView, 16> glyphs{u"⌃", u"⌥", u"⇧", u"⌘", u"⇪", u"⏎", u"↩",
        u"⌫", u"⌦", u"⎋", u"⇥", u"←", u"→", u"↑", u"↓", u"⌤"};

    /// What a cap shows for one of `KeyCombo::parts`: modifiers by their names on this system's
    /// keyboards, and by name, too, any glyph that no font has.
    [[nodiscard]] static QString label(const QString &part, const QFont &glyphFont);
};

/// The lengths and fonts of key caps, in points.
struct KeyCapStyle {
    double height = 0;
    double gap = 0;
    double cornerRadius = 0;
    double padding = 0;
    QFont glyphFont;
    QFont nameFont;

    /// For a height as drawn for text of 13 pixels.
    [[nodiscard]] static KeyCapStyle ofHeight(double drawn);
};

/// A combination as one cap per part, in a row.
class KeyCaps
{
public:
    enum class Form {
        plain,
        lit, ///< on an accent fill
        dimmed,
    };

    KeyCaps(const QStringList &parts, KeyCapStyle style);

    /// The fill of a lit cap, over the accent.
    [[nodiscard]] static QColor litFill() { return QColor::fromRgbF(1, 1, 1, 0.14F); }

    /// The parts of a combination, the key as it is labelled on this keyboard.
    [[nodiscard]] static QStringList partsOf(const KeyCombo &combo);
    /// The same in one piece, as it stands between "[[" and "]]".
    [[nodiscard]] static QString glyphsOf(const KeyCombo &combo);
    /// The parts that a text of glyphs stands for: one for each modifier, and one for the rest,
    /// without whitespace.
    [[nodiscard]] static QStringList split(QStringView glyphs);
    /// The parts as one line of text: "Ctrl+Alt+Super+Left".
    [[nodiscard]] static QString plainText(const QStringList &parts);
    /// Text with keys between "[[" and "]]", as one line of text.
    [[nodiscard]] static QString plainSentence(const QString &text);
    /// The parts as assistive technology reads them: "Control Alt Super Left Arrow".
    [[nodiscard]] static QString spoken(const QStringList &parts);

    [[nodiscard]] QSizeF size() const;
    /// The rectangles of the caps, one per part, in a row that begins at `at`.
    [[nodiscard]] QList<QRectF> rects(const QPointF &at) const;
    [[nodiscard]] const QStringList &labels() const { return m_labels; }
    void paint(
        QPainter &painter, const QPointF &at, const Board::Palette &palette, Form form) const;

private:
    [[nodiscard]] const QFont &fontOf(const QString &label) const;
    void paintLabel(QPainter &painter, const QRectF &cap, const QString &label) const;

    QStringList m_labels;
    KeyCapStyle m_style;
};

} // namespace corvane
