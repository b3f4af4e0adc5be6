#include "KeySentence.h"

#include "BoardLink.h"
#include "BoardStyle.h"
#include "KeyCaps.h"
#include "Match.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double capHeight = 20;
constexpr double widest = 560; ///< a sentence, where nothing else bounds it

KeyCaps capsOf(const KeySentence::Keys &keys)
{
    return {KeyCaps::split(keys.text), KeyCapStyle::ofHeight(capHeight)};
}

/// Whether the next piece follows without a space, as after an opening bracket.
bool opens(const KeySentence::Piece &piece)
{
    const auto *word = std::get_if<KeySentence::Word>(&piece);
    return word && std::ranges::all_of(word->text, [](QChar letter) {
        return u"(“\"[„«"_s.contains(letter);
    });
}

void addWords(KeySentence::Pieces &pieces, const QString &text)
{
    for (const QString &word : text.simplified().split(u' ', Qt::SkipEmptyParts))
        pieces.emplace_back(KeySentence::Word{word});
}

void append(KeySentence::Pieces &pieces, const QString &text)
{
    KeySentence::Pieces more = KeySentence::parse(text);
    std::ranges::move(more, std::back_inserter(pieces));
}

/// Whatever the sentence has between the links is parsed as any sentence.
KeySentence::Pieces parseLinked(const QString &text)
{
    static const QRegularExpression link(u"\\[([^][]+)\\]\\(([^)]+)\\)(\\S*)"_s);
    KeySentence::Pieces pieces;
    qsizetype at = 0;
    for (auto links = link.globalMatch(text); links.hasNext();) {
        const QRegularExpressionMatch found = links.next();
        append(pieces, text.mid(at, found.capturedStart() - at));
        pieces.emplace_back(
            KeySentence::Link{found.captured(1), found.captured(2), found.captured(3)});
        at = found.capturedEnd();
    }
    append(pieces, text.mid(at));
    return pieces;
}

QString spokenOf(const KeySentence::Pieces &pieces)
{
    QString spoken;
    bool isOpen = true;
    for (const KeySentence::Piece &piece : pieces) {
        spoken += isOpen ? QString() : u" "_s;
        spoken += match(
            piece, [](const KeySentence::Word &word) { return word.text; },
            [](const KeySentence::Keys &keys) {
                return KeyCaps::spoken(KeyCaps::split(keys.text)) + keys.trailing;
            },
            [](const KeySentence::Link &link) { return link.text + link.trailing; });
        isOpen = opens(piece);
    }
    return spoken;
}

} // namespace

KeySentence::KeySentence(
    const QString &text, Board::Type type, BoardText::Tone tone, QWidget *parent)
    : QLabel(parent), m_tone(tone)
{
    setFont(Board::font(type));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setSentence(text);
}

KeySentence::Pieces KeySentence::parse(const QString &text)
{
    Pieces pieces;
    for (qsizetype at = 0;;) {
        const qsizetype opening = text.indexOf("[["_L1, at);
        const qsizetype closing = opening < 0 ? -1 : text.indexOf("]]"_L1, opening);
        if (closing < 0) {
            addWords(pieces, text.mid(at));
            return pieces;
        }
        addWords(pieces, text.mid(at, opening - at));
        at = closing + 2;
        const auto space = std::find_if(
            text.begin() + at, text.end(), [](QChar letter) { return letter.isSpace(); });
        const qsizetype end = space - text.begin();
        pieces.emplace_back(
            Keys{text.mid(opening + 2, closing - opening - 2), text.mid(at, end - at)});
        at = end;
    }
}

QString KeySentence::spoken(const QString &text)
{
    return spokenOf(parse(text));
}

void KeySentence::setSentence(const QString &text)
{
    show(parse(text));
}

void KeySentence::setLinkedSentence(const QString &text)
{
    show(parseLinked(text));
}

void KeySentence::show(const Pieces &pieces)
{
    m_pieces = pieces;
    m_measured.clear();
    setAccessibleName(spokenOf(pieces));
    m_direction = accessibleName().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    qDeleteAll(std::exchange(m_links, {}));
    for (const Piece &piece : pieces) {
        const auto *link = std::get_if<Link>(&piece);
        if (!link)
            continue;
        auto *shown = new BoardLink(link->text, BoardLink::Target::inside, this);
        QFont font = this->font();
        font.setWeight(QFont::Medium);
        shown->setFont(font);
        connect(shown, &BoardLink::clicked, this,
            [this, address = link->address] { Q_EMIT linkFollowed(address); });
        m_links << shown;
    }
    placeLinks();
    updateGeometry();
    update();
}

QList<QRectF> KeySentence::rects() const
{
    return flow().rects(measured(), width(), layoutDirection(), m_direction);
}

void KeySentence::placeLinks()
{
    if (m_links.isEmpty())
        return;
    const QList<QRectF> rects = this->rects();
    auto link = m_links.cbegin();
    for (size_t i = 0; i < m_pieces.size(); ++i) {
        if (!std::holds_alternative<Link>(m_pieces[i]))
            continue;
        const QSize size = (*link)->sizeHint();
        const QRect rect = rects[qsizetype(i)].toAlignedRect();
        const int left =
            m_direction == Qt::LeftToRight ? rect.left() : rect.right() + 1 - size.width();
        (*link++)->setGeometry(QRect(QPoint(left, rect.top()), size));
    }
}

WordFlow KeySentence::flow() const
{
    const QFontMetricsF metrics(font());
    return {.space = metrics.horizontalAdvance(u' '), .lineSpacing = metrics.height() / 8};
}

// A layout asks for heights again and again, and measuring is most of what it waits for.
const QList<WordFlow::Piece> &KeySentence::measured() const
{
    if (!m_measured.isEmpty())
        return m_measured;
    const QFontMetricsF metrics(font());
    const auto sizeOf = [&metrics](const QString &text) {
        return QSizeF(metrics.horizontalAdvance(text), metrics.height());
    };
    bool hasSpace = true;
    qsizetype linksBefore = 0;
    for (const Piece &piece : m_pieces) {
        const QSizeF size = match(
            piece, [&](const Word &word) { return sizeOf(word.text); },
            [&](const Keys &keys) {
                const QSizeF caps = capsOf(keys).size();
                return QSizeF(caps.width() + sizeOf(keys.trailing).width(), caps.height());
            },
            [&](const Link &link) {
                const QSizeF words = m_links[linksBefore++]->sizeHint();
                return QSizeF(words.width() + sizeOf(link.trailing).width(), words.height());
            });
        m_measured << WordFlow::Piece{size, hasSpace};
        hasSpace = !opens(piece);
    }
    return m_measured;
}

QSize KeySentence::sizeHint() const
{
    const WordFlow flow = this->flow();
    const QSizeF size = flow.size(flow.lines(measured(), Board::length(widest)));
    return QSize(int(std::ceil(size.width())) + 1, int(std::ceil(size.height())));
}

QSize KeySentence::minimumSizeHint() const
{
    double width = 0;
    for (const WordFlow::Piece &piece : measured())
        width = std::max(width, piece.size.width());
    return QSize(int(std::ceil(width)), int(std::ceil(QFontMetricsF(font()).height())));
}

int KeySentence::heightForWidth(int width) const
{
    const WordFlow flow = this->flow();
    return int(std::ceil(flow.size(flow.lines(measured(), width)).height()));
}

void KeySentence::changeEvent(QEvent *event)
{
    m_measured.clear(); // it may be the font
    QLabel::changeEvent(event);
}

void KeySentence::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    placeLinks();
}

void KeySentence::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(font());
    painter.setLayoutDirection(m_direction);
    const QList<QRectF> rects = this->rects();
    for (qsizetype i = 0; i < rects.size(); ++i)
        paint(painter, m_pieces[size_t(i)], rects[i].toAlignedRect());
}

void KeySentence::paint(QPainter &painter, const Piece &piece, const QRectF &rect) const
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const QFontMetricsF metrics(font());
    const double baseline =
        std::round(rect.center().y() + (metrics.ascent() - metrics.descent()) / 2);
    painter.setPen(palette.*m_tone);
    match(
        piece,
        [&](const Word &word) { painter.drawText(QPointF(rect.left(), baseline), word.text); },
        [&](const Keys &keys) {
            const KeyCaps caps = capsOf(keys);
            painter.drawText(QPointF(rect.left() + caps.size().width(), baseline), keys.trailing);
            painter.save();
            caps.paint(painter, rect.topLeft(), palette, KeyCaps::Form::plain);
            painter.restore();
        },
        [&](const Link &link) {
            const double words = metrics.horizontalAdvance(link.trailing);
            const bool isLeftToRight = m_direction == Qt::LeftToRight;
            painter.drawText(QPointF(isLeftToRight ? rect.right() - words : rect.left(), baseline),
                link.trailing);
        });
}

} // namespace corvane
