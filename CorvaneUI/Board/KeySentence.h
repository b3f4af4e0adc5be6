#pragma once

#include "BoardText.h"
#include "WordFlow.h"

#include <variant>
#include <vector>

namespace corvane {

class BoardLink;

/// A text that shows keys as caps where they stand between "[[" and "]]".
class KeySentence final : public QLabel
{
    Q_OBJECT

public:
    struct Word {
        QString text;
        bool operator==(const Word &) const = default;
    };
    struct Keys {
        QString text; ///< glyphs
        QString trailing = {}; ///< what follows the caps without a space
        bool operator==(const Keys &) const = default;
    };
    struct Link {
        QString text;
        QString address;
        QString trailing = {};
        bool operator==(const Link &) const = default;
    };
    using Piece = std::variant<Word, Keys, Link>;
    using Pieces = std::vector<Piece>;

    explicit KeySentence(const QString &text, Board::Type type = Board::Type::body,
        BoardText::Tone tone = &Board::Palette::fore, QWidget *parent = nullptr);

    /// A "[[" without its "]]" begins words like any other.
    [[nodiscard]] static Pieces parse(const QString &text);
    /// The text as assistive technology reads it.
    [[nodiscard]] static QString spoken(const QString &text);

    void setSentence(const QString &text);
    /// The same of a text of the program's own, in which "[words](address)" is a link.
    void setLinkedSentence(const QString &text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

Q_SIGNALS:
    void linkFollowed(const QString &address);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *) override;

private:
    void show(const Pieces &pieces);
    void placeLinks();
    [[nodiscard]] QList<QRectF> rects() const;
    [[nodiscard]] WordFlow flow() const;
    [[nodiscard]] const QList<WordFlow::Piece> &measured() const;
    void paint(QPainter &painter, const Piece &piece, const QRectF &rect) const;

    Pieces m_pieces;
    QList<BoardLink *> m_links; ///< in their order
    mutable QList<WordFlow::Piece> m_measured; ///< empty until somebody asks
    Qt::LayoutDirection m_direction = Qt::LeftToRight; ///< of the text
    BoardText::Tone m_tone;
};

} // namespace corvane
