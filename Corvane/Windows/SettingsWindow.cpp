#include "SettingsWindow.h"

#include "AboutPane.h"
#include "BoardStyle.h"
#include "CorvaneMark.h"
#include "FocusRing.h"
#include "GeneralPane.h"
#include "LayoutsPane.h"
#include "MainMenu.h"
#include "NoticeStrips.h"
#include "PaneHead.h"
#include "SettingsRail.h"
#include "SettingsUpdateResume.h"
#include "ShortcutsPane.h"
#include "StealSheet.h"
#include "TremorLogPane.h"
#include "UserDefaults.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStackedWidget>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize drawnSize{880, 620};
constexpr QSize leastSize{720, 480};
constexpr int narrowBelow = 760;
constexpr QLatin1StringView rememberedAs{"settingsWindow"};

QSize scaled(const QSize &drawn)
{
    return {Board::length(drawn.width()), Board::length(drawn.height())};
}

void followLayout(QLayout &layout, QWidget *&last);

/// Has Tab go on from the last widget to this one and to what is in it, as it is laid out.
void followLayout(QWidget &widget, QWidget *&last)
{
    if (&widget != last && widget.focusPolicy() & Qt::TabFocus) {
        QWidget::setTabOrder(last, &widget);
        last = &widget;
    }
    if (const auto *area = qobject_cast<QScrollArea *>(&widget))
        followLayout(*area->widget(), last);
    else if (QLayout *layout = widget.layout())
        followLayout(*layout, last);
}

void followLayout(QLayout &layout, QWidget *&last)
{
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem &item = *layout.itemAt(i);
        if (QWidget *widget = item.widget())
            followLayout(*widget, last);
        else if (QLayout *inner = item.layout())
            followLayout(*inner, last);
    }
}

} // namespace

SettingsWindow::SettingsWindow(AppModel &model, MenuTarget target)
    : m_model(model)
    , m_target(std::move(target))
    , m_rows(RowForm::drawn)
    , m_pane(settingsPaneNamed(model.pendingPane).value_or(SettingsPane::general))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Corvane Settings"));
    setWindowIcon(CorvaneMark::icon());
    build();
    addMainMenu();
    addKeys();
    new FocusRing(*this);
    placeInTheMiddle();
    connect(&model, &AppModel::layoutsChanged, this, &SettingsWindow::addMainMenu);
    connect(&BoardStyle::shared(), &BoardStyle::lookChanged, this, &SettingsWindow::addMainMenu);
    connect(&model, &AppModel::pendingPaneChanged, this, &SettingsWindow::showPending);
    connect(&model, &AppModel::noticesChanged, this, &SettingsWindow::showNotices);
    connect(&model, &AppModel::savedFlashChanged, this, &SettingsWindow::showSaved);
    connect(&model, &AppModel::pendingStealChanged, this, &SettingsWindow::askForSteal);
    showPending();
    askForSteal();
    m_rail->list().setFocus();
}

SettingsWindow::~SettingsWindow()
{
    SettingsUpdateResume::pane.clear();
    m_model.endRecording();
    if (m_model.pendingSteal.value())
        m_model.cancelSteal(); // its sheet goes, too
    delete menuWidget(); // before its rows
}

/// Of the display on which the user is.
void SettingsWindow::placeInTheMiddle()
{
    if (QScreen *users = QGuiApplication::screenAt(QCursor::pos()))
        setScreen(users);
    const QRect room = screen()->availableGeometry();
    setMinimumSize(scaled(leastSize).boundedTo(room.size()));
    const QSize remembered = UserDefaults::windowSize(rememberedAs);
    resize((remembered.isValid() ? remembered : scaled(drawnSize))
               .expandedTo(minimumSize())
               .boundedTo(room.size()));
    move(room.center() - rect().center());
}

/// Where no desktop shows the menu bar, its keys work all the same, and the rail's button opens it.
void SettingsWindow::addMainMenu()
{
    QMenuBar *bar = MainMenu::build(m_rows, m_target, m_model).release();
    setMenuBar(bar);
    if (!bar->isNativeMenuBar())
        bar->setFixedHeight(0);
}

void SettingsWindow::popMenu(const QPoint &bottomLeft)
{
    QMenu *menu = m_rows.makeMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *each : menuBar()->actions()) {
        auto *submenu = each->menu<QMenu *>();
        m_rows.addSubmenu(*menu, *submenu, {.title = submenu->title()});
    }
    m_rows.layoutRows(*menu, 0);
    menu->popup(bottomLeft - QPoint(0, menu->sizeHint().height()));
}

void SettingsWindow::build()
{
    auto *whole = new QWidget;
    auto *row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_rail = new SettingsRail(m_model);
    row->addWidget(m_rail);
    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, Board::length(24), 0, 0);
    column->setSpacing(0);
    m_notices = new NoticeStrips;
    connect(m_notices, &NoticeStrips::dismissed, this, [this](const QString &id) {
        m_model.dismissNotice(id);
        if (!m_notices->takeFocus())
            m_rail->list().setFocus(Qt::OtherFocusReason);
    });
    connect(m_notices, &NoticeStrips::accepted, this, [this](Notice::Offer offer) {
        if (offer == Notice::Offer::openAgain)
            m_model.onOpenAgain();
        else
            m_model.pendingReport = QString();
    });
    column->addWidget(m_notices);
    m_stack = new QStackedWidget;
    column->addWidget(m_stack, 1);
    row->addLayout(column, 1);
    connect(m_rail, &SettingsRail::menuAsked, this, &SettingsWindow::popMenu);
    connect(m_rail, &SettingsRail::chosen, this, [this](SettingsPane pane) { show(pane); });
    setCentralWidget(whole);
    fit();
    showNotices();
    show(m_pane);
}

void SettingsWindow::fit()
{
    m_rail->setNarrow(width() < Board::length(narrowBelow));
    m_notices->bound(height() / 3);
}

/// Text of another size changes every length, so all is laid out anew, with what was shown.
void SettingsWindow::rebuild()
{
    const QScopedValueRollback rebuilding(m_isRebuilding, true);
    setUpdatesEnabled(false);
    m_model.endRecording();
    const QScrollArea *scrolled = page(m_pane).scrolled();
    const int at = scrolled ? scrolled->verticalScrollBar()->value() : 0;
    const bool inRail = m_rail->isAncestorOf(focusWidget());
    m_pages.clear();
    build();
    setMinimumSize(scaled(leastSize).boundedTo(screen()->availableSize()));
    if (QScrollArea *again = page(m_pane).scrolled())
        again->verticalScrollBar()->setValue(at);
    if (inRail)
        m_rail->list().setFocus();
    setUpdatesEnabled(true);
}

SettingsPage *SettingsWindow::makePage(SettingsPane pane)
{
    switch (pane) {
    case SettingsPane::general:
        return new GeneralPane(m_model);
    case SettingsPane::shortcuts:
        return new ShortcutsPane(m_model);
    case SettingsPane::layouts:
        return new LayoutsPane(m_model, m_target.applyLayout, m_target.captureLayout);
    case SettingsPane::tremorLog:
        return new TremorLogPane(m_model);
    case SettingsPane::about:
        return new AboutPane(m_model);
    }
    Q_UNREACHABLE();
}

SettingsPage &SettingsWindow::page(SettingsPane pane)
{
    SettingsPage *&page = m_pages[pane];
    if (!page) {
        page = makePage(pane);
        m_stack->addWidget(page);
    }
    return *page;
}

void SettingsWindow::show(SettingsPane pane)
{
    if (std::exchange(m_pane, pane) != pane)
        m_model.endRecording();
    SettingsUpdateResume::pane = rawValue(pane);
    const bool isInPage = m_stack->isAncestorOf(focusWidget());
    m_stack->setCurrentWidget(&page(pane));
    m_rail->setCurrent(pane);
    if (isInPage)
        m_rail->list().setFocus();
}

void SettingsWindow::addKeys()
{
    const auto add = [this](const QKeySequence &keys, auto &&act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    add(Qt::CTRL | Qt::Key_PageDown, [this] { turn(1); });
    add(Qt::CTRL | Qt::Key_PageUp, [this] { turn(-1); });
    add(QKeySequence::Close, [this] { close(); });
}

void SettingsWindow::turn(int by)
{
    const int count = int(settingsPanes.size());
    show(settingsPanes[size_t((int(m_pane) + by + count) % count)]);
}

void SettingsWindow::showPending()
{
    const QString name = m_model.pendingPane;
    if (name.isEmpty())
        return;
    m_model.pendingPane = QString();
    if (const auto pane = settingsPaneNamed(name))
        show(*pane);
}

void SettingsWindow::showNotices()
{
    m_notices->show(m_model.notices());
}

void SettingsWindow::showSaved()
{
    if (!m_isRebuilding)
        page(m_pane).head().showSaved();
}

void SettingsWindow::askForSteal()
{
    if (const auto &steal = m_model.pendingSteal.value())
        (new StealSheet(m_model, *steal, this))->open();
}

// Notices, rows and buttons come long after the controls below them, which Tab would reach first.
bool SettingsWindow::focusNextPrevChild(bool next)
{
    if (!m_isRebuilding) {
        QWidget *last = &m_rail->list();
        followLayout(*centralWidget(), last);
    }
    return QMainWindow::focusNextPrevChild(next);
}

void SettingsWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange && !m_isRebuilding && m_rail)
        rebuild();
}

void SettingsWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    fit();
}

void SettingsWindow::closeEvent(QCloseEvent *event)
{
    m_model.endRecording();
    if (!isMaximized() && !isFullScreen())
        UserDefaults::setWindowSize(rememberedAs, size());
    QMainWindow::closeEvent(event);
}

} // namespace corvane
