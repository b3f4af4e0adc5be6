#include "ShortcutRecorder.h"

#include "BoardStyle.h"
#include "DevicePixels.h"
#include "KeyCaps.h"
#include "KeySentence.h"
#include "Symbol.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

// macOS virtual key codes.
constexpr quint16 escapeKey = 53;
constexpr quint16 tabKey = 48;
constexpr quint16 deleteKey = 51;
constexpr quint16 forwardDeleteKey = 117;

constexpr double drawnHeight = 28;
constexpr double capHeight = 22;
constexpr double padding = 12; ///< of the words while it records

QFont promptFont()
{
    QFont font = Board::font(Board::Type::label);
    font.setWeight(QFont::Medium);
    return font;
}

/// The glyphs of what is held.
QStringList partsOf(quint64 modifiers)
{
    QStringList parts = KeyCombo(0, modifiers).parts();
    parts.removeLast();
    return parts;
}

KeyCaps capsOf(const QStringList &parts)
{
    return {parts, KeyCapStyle::ofHeight(capHeight)};
}

/// A cross in a disk.
class ClearButton final : public QAbstractButton
{
public:
    explicit ClearButton(QWidget *parent) : QAbstractButton(parent)
    {
        setCursor(Qt::ArrowCursor);
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const Board::Palette &palette = BoardStyle::shared().colors();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(underMouse() ? palette.muted : palette.faint);
        const QRectF disk = QRectF(rect()).adjusted(1, 1, -1, -1);
        painter.drawEllipse(disk);
        const double inset = disk.width() / 4;
        Symbol::paint(
            painter, disk.adjusted(inset, inset, -inset, -inset), u"xmark"_s, {palette.sheet});
    }
};

} // namespace

ShortcutRecorder::ShortcutRecorder(const QString &title, QWidget *parent)
    : QAbstractButton(parent), m_title(title), m_clear(new ClearButton(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("%1 shortcut").arg(title));
    m_clear->setAccessibleName(tr("Clear this shortcut"));
    m_clear->setToolTip(tr("Clear this shortcut"));
    m_clear->hide();
    connect(m_clear, &QAbstractButton::clicked, this, [this] { onRecord(std::nullopt); });
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (!m_isRecording)
            onBegin();
    });
    m_capture.onKey = [this](quint16 keyCode, quint64 modifiers) { take(keyCode, modifiers); };
    m_capture.onModifiers = [this](quint64 modifiers) { showHeld(modifiers); };
    m_capture.onCancel = [this] { onCancel(); };
    describe();
}

void ShortcutRecorder::setCombo(const std::optional<KeyCombo> &combo)
{
    if (std::exchange(m_combo, combo) != combo)
        describe();
}

void ShortcutRecorder::setTaken(bool isTaken, const QString &holder)
{
    const bool isOther = std::exchange(m_holder, holder) != holder;
    if (std::exchange(m_isTaken, isTaken) != isTaken || isOther)
        describe();
}

void ShortcutRecorder::setRecording(bool isRecording)
{
    if (std::exchange(m_isRecording, isRecording) == isRecording)
        return;
    m_refused = false;
    m_held = 0;
    m_capture.setActive(isRecording);
    if (isRecording)
        setFocus(Qt::OtherFocusReason); // whoever asked for it
    describe();
}

void ShortcutRecorder::take(quint16 keyCode, quint64 modifiers)
{
    if (keyCode == escapeKey)
        return onCancel();
    if (modifiers != 0) {
        m_refused = (modifiers & (KeyCombo::control | KeyCombo::command)) == 0;
        m_held = modifiers;
        if (m_refused)
            return describe();
        return onRecord(KeyCombo(keyCode, modifiers));
    }
    if (keyCode == deleteKey || keyCode == forwardDeleteKey)
        return onRecord(std::nullopt);
    if (keyCode == tabKey) {
        onCancel();
        focusNextChild();
    }
}

void ShortcutRecorder::showHeld(quint64 modifiers)
{
    m_held = modifiers;
    describe();
}

QString ShortcutRecorder::prompt() const
{
    return m_refused ? tr("ADD [[⌃]] OR [[⌘]]") : tr("PRESS KEYS");
}

void ShortcutRecorder::describe()
{
    QString description = m_combo ? KeyCaps::spoken(KeyCaps::partsOf(*m_combo)) : tr("None");
    if (m_isTaken)
        description += u". "_s + tr("Another program holds these keys");
    if (m_isRecording)
        description = m_held != 0 && !m_refused ? KeyCaps::spoken(partsOf(m_held))
                                                : KeySentence::spoken(prompt());
    setAccessibleDescription(description);
    setToolTip(!m_isTaken        ? QString()
            : m_holder.isEmpty() ? tr("Another program holds these keys")
                                 : tr("Held by %1").arg(m_holder));
    updateGeometry();
    placeClear();
    update();
}

QSize ShortcutRecorder::sizeHint() const
{
    const double field = 2 * Board::length(padding);
    const QFontMetrics prompting(promptFont());
    double width = prompting.horizontalAdvance(prompt());
    if (!m_isRecording)
        width = m_combo
            ? capsOf(KeyCaps::partsOf(*m_combo)).size().width()
            : QFontMetrics(Board::font(Board::Type::secondary)).horizontalAdvance(tr("None"));
    else if (m_refused)
        width = field + KeySentence(prompt()).sizeHint().width();
    else
        width = field + std::max(width, capsOf(partsOf(m_held)).size().width());
    const int side = Board::length(drawnHeight);
    return {
        int(width) + 1 + (m_isRecording ? 0 : 2 * side), std::max(side, prompting.height() + 8)};
}

void ShortcutRecorder::placeClear()
{
    const bool isOffered = m_combo && !m_isRecording && (underMouse() || hasFocus());
    const int side = Board::length(16);
    const int at = width()
        - int(capsOf(m_combo ? KeyCaps::partsOf(*m_combo) : QStringList()).size().width()) - side
        - Board::length(8);
    const QRect all = rect();
    m_clear->setGeometry(QStyle::visualRect(
        layoutDirection(), all, QRect(at, (all.height() - side) / 2, side, side)));
    m_clear->setVisible(isOffered);
}

bool ShortcutRecorder::event(QEvent *event)
{
    const bool isHandled = QAbstractButton::event(event);
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        placeClear();
        update();
        break;
    default:
        break;
    }
    return isHandled;
}

void ShortcutRecorder::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return click();
    if ((key == Qt::Key_Delete || key == Qt::Key_Backspace) && m_combo)
        return onRecord(std::nullopt);
    QAbstractButton::keyPressEvent(event);
}

void ShortcutRecorder::resizeEvent(QResizeEvent *)
{
    placeClear();
}

void ShortcutRecorder::paintRecording(QPainter &painter, const QRectF &field) const
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    drawField(painter, field, Board::length(5), palette.control,
        m_refused ? palette.attention : palette.accent, {.side = 1, .bottom = 2});
    if (m_refused) {
        KeySentence sentence(prompt(), Board::Type::label, &Board::Palette::attention);
        sentence.resize(sentence.sizeHint());
        const QPointF at = field.center() - QRectF(sentence.rect()).center();
        painter.translate(at);
        sentence.render(&painter, {}, {}, QWidget::DrawChildren);
        return;
    }
    const KeyCaps caps = capsOf(partsOf(m_held));
    if (m_held != 0) {
        const QSizeF size = caps.size();
        return caps.paint(painter, field.center() - QPointF(size.width() / 2, size.height() / 2),
            palette, KeyCaps::Form::plain);
    }
    painter.setFont(promptFont());
    painter.setPen(palette.accentType);
    painter.drawText(field, Qt::AlignCenter, prompt());
}

void ShortcutRecorder::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    QPainter painter(this);
    const double side = Board::length(capHeight + 2);
    const QRectF field(0, (height() - side) / 2, width(), side);
    if (m_isRecording)
        return paintRecording(painter, field);
    if (!m_combo) {
        painter.setFont(Board::font(Board::Type::secondary));
        painter.setPen(underMouse() ? palette.fore : palette.faint);
        painter.drawText(rect(), Qt::AlignTrailing | Qt::AlignVCenter, tr("None"));
        return;
    }
    const KeyCaps caps = capsOf(KeyCaps::partsOf(*m_combo));
    QRectF place({0, 0}, caps.size());
    place.moveCenter(QRectF(rect()).center());
    place.moveRight(width());
    place = QStyle::visualRect(layoutDirection(), rect(), place.toAlignedRect());
    caps.paint(painter, place.topLeft(), palette, KeyCaps::Form::plain);
    if (!m_isTaken)
        return;
    const double mark = Board::length(14);
    QRect triangle(int(place.left() - mark - Board::length(m_clear->isVisible() ? 34 : 8)),
        int(height() - mark) / 2, int(mark), int(mark));
    Symbol::paint(painter, triangle, u"exclamationmark.triangle"_s, {palette.attention});
}

} // namespace corvane
