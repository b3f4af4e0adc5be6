#include "AppPicker.h"

#include "AppIcons.h"
#include "AppPickerDelegate.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "DevicePixels.h"
#include "FocusRing.h"
#include "ListSelection.h"
#include "OneLine.h"
#include "Platform.h"
#include "ScrollFade.h"
#include "SearchField.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>

#include <algorithm>

namespace corvane {

namespace {

constexpr QSize drawnSize{420, 520};
constexpr int screenMargin = 64; ///< that a sheet leaves of its screen

} // namespace

AppPicker::AppPicker(QWidget *window)
    : QDialog(window), m_installed(Platform::current().applications().installed())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Choose App"));
    const QSize room = screen()->availableSize() - QSize(screenMargin, screenMargin);
    setFixedSize(
        QSize(Board::length(drawnSize.width()), Board::length(drawnSize.height())).boundedTo(room));
    new FocusRing(*this, true); // only keys lead here
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(1); // for a rule
    column->addWidget(searchBar());
    m_stack = new QStackedWidget;
    m_list = list();
    m_nothing = nothing();
    m_stack->addWidget(m_list);
    m_stack->addWidget(m_nothing);
    column->addWidget(m_stack, 1);
    column->addWidget(foot());
    m_choose->setDefault(true); // which it would not be from before it was in the window
    Applications &applications = Platform::current().applications();
    m_changes.setSingleShot(true);
    m_changes.setInterval(0);
    connect(&m_changes, &QTimer::timeout, this, &AppPicker::follow);
    connect(&applications, &Applications::launched, &m_changes, qOverload<>(&QTimer::start));
    connect(&applications, &Applications::terminated, &m_changes, qOverload<>(&QTimer::start));
    m_changes.start(); // the list comes in a turn of its own, as each takes its time
    m_search->setFocus();
}

QWidget *AppPicker::searchBar()
{
    auto *bar = new QWidget;
    auto *column = new QVBoxLayout(bar);
    const int margin = Board::length(16);
    column->setContentsMargins(margin, margin, margin, Board::length(12));
    m_search = new SearchField({});
    m_search->setMinimumHeight(Board::length(32));
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &AppPicker::search);
    column->addWidget(m_search);
    return bar;
}

QListView *AppPicker::list()
{
    auto *list = new QListView;
    list->setModel(&m_apps);
    list->setItemDelegate(new AppPickerDelegate(list));
    list->setAccessibleName(tr("Apps"));
    list->setFrameShape(QFrame::NoFrame);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->viewport()->setAutoFillBackground(false);
    list->viewport()->setAttribute(Qt::WA_Hover);
    list->installEventFilter(this);
    new ScrollFade(*list, &Board::Palette::sheet);
    connect(list, &QListView::doubleClicked, this, &AppPicker::choose);
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        &AppPicker::showCurrent);
    keepCurrentSelected(*list);
    connect(
        &AppIcons::shared(), &AppIcons::loaded, list->viewport(), qOverload<>(&QWidget::update));
    return list;
}

QWidget *AppPicker::nothing()
{
    auto *whole = new QWidget;
    auto *column = new QVBoxLayout(whole);
    const int margin = Board::length(32);
    column->setContentsMargins(margin, 0, margin, 0);
    column->setSpacing(Board::length(8));
    m_nothingTitle = new BoardText({});
    QFont font = m_nothingTitle->font();
    font.setWeight(QFont::DemiBold);
    m_nothingTitle->setFont(font);
    m_nothingHelp = new BoardText(tr("Apps are found by their name, purpose and identifier."),
        Board::Type::secondary, &Board::Palette::muted);
    column->addStretch(1);
    for (BoardText *text : {m_nothingTitle, m_nothingHelp}) {
        text->setAlignment(Qt::AlignCenter);
        column->addWidget(text);
    }
    m_clear = new QPushButton(tr("Clear Search"));
    connect(m_clear, &QPushButton::clicked, this, [this] {
        m_search->clear();
        m_search->setFocus();
    });
    column->addSpacing(Board::length(8));
    column->addWidget(m_clear, 0, Qt::AlignHCenter);
    column->addStretch(1);
    return whole;
}

QWidget *AppPicker::foot()
{
    auto *buttons = new QDialogButtonBox;
    const int margin = Board::length(16);
    buttons->setContentsMargins(margin, Board::length(12), margin, Board::length(12));
    QPushButton *none = buttons->addButton(tr("No App"), QDialogButtonBox::ResetRole);
    none->setToolTip(tr("Leave the pane empty"));
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    m_choose = buttons->addButton(tr("Choose"), QDialogButtonBox::AcceptRole);
    connect(none, &QPushButton::clicked, this, [this] {
        Q_EMIT chosen(std::nullopt);
        accept();
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &AppPicker::choose);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void AppPicker::follow()
{
    const QModelIndex before = m_list->currentIndex();
    const AppCandidate *current = m_apps.candidate(before);
    const QString id = current ? current->app.bundleID : QString();
    const int row = before.row();
    m_apps.setCandidates(appCandidates(m_installed));
    const int count = m_apps.offeredCount();
    m_search->setPlaceholder(
        count == 0 ? tr("Search apps") : tr("Search %n app(s)", nullptr, count));
    QModelIndex index = m_apps.indexOf(id);
    if (!index.isValid() && row > 0)
        index = m_apps.index(std::min(row, m_apps.rowCount() - 1));
    setCurrent(m_apps.candidate(index) ? index : m_apps.first());
}

void AppPicker::search()
{
    m_apps.setSearch(m_search->text());
    setCurrent(m_apps.first());
}

void AppPicker::setCurrent(const QModelIndex &index)
{
    m_list->setCurrentIndex(index);
    showCurrent();
}

/// What depends on the rows and on which of them is the current one.
void AppPicker::showCurrent()
{
    const QModelIndex current = m_list->currentIndex();
    const bool isEmpty = m_apps.shownCount() == 0;
    if (isEmpty) {
        m_nothingTitle->setText(m_apps.hasCandidates()
                ? tr("No app is called “%1”").arg(oneLine(m_search->text().trimmed(), 40))
                : tr("No apps found."));
        m_nothingHelp->setVisible(m_apps.hasCandidates());
        m_clear->setVisible(m_apps.hasCandidates());
        if (!m_nothing->isAncestorOf(focusWidget()))
            m_search->setFocus();
    }
    m_stack->setCurrentWidget(isEmpty ? m_nothing : m_list);
    m_choose->setEnabled(current.isValid());
    // A section's title is to be seen with its first row, and the current row clear of the fades; but
    // nothing moves under the pointer between two clicks.
    if (QGuiApplication::mouseButtons() == Qt::NoButton) {
        for (const int beside : {1, -1, 0})
            m_list->scrollTo(m_apps.index(current.row() + beside));
    }
    // So that a screen reader tells what Return would choose.
    m_search->setAccessibleDescription(
        isEmpty ? m_nothingTitle->text() : current.data(Qt::AccessibleTextRole).toString());
}

void AppPicker::choose()
{
    const AppCandidate *candidate = m_apps.candidate(m_list->currentIndex());
    if (!candidate)
        return;
    Q_EMIT chosen(candidate->app);
    accept();
}

/// From the search field, keys that move in a list do so.
bool AppPicker::goesToList(const QKeyEvent &event) const
{
    const int key = event.key();
    const bool moves = key == Qt::Key_Down || key == Qt::Key_PageDown;
    return moves && !(event.modifiers() & ~Qt::KeypadModifier) && m_apps.shownCount() > 0;
}

/// In the list, what edits the text, and Up from the first application.
bool AppPicker::returnsToSearch(const QKeyEvent &event) const
{
    if (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    const QString text = event.text();
    return event.key() == Qt::Key_Backspace || (!text.isEmpty() && text.front().isPrint())
        || (event.key() == Qt::Key_Up && m_list->currentIndex() == m_apps.first());
}

bool AppPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        const bool toList = watched == m_search && goesToList(key);
        if (toList || (watched == m_list && returnsToSearch(key))) {
            QWidget *other = toList ? static_cast<QWidget *>(m_list) : m_search;
            other->setFocus();
            return QCoreApplication::sendEvent(other, event);
        }
    }
    return QDialog::eventFilter(watched, event);
}

// Keys that are still held from before are not an answer.
void AppPicker::keyPressEvent(QKeyEvent *event)
{
    if (!event->isAutoRepeat())
        QDialog::keyPressEvent(event);
}

void AppPicker::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const QRect middle = m_stack->geometry();
    QPainter painter(this);
    painter.fillRect(rect(), palette.sheet);
    for (const int y : {middle.top() - 1, middle.bottom() + 1})
        drawRule(painter, QRectF(0, y, width(), 1), palette.hairline);
}

} // namespace corvane
