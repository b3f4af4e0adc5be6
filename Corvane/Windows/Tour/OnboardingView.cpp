#include "OnboardingView.h"

#include "BoardStyle.h"
#include "Buttons.h"
#include "Drawing.h"
#include "Platform.h"
#include "ScrollFade.h"
#include "TourPicture.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize drawnSize{720, 466};
constexpr int pictureWidth = 272;
constexpr int widthWithoutPicture = 520;
/// Text of this many times the drawings' size, and larger, needs the room of the picture.
constexpr double largeText = 1.5;

bool hasLargeText()
{
    return Board::length(100) >= 100 * largeText;
}

/// The picture of the page that is shown.
class Picture final : public QWidget
{
public:
    Picture(const OnboardingView &view, const AppModel &model) : m_view(view), m_model(model)
    {
        setFixedWidth(Board::length(pictureWidth));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        TourPicture::paint(painter, rect(), m_view.page(), m_model);
        const int edge = isRightToLeft() ? 0 : width() - 1;
        painter.setPen(BoardStyle::shared().colors().hairline);
        painter.drawLine(edge, 0, edge, height());
    }

private:
    const OnboardingView &m_view;
    const AppModel &m_model;
};

/// A point for each page, that of the one which is shown longer.
QWidget *makeDots(const OnboardingView &view)
{
    constexpr double side = 7;
    constexpr double longSide = 18;
    constexpr double gap = 7;
    constexpr double count = tourPages.size();
    return new Drawing({(count - 1) * (side + gap) + longSide, side},
        [&view](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            double left = 0;
            for (const TourPage page : tourPages) {
                const bool isShown = page == view.page();
                const double width = Board::length(isShown ? longSide : side);
                painter.setBrush(isShown ? palette.accent : palette.edge);
                const QRectF dot(view.isRightToLeft() ? rect.right() - left - width : left,
                    rect.top(), width, rect.height());
                painter.drawRoundedRect(dot, dot.height() / 2, dot.height() / 2);
                left += width + Board::length(gap);
            }
        });
}

} // namespace

OnboardingView::OnboardingView(
    AppModel &model, int startPage, std::function<void(bool isDone)> finish)
    : m_model(model), m_page(tourPages.front()), m_finish(std::move(finish))
{
    build();
    for (const auto &[key, pages] : {std::pair(Qt::Key_PageDown, 1), {Qt::Key_PageUp, -1}})
        connect(new QShortcut(key, this), &QShortcut::activated, this,
            [this, pages] { turnBy(pages); });
    const auto update = [this] { showPage(); };
    connect(&model, &AppModel::accessibilityTrustedChanged, this, update);
    connect(&model, &AppModel::competitorsChanged, this, update);
    connect(&model, &AppModel::unregisteredChanged, this, update);
    connect(&model, &AppModel::settingsChanged, this, update);
    connect(&Platform::current().hotKeys(), &HotKeys::labelsChanged, this, update);
    turnTo(startPage);
    m_next->setFocus();
}

OnboardingView::~OnboardingView()
{
    delete m_practice;
}

QSize OnboardingView::sizeHint() const
{
    const int width = m_picture ? drawnSize.width() : widthWithoutPicture;
    return {Board::length(width), Board::length(drawnSize.height())};
}

/// Text of another size changes every length, so all is laid out anew.
void OnboardingView::build()
{
    const QScopedValueRollback rebuilding(m_isRebuilding, true);
    delete layout();
    for (QWidget *child : findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        child->hide();
        child->deleteLater();
    }
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    m_picture = hasLargeText() ? nullptr : new Picture(*this, m_model);
    if (m_picture)
        row->addWidget(m_picture);
    m_scrolled = new QScrollArea;
    m_scrolled->setWidgetResizable(true);
    m_scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrolled->setFocusPolicy(Qt::NoFocus);
    m_scrolled->viewport()->setAutoFillBackground(false);
    new ScrollFade(*m_scrolled, &Board::Palette::sheet);
    row->addWidget(m_scrolled, 1);
    column->addLayout(row, 1);
    column->addSpacing(1); // a hairline
    buildFoot(*column);
}

void OnboardingView::buildFoot(QVBoxLayout &column)
{
    auto *foot = new QGridLayout;
    const int margin = Board::length(20);
    foot->setContentsMargins(margin, Board::length(14), margin, Board::length(14));
    foot->setHorizontalSpacing(Board::length(8));
    m_place = new BoardText({}, Board::Type::smallNumerals, &Board::Palette::muted);
    m_dots = makeDots(*this);
    m_back = pushButton(tr("Back"), this, [this] { turnBy(-1); });
    m_next = pushButton(QString(), this, [this] { turnBy(1); });
    m_next->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(Board::length(8));
    buttons->addStretch(1);
    buttons->addWidget(m_back);
    buttons->addWidget(m_next);
    foot->addWidget(m_place, 0, 0);
    foot->addWidget(m_dots, 0, 1, Qt::AlignVCenter);
    foot->addLayout(buttons, 0, 2);
    // The dots stay in the middle, whatever the buttons are called.
    foot->setColumnStretch(0, 1);
    foot->setColumnStretch(2, 1);
    column.addLayout(foot);
}

void OnboardingView::turnTo(int page)
{
    if (m_practice)
        m_practice->close();
    m_page = tourPages[size_t(std::clamp(page, 0, int(tourPages.size()) - 1))];
    showPage();
    m_title->setFocus(Qt::OtherFocusReason);
}

void OnboardingView::turnBy(int pages)
{
    const int page = int(m_page) + pages;
    if (page >= int(tourPages.size()))
        return m_finish(true);
    if (page >= 0)
        turnTo(page);
}

void OnboardingView::showPage()
{
    const bool hadFocus = m_scrolled->isAncestorOf(focusWidget());
    fillPage();
    const bool isLast = m_page == tourPages.back();
    const bool isUntrusted = m_page == TourPage::accessibility && !m_model.accessibilityTrusted;
    m_place->setText(u"%1/%2"_s.arg(int(m_page) + 1).arg(tourPages.size()));
    m_back->setVisible(m_page != tourPages.front());
    m_next->setText(isLast ? tr("Done") : isUntrusted ? tr("Continue Anyway") : tr("Continue"));
    m_dots->update();
    if (m_picture)
        m_picture->update();
    if (hadFocus)
        m_title->setFocus(Qt::OtherFocusReason);
}

void OnboardingView::fillPage()
{
    auto *content = new QWidget;
    m_text = new QVBoxLayout(content);
    m_text->setContentsMargins(
        Board::length(36), Board::length(38), Board::length(36), Board::length(24));
    m_text->setSpacing(Board::length(10));
    switch (m_page) {
    case TourPage::welcome:
        addWelcome();
        break;
    case TourPage::accessibility:
        addAccessibility();
        break;
    case TourPage::alsoRunning:
        addAlsoRunning();
        break;
    case TourPage::shortcuts:
        addShortcuts();
        break;
    case TourPage::layouts:
        addLayouts();
        break;
    }
    m_text->addStretch(1);
    m_scrolled->setWidget(content);
    content->setAutoFillBackground(false); // which the call before has turned on
}

void OnboardingView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange || m_isRebuilding || !m_title)
        return;
    const bool hadNext = m_next->hasFocus();
    build();
    showPage();
    (hadNext ? static_cast<QWidget *>(m_next) : m_title)->setFocus(Qt::OtherFocusReason);
}

// Return presses the button that has the focus, and from anywhere else the one that goes on.
void OnboardingView::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || event->isAutoRepeat())
        return QWidget::keyPressEvent(event);
    auto *button = qobject_cast<QAbstractButton *>(focusWidget());
    (button ? button : m_next)->click();
}

void OnboardingView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const Board::Palette &palette = BoardStyle::shared().colors();
    painter.fillRect(rect(), palette.sheet);
    painter.setPen(palette.hairline);
    const int foot = m_scrolled->geometry().bottom() + 1;
    painter.drawLine(0, foot, width(), foot);
}

} // namespace corvane
