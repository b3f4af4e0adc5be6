#include "ReportRow.h"

#include "AppIcons.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "Card.h"
#include "DevicePixels.h"
#include "Drawing.h"
#include "OneLine.h"
#include "PaneBadge.h"
#include "Symbol.h"

#include <QtCore/QLocale>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString sentenceOn(const PaneStatus &status)
{
    if (const auto *placed = std::get_if<PaneStatus::Placed>(&status.value))
        return placed->wasOpened ? ReportRow::tr("was opened, and is in its place")
                                 : ReportRow::tr("is in its place");
    if (std::holds_alternative<PaneStatus::Empty>(status.value))
        return ReportRow::tr("has no app");
    return oneLine(statusText(status), 200);
}

QString displayName(const Pane &pane, const WindowLayout &layout)
{
    return oneLine(layout.displays.value(pane.display).name);
}

QString percent(double fraction)
{
    return QLocale().toString(qRound(100 * fraction));
}

} // namespace

ReportRow::ReportRow(
    const PaneResult &result, const WindowLayout &layout, PaneCure cure, QWidget *parent)
    : QWidget(parent), m_result(result), m_sentence(sentenceOn(result.status))
{
    setFocusPolicy(Qt::StrongFocus);
    const int upright = Board::length(4);
    QHBoxLayout *line = Card::layoutRow(this, Board::length(48));
    line->setContentsMargins(line->contentsMargins() + QMargins(0, upright, 0, upright));
    addMarks(*line);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch(1);
    m_name = new BoardText({});
    m_text = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    texts->addWidget(m_name);
    texts->addWidget(m_text);
    if (cure == PaneCure::useAnotherDisplay) {
        m_hint = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
        texts->addWidget(m_hint);
    }
    texts->addStretch(1);
    line->addLayout(texts, 1);
    addCure(*line, cure, layout);
    follow(layout);
}

void ReportRow::addMarks(QHBoxLayout &line)
{
    constexpr double markSide = 16;
    constexpr double iconSide = 20;
    line.addWidget(new Drawing({markSide, markSide},
        [this](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            const PaneBadge::Look look = PaneBadge::look(m_result.status);
            if (m_isCured)
                Symbol::paint(painter, rect, u"arrow.uturn.forward"_s, {palette.muted});
            else
                Symbol::paint(painter, rect, look.symbol, {palette.*look.tone});
        }));
    line.addWidget(new Drawing({iconSide, iconSide},
        [this](QPainter &painter, const QRectF &rect, const Board::Palette &) {
            if (m_result.pane.app)
                AppIcons::shared().paint(painter, rect, *m_result.pane.app);
        }));
}

void ReportRow::addCure(QHBoxLayout &line, PaneCure cure, const WindowLayout &layout)
{
    if (m_hint)
        m_hint->setText(tr("Connect %1, or").arg(displayName(m_result.pane, layout)));
    if (cure == PaneCure::none)
        return;
    m_cure = new QPushButton(title(cure));
    line.addWidget(m_cure);
}

void ReportRow::follow(const WindowLayout &layout)
{
    const Pane &pane = m_result.pane;
    const QString size =
        tr("%1 × %2 %").arg(percent(pane.rect.w), percent(pane.rect.h)).replace(u' ', QChar::Nbsp);
    m_place = u"%1, %2"_s.arg(displayName(pane, layout), size);
    m_name->setText(pane.app ? oneLine(pane.app->name) : tr("Pane"));
    setSentence(m_sentence);
}

void ReportRow::setSentence(const QString &sentence)
{
    m_sentence = sentence;
    m_text->setText(u"%1 · %2"_s.arg(m_sentence, m_place));
    const QString whole = m_name->text() + u' ' + m_sentence;
    setAccessibleName(whole);
    setAccessibleDescription(m_hint ? m_place + u". "_s + m_hint->text() : m_place);
    if (m_cure)
        m_cure->setAccessibleDescription(m_hint ? whole + u". "_s + m_hint->text() : whole);
}

void ReportRow::setCurrent(bool isCurrent)
{
    m_isCurrent = isCurrent;
    update();
}

void ReportRow::showCured(const WindowLayout &layout, const QString &sentence)
{
    const auto pane = std::ranges::find(layout.panes, m_result.pane.id, &Pane::id);
    if (pane != layout.panes.end())
        m_result.pane = *pane;
    m_isCured = true;
    m_sentence = sentence;
    if (m_hint) {
        delete m_hint;
        m_hint = nullptr;
    }
    follow(layout);
    update();
}

void ReportRow::paintEvent(QPaintEvent *)
{
    if (!m_isCurrent)
        return;
    const Board::Palette &palette = BoardStyle::shared().colors();
    QColor tint = palette.accent;
    tint.setAlphaF(0.12F);
    QPainter painter(this);
    drawField(painter, QRectF(rect()).adjusted(3, 3, -3, -3), Board::length(7), tint,
        BoardStyle::shared().look().hasHighContrast ? palette.accent : tint);
}

void ReportRow::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    Q_EMIT chosen();
}

void ReportRow::mousePressEvent(QMouseEvent *)
{
    Q_EMIT chosen();
}

void ReportRow::keyPressEvent(QKeyEvent *event)
{
    const int step = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    QList<ReportRow *> rows = parentWidget()->findChildren<ReportRow *>();
    rows.removeIf([](const ReportRow *row) { return row->isHidden(); });
    const qsizetype next = rows.indexOf(this) + step;
    if (step == 0 || event->modifiers() & ~Qt::KeypadModifier)
        return QWidget::keyPressEvent(event);
    if (next >= 0 && next < rows.size())
        rows[next]->setFocus(Qt::OtherFocusReason);
}

} // namespace corvane
