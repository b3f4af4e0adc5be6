#include "PracticeWindow.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "Buttons.h"
#include "CorvaneMark.h"
#include "DraftingGrid.h"
#include "Drawing.h"
#include "FocusRing.h"
#include "KeyCaps.h"
#include "KeySentence.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QVBoxLayout>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize drawnSize{420, 300};
constexpr QSize leastSize{200, 120};

class GridGround final : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const Board::Palette &palette = BoardStyle::shared().colors();
        painter.fillRect(rect(), palette.sheet);
        DraftingGrid::paint(painter, rect(), Board::length(16), palette);
    }
};

Drawing *openStep()
{
    return new Drawing(
        {18, 18}, [](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            const double inset = Board::length(3);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette.faint, 1.5));
            painter.drawEllipse(rect.adjusted(inset, inset, -inset, -inset));
        });
}

bool works(const AppModel &model, Placement placement)
{
    return model.settings().shortcuts.contains(placement)
        && !model.unregistered.value().contains({placement});
}

QString keysOf(const AppModel &model, Placement placement)
{
    return KeyCaps::glyphsOf(model.settings().shortcuts.value(placement));
}

} // namespace

bool PracticeWindow::canPractise(const AppModel &model)
{
    return model.accessibilityTrusted && works(model, Placement::leftHalf)
        && works(model, Placement::snapBack);
}

PracticeWindow::PracticeWindow(AppModel &model, QWidget *parent)
    : QMainWindow(parent, Qt::Window), m_model(model)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Practice Window"));
    setWindowIcon(CorvaneMark::icon());
    setMinimumSize(leastSize);
    resize(Board::length(drawnSize.width()), Board::length(drawnSize.height()));
    m_steps << Step{Placement::leftHalf,
        tr("Press [[%1]] for the left half").arg(keysOf(model, Placement::leftHalf))};
    if (model.settings().cycling)
        m_steps << Step{Placement::leftTwoThirds, tr("Press the same keys again for two thirds")};
    m_steps << Step{Placement::snapBack,
        tr("Press [[%1]] to undo the last move").arg(keysOf(model, Placement::snapBack))};
    new FocusRing(*this);
    build();
    connect(&model, &AppModel::lastMoveChanged, this, &PracticeWindow::follow);
}

QWidget *PracticeWindow::makeList() const
{
    auto *list = new QWidget;
    auto *column = new QVBoxLayout(list);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(10));
    for (qsizetype i = 0; i < m_steps.size(); ++i) {
        const bool isDone = i < m_done;
        auto *row = new QHBoxLayout;
        row->setSpacing(Board::length(12));
        row->addWidget(
            isDone ? Drawing::ofSymbol(18, u"checkmark"_s, &Board::Palette::ready) : openStep(), 0,
            Qt::AlignTop);
        auto *sentence = new KeySentence(m_steps[i].sentence, Board::Type::body,
            i == m_done ? &Board::Palette::fore : &Board::Palette::muted);
        if (isDone)
            sentence->setAccessibleName(tr("Done: %1").arg(sentence->accessibleName()));
        row->addWidget(sentence, 1);
        column->addLayout(row);
    }
    return list;
}

void PracticeWindow::build()
{
    const QScopedValueRollback building(m_isBuilding, true);
    auto *scrolled = new QScrollArea;
    scrolled->setWidgetResizable(true);
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setFocusPolicy(Qt::NoFocus);
    auto *ground = new GridGround;
    scrolled->setWidget(ground);
    auto *column = new QVBoxLayout(ground);
    const int margin = Board::length(24);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Board::length(12));
    const bool isOver = m_done == m_steps.size();
    auto *title = new BoardText(
        isOver ? tr("That is all there is to it") : tr("Move this window"), Board::Type::title);
    title->setWordWrap(true);
    column->addWidget(title);
    column->addWidget(makeList());
    column->addStretch(1);
    QPushButton *close =
        pushButton(isOver ? tr("Back to the Tour") : tr("Close"), this, [this] { this->close(); });
    close->setDefault(isOver);
    column->addWidget(close, 0, Qt::AlignTrailing);
    setCentralWidget(scrolled);
    close->setFocus();
}

void PracticeWindow::follow()
{
    const auto &move = m_model.lastMove.value();
    if (!move || m_done == m_steps.size() || move->windowTitle != windowTitle()
        || move->placement != m_steps[m_done].placement)
        return;
    ++m_done;
    build();
    Q_EMIT progressed();
}

void PracticeWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange && !m_isBuilding && centralWidget())
        build();
}

void PracticeWindow::keyPressEvent(QKeyEvent *event)
{
    // Its one button has the focus.
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return
        || event->key() == Qt::Key_Enter)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

void PracticeWindow::closeEvent(QCloseEvent *event)
{
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

} // namespace corvane
