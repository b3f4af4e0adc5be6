#include "LayoutsPane.h"

#include "ApplyReport.h"
#include "AppPicker.h"
#include "BoardLink.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "Buttons.h"
#include "Card.h"
#include "DisplayCard.h"
#include "EmptyBoard.h"
#include "LayoutCard.h"
#include "LayoutList.h"
#include "LayoutPicture.h"
#include "LayoutTools.h"
#include "OneLine.h"
#include "PaneCard.h"
#include "PaneHead.h"
#include "Screens.h"
#include "ScrollFade.h"

#include <QtCore/QSet>
#include <QtGui/QShortcut>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double listWidth = 172;
constexpr double sideBySideFrom = 600;

/// The layout, while it has the pane.
std::optional<WindowLayout> layoutWith(
    const AppModel &model, const QUuid &layoutId, const QUuid &paneId)
{
    auto layout = model.layout(layoutId);
    const bool hasPane = layout
        && std::ranges::any_of(layout->panes, [&](const Pane &pane) { return pane.id == paneId; });
    return hasPane ? layout : std::nullopt;
}

} // namespace

LayoutsPane::LayoutsPane(AppModel &model, std::function<void(const WindowLayout &)> apply,
    std::function<void()> capture, QWidget *parent)
    : SettingsPage(SettingsPane::layouts, parent), m_model(model), m_capture(std::move(capture))
{
    addCommands();
    auto *whole = new QWidget;
    auto *row = new QHBoxLayout(whole);
    const int margin = Board::length(20);
    row->setContentsMargins(sides() + QMargins(0, margin, 0, margin));
    row->setSpacing(Board::length(16));
    row->addWidget(list());
    row->addWidget(editor(std::move(apply)), 1);
    m_stack = new QStackedWidget;
    m_stack->addWidget(whole);
    m_empty = new EmptyBoard;
    connect(m_empty, &EmptyBoard::layoutAsked, this, &LayoutsPane::addEmpty);
    connect(m_empty, &EmptyBoard::captureAsked, this, &LayoutsPane::capture);
    m_stack->addWidget(m_empty);
    addContent(m_stack);
    addKeys();
    connect(&model, &AppModel::layoutsChanged, this, &LayoutsPane::follow);
    connect(m_list, &LayoutList::currentLayoutChanged, this, &LayoutsPane::showCurrent);
    for (const auto signal : {&AppModel::pendingLayoutChanged, &AppModel::pendingRenameChanged,
             &AppModel::pendingPaneIndexChanged, &AppModel::pendingAppPickerChanged})
        connect(&model, signal, this, &LayoutsPane::showPending);
    follow();
    showCurrent();
    showPending();
}

void LayoutsPane::addCommands()
{
    const auto tool = [this](const QString &symbol, const QString &name, auto &&act) {
        QToolButton *button = symbolButton(symbol, &Board::Palette::fore, name);
        connect(button, &QToolButton::clicked, this, act);
        head().addControl(button);
        return button;
    };
    m_undo = tool(u"arrow.uturn.backward"_s, tr("Undo"), [this] { m_model.undo(); });
    m_redo = tool(u"arrow.uturn.forward"_s, tr("Redo"), [this] { m_model.redo(); });
    head().addControl(pushButton(tr("New Empty Layout"), this, [this] { addEmpty(); }));
    head().addControl(pushButton(tr("Capture Current Windows"), this, [this] { capture(); }));
}

/// They work from the rail, too, where the focus is at first; not while another pane shows.
void LayoutsPane::addKeys()
{
    const auto add = [this](const QKeySequence &keys, auto &&act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    const auto addCommand = [&](const QKeySequence &keys, auto &&act) {
        add(keys, [this, act] {
            takeTyped();
            act();
        });
    };
    addCommand(QKeySequence::Save, [this] { m_model.saveLayout(m_list->current()); });
    addCommand(QKeySequence::New, [this] { addEmpty(); });
    addCommand(Qt::CTRL | Qt::SHIFT | Qt::Key_N, [this] { capture(); });
    addCommand(Qt::CTRL | Qt::Key_D, [this] { m_model.duplicateLayout(m_list->current()); });
    add(Qt::CTRL | Qt::Key_Return, [this] { apply(); });
    add(Qt::CTRL | Qt::Key_Enter, [this] { apply(); });
    add(Qt::Key_F6, [this] { goToNextPart(1); });
    add(Qt::SHIFT | Qt::Key_F6, [this] { goToNextPart(-1); });
}

/// A gesture that is under way and a text that is being typed count for what a key does next.
void LayoutsPane::takeTyped()
{
    m_picture->finish();
    QWidget *field = qobject_cast<QLineEdit *>(window()->focusWidget());
    if (!field)
        return;
    QWidget *next = field;
    for (QWidget *owner : {static_cast<QWidget *>(m_list), static_cast<QWidget *>(m_picture)}) {
        if (owner->isAncestorOf(field)) // which closes it
            next = owner;
    }
    field->clearFocus();
    next->setFocus(Qt::ShortcutFocusReason);
}

/// Round from the list over the layout's card and the picture to the cards below it, or the report.
void LayoutsPane::goToNextPart(int direction)
{
    const QList<QWidget *> parts{m_list, m_card, m_picture, m_paneCard, m_displayCard, m_report};
    const QWidget *focus = window()->focusWidget();
    qsizetype at = direction > 0 ? -1 : parts.size();
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (parts[i] == focus || parts[i]->isAncestorOf(focus))
            at = i;
    }
    for (qsizetype tried = 0; tried < parts.size(); ++tried) {
        at = (at + direction + parts.size()) % parts.size();
        QWidget *next = parts[at];
        if (next->focusPolicy() == Qt::NoFocus) {
            next = nullptr;
            for (QWidget *each : parts[at]->findChildren<QWidget *>()) {
                if (!next && each->isVisible() && each->isEnabled()
                    && each->focusPolicy() & Qt::TabFocus)
                    next = each;
            }
        }
        if (next && next->isVisible() && next->isEnabled())
            return next->setFocus(Qt::TabFocusReason);
    }
}

/// A text that is being typed counts, and is put in by losing the focus.
void LayoutsPane::apply()
{
    m_picture->finish();
    if (qobject_cast<QLineEdit *>(window()->focusWidget()))
        m_card->applyButton().setFocus(Qt::ShortcutFocusReason);
    m_card->applyButton().click();
}

void LayoutsPane::addEmpty()
{
    const WindowLayout made = m_model.newEmptyLayout();
    m_list->rename(made.id);
}

/// The name of the new layout is typed next.
void LayoutsPane::capture()
{
    QSet<QUuid> before;
    for (const WindowLayout &layout : m_model.layouts())
        before << layout.id;
    m_capture();
    for (const WindowLayout &layout : m_model.layouts()) {
        if (!before.contains(layout.id))
            return m_list->rename(layout.id);
    }
    if (!m_model.accessibilityTrusted)
        return; // as the user was told
    const QString nothing = tr("No window could be captured.");
    m_empty->say(nothing);
    showStrip(nothing, false);
}

/// Until the layouts change next.
void LayoutsPane::showStrip(const QString &text, bool canUndo)
{
    m_stripText->setText(text);
    m_stripUndo->setVisible(canUndo);
    m_strip->show();
}

QWidget *LayoutsPane::list()
{
    auto *card = new Card;
    card->setFixedWidth(Board::length(listWidth));
    m_list = new LayoutList(m_model);
    auto *area = new QWidget;
    auto *room = new QVBoxLayout(area);
    const int margin = Board::length(5);
    room->setContentsMargins(margin, margin, margin, margin);
    room->addWidget(m_list);
    card->addRow(area);
    m_strip = new QWidget;
    QHBoxLayout *line = Card::layoutRow(m_strip, Board::length(32));
    m_stripText = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    auto *undo = new BoardLink(tr("Undo"), BoardLink::Target::inside);
    m_stripUndo = undo;
    connect(undo, &BoardLink::clicked, this, [this] {
        m_model.undo();
        m_list->setFocus();
    });
    line->addWidget(m_stripText, 1);
    line->addWidget(undo);
    m_strip->hide();
    card->addRow(m_strip);
    connect(m_list, &LayoutList::deleted, this,
        [this](const QString &name) { showStrip(tr("Deleted “%1”").arg(oneLine(name)), true); });
    return card;
}

QWidget *LayoutsPane::withoutDisplays()
{
    auto *whole = new QWidget;
    auto *column = new QVBoxLayout(whole);
    const int margin = Board::length(24);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Board::length(12));
    auto *text = new BoardText(
        tr("This layout has no displays."), Board::Type::body, &Board::Palette::muted);
    text->setAlignment(Qt::AlignCenter);
    column->addStretch(1);
    column->addWidget(text);
    column->addWidget(
        pushButton(tr("Use Connected Displays"), this, [this] { useConnectedDisplays(); }), 0,
        Qt::AlignHCenter);
    column->addStretch(1);
    return whole;
}

void LayoutsPane::useConnectedDisplays()
{
    m_picture->edit(tr("Use Connected Displays"), [](WindowLayout &layout) {
        layout.displays = Screens::signature();
        layout.panes.clear();
        for (int display = 0; display < layout.displays.size(); ++display)
            layout.panes << Pane{.display = display};
    });
}

QWidget *LayoutsPane::editor(std::function<void(const WindowLayout &)> apply)
{
    auto *area = m_area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(14));
    m_card = new LayoutCard(m_model, apply, m_list->actionMenu());
    column->addWidget(m_card);
    m_picture = new LayoutPicture(m_model);
    m_drawing = new QStackedWidget;
    m_drawing->addWidget(m_picture);
    m_drawing->addWidget(withoutDisplays());
    auto *drawing = new Card;
    drawing->setAccessibleName(tr("Picture"));
    drawing->addRow(m_drawing);
    drawing->addRow(new LayoutTools(m_model, *m_picture, *m_list));
    column->addWidget(drawing);
    m_cards = new QBoxLayout(QBoxLayout::TopToBottom);
    m_cards->setSpacing(Board::length(16));
    m_paneCard = new PaneCard(*m_picture);
    connect(m_paneCard, &PaneCard::appAsked, this, &LayoutsPane::askForApp);
    connect(m_picture, &LayoutPicture::appAsked, this, &LayoutsPane::askForApp);
    m_displayCard = new DisplayCard(*m_picture);
    m_cards->addWidget(m_paneCard, 1, Qt::AlignTop);
    m_cards->addWidget(m_displayCard, 1, Qt::AlignTop);
    column->addLayout(m_cards);
    addReport(*column, std::move(apply));
    column->addStretch(1);
    area->setWidget(content);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    new ScrollFade(*area);
    for (const auto signal : {&LayoutPicture::currentPaneChanged, &LayoutPicture::shownChanged})
        connect(m_picture, signal, this, &LayoutsPane::followPicture);
    connect(m_picture, &LayoutPicture::bandAsked, m_displayCard, &DisplayCard::focusBand);
    return area;
}

void LayoutsPane::addReport(QBoxLayout &column, std::function<void(const WindowLayout &)> apply)
{
    m_report = new ApplyReport(m_model, *m_picture, std::move(apply));
    column.addWidget(m_report);
    connect(m_report, &ApplyReport::shownChanged, this, &LayoutsPane::showReport);
    connect(m_report, &ApplyReport::left, this,
        [this] { m_card->applyButton().setFocus(Qt::OtherFocusReason); });
    connect(m_report, &ApplyReport::titleAsked, this, [this] {
        m_paneCard->editTitle();
        m_area->ensureWidgetVisible(m_paneCard);
    });
}

/// Whoever pressed Apply, and waited there, is led to the report; others stay where they are.
void LayoutsPane::showReport()
{
    const bool isShown = m_report->isShown();
    m_paneCard->setVisible(!isShown);
    m_displayCard->setVisible(!isShown);
    m_card->setReported(isShown);
    if (!isShown || window()->focusWidget() != &m_card->applyButton())
        return;
    m_report->turnTo();
    m_area->widget()->layout()->activate(); // else it stands where it was before it was filled
    m_area->ensureWidgetVisible(m_report, 0, 0);
}

/// The cards stand side by side where there is room for both.
void LayoutsPane::resizeEvent(QResizeEvent *event)
{
    SettingsPage::resizeEvent(event);
    const int room = width() - Board::length(listWidth) - Board::length(16) - 2 * sides().left();
    m_cards->setDirection(
        room < Board::length(sideBySideFrom) ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

/// Who closes the window has seen the report.
void LayoutsPane::hideEvent(QHideEvent *event)
{
    SettingsPage::hideEvent(event);
    if (!window()->isVisible() && m_report->isShown())
        m_report->end();
}

void LayoutsPane::follow()
{
    const auto undo = m_model.undoTitle();
    const auto redo = m_model.redoTitle();
    m_undo->setEnabled(undo.has_value());
    m_undo->setToolTip(undo ? tr("Undo %1").arg(*undo) : tr("Undo"));
    m_redo->setEnabled(redo.has_value());
    m_redo->setToolTip(redo ? tr("Redo %1").arg(*redo) : tr("Redo"));
    const bool isEmpty = m_model.layouts().isEmpty();
    m_stack->setCurrentIndex(isEmpty ? 1 : 0);
    head().showControls(!isEmpty);
    m_strip->hide();
}

void LayoutsPane::followPicture()
{
    m_drawing->setCurrentIndex(m_picture->shown().displays.isEmpty() ? 1 : 0);
}

void LayoutsPane::showCurrent()
{
    m_card->setLayout(m_list->current());
    m_picture->setLayout(m_list->current());
    m_report->setLayout(m_list->current());
}

void LayoutsPane::showPending()
{
    if (const QUuid id = m_model.pendingLayout; !id.isNull()) {
        m_model.pendingLayout = QUuid();
        m_list->setCurrent(id);
    }
    if (const QUuid id = m_model.pendingRename; !id.isNull()) {
        m_model.pendingRename = QUuid();
        // Whoever shows the pane moves the focus afterwards.
        QMetaObject::invokeMethod(
            this, [this, id] { m_list->rename(id); }, Qt::QueuedConnection);
    }
    if (const auto index = m_model.pendingPaneIndex.value()) {
        m_model.pendingPaneIndex = std::nullopt;
        if (*index >= 0 && *index < m_picture->shown().panes.size())
            m_picture->setCurrentPane(m_picture->shown().panes[*index].id);
    }
    if (m_model.pendingAppPicker) {
        m_model.pendingAppPicker = false;
        // Later, since the request may come before the page is in its window.
        QMetaObject::invokeMethod(this, &LayoutsPane::askForApp, Qt::QueuedConnection);
    }
}

/// For the current pane, even if another one is by the time of the answer.
void LayoutsPane::askForApp()
{
    m_picture->finish();
    const auto pane = m_picture->currentPane();
    if (m_picker || !pane)
        return;
    m_picker = new AppPicker(window());
    const QUuid layoutId = m_picture->shown().id;
    const QUuid paneId = pane->id;
    connect(m_picker, &AppPicker::chosen, this,
        [this, layoutId, paneId](const std::optional<AppRef> &app) {
            auto layout = layoutWith(m_model, layoutId, paneId);
            if (!layout)
                return;
            const auto changed = std::ranges::find(layout->panes, paneId, &Pane::id);
            if (std::exchange(changed->app, app) != app)
                m_model.updateLayout(*layout, tr("Choose App"));
        });
    connect(&m_model, &AppModel::layoutsChanged, m_picker,
        [&model = m_model, picker = m_picker.data(), layoutId, paneId] {
            if (!layoutWith(model, layoutId, paneId))
                picker->reject();
        });
    connect(this, &QObject::destroyed, m_picker, &QDialog::reject);
    m_picker->open();
}

} // namespace corvane
