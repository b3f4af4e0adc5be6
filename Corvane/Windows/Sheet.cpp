#include "Sheet.h"

#include "BoardStyle.h"
#include "CorvaneMark.h"
#include "FocusRing.h"
#include "ScrollFade.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int screenMargin = 64; ///< that a sheet leaves of its screen
constexpr double sideMargin = 24;
constexpr double headlineSize = 17;

/// As high as what it scrolls, as far as the screen has room for that above the foot.
class SheetArea final : public QScrollArea
{
public:
    SheetArea(int width, const QWidget &foot) : m_foot(foot)
    {
        setFixedWidth(width);
        QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // it stands in the margin
        setWidgetResizable(true);
        viewport()->setAutoFillBackground(false);
    }

    [[nodiscard]] int barWidth() const { return verticalScrollBar()->sizeHint().width(); }
    [[nodiscard]] int heightForWidth(int width) const override
    {
        const int room =
            screen()->availableSize().height() - screenMargin - m_foot.sizeHint().height();
        return std::min(widget()->layout()->totalHeightForWidth(width - barWidth()), room);
    }
    [[nodiscard]] QSize sizeHint() const override { return {width(), heightForWidth(width())}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }

private:
    const QWidget &m_foot;
};

} // namespace

Sheet::Sheet(const QString &title, double width, QWidget *window)
    : QDialog(window), m_buttons(new QDialogButtonBox)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(title);
    setWindowIcon(CorvaneMark::icon());
    new FocusRing(*this, true); // only keys lead here
    auto *area = new SheetArea(Board::length(width), *m_buttons);
    auto *scrolled = new QWidget;
    m_content = new QVBoxLayout(scrolled);
    const int side = Board::length(sideMargin);
    m_content->setContentsMargins(
        Board::margins(side, Board::length(20), side - area->barWidth(), Board::length(4)));
    m_content->setSpacing(Board::length(8));
    area->setWidget(scrolled);
    scrolled->setAutoFillBackground(false);
    new ScrollFade(*area, &Board::Palette::sheet);
    m_buttons->setContentsMargins(side, Board::length(16), side, side);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(area);
    column->addWidget(m_buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

BoardText *Sheet::addHead(const QString &label, BoardText::Tone tone)
{
    auto *head = new QHBoxLayout;
    head->setSpacing(Board::length(8));
    head->addWidget(CorvaneMark::widget(16));
    head->addWidget(new BoardText(u"Corvane"_s, Board::Type::label, &Board::Palette::muted), 1);
    auto *about = new BoardText(label, Board::Type::label, tone);
    head->addWidget(about);
    m_content->addLayout(head);
    m_content->addSpacing(Board::length(8));
    return about;
}

BoardText *Sheet::headline(const QString &text)
{
    auto *line = new BoardText(text);
    QFont font = line->font();
    font.setPixelSize(Board::length(headlineSize));
    font.setWeight(QFont::DemiBold);
    line->setFont(font);
    return line;
}

QPushButton *Sheet::addButton(const QString &title, QDialogButtonBox::ButtonRole role)
{
    QPushButton *button = m_buttons->addButton(title, role);
    button->setAutoDefault(false); // the default one stays the default one
    return button;
}

void Sheet::addButton(QAbstractButton *button, QDialogButtonBox::ButtonRole role)
{
    m_buttons->addButton(button, role);
}

// One of them may be in the middle of being pressed. One that has the focus would take it along, and
// the sheet would not be active any more.
void Sheet::clearButtons()
{
    for (QAbstractButton *button : m_buttons->buttons()) {
        button->hide();
        m_buttons->removeButton(button);
        button->deleteLater();
    }
}

void Sheet::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    windowHandle()->installEventFilter(this);
}

// Keys that are still held from before are neither an answer nor text.
bool Sheet::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == windowHandle() && event->type() == QEvent::KeyPress) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (key.isAutoRepeat() && !m_begunKeys.contains(key.key()))
            return true;
        m_begunKeys << key.key();
    }
    return QDialog::eventFilter(watched, event);
}

void Sheet::keyPressEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat())
        return;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto *button = qobject_cast<QPushButton *>(focusWidget());
    if (isReturn && button)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

void Sheet::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), BoardStyle::shared().colors().sheet);
}

// What has grown at its lower end is to stay on the screen.
void Sheet::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    const QRect room = screen()->availableGeometry();
    const int below = frameGeometry().bottom() - room.bottom();
    if (isVisible() && below > 0)
        move(x(), std::max(room.top(), frameGeometry().top() - below));
}

} // namespace corvane
