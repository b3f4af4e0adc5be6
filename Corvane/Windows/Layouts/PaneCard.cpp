#include "PaneCard.h"

#include "AppCandidates.h"
#include "AppIcons.h"
#include "BoardText.h"
#include "Card.h"
#include "Drawing.h"
#include "OneLine.h"
#include "Platform.h"
#include "Screens.h"
#include "Switch.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Whether the application runs, and with how many windows.
QString stateText(const AppRef &app)
{
    if (Platform::current().applications().installation(app.bundleID).state
        == Installation::State::notInstalled)
        return PaneCard::tr("Not installed");
    const auto windows = windowCount(app.bundleID);
    return windows ? runningText(*windows) : PaneCard::tr("Not running");
}

/// Of the windows that the application shows now.
QStringList titlesOf(const AppRef &app)
{
    QStringList titles;
    WindowAccess &access = Platform::current().windows();
    for (const RunningApplication &running : Platform::current().applications().running()) {
        if (running.bundleIdentifier != app.bundleID)
            continue;
        for (const WindowElement &window :
            access.windows(running.pid).value_or(QList<WindowElement>()))
            titles << access.title(window).value_or(QString());
    }
    titles.removeAll(QString());
    titles.removeDuplicates();
    return titles;
}

} // namespace

PaneCard::PaneCard(LayoutPicture &picture, QWidget *parent) : QWidget(parent), m_picture(picture)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(8));
    column->addWidget(new BoardText(tr("Pane"), Board::Type::label, &Board::Palette::faint));
    auto *card = new Card;
    card->setAccessibleName(tr("Pane"));
    column->addWidget(card);
    const auto addRow = [card](const QString &title, QWidget *control) {
        auto *row = new QWidget;
        QHBoxLayout *line = Card::layoutRow(row, Board::length(44));
        line->addWidget(new BoardText(title));
        line->addWidget(control, 1);
        control->setAccessibleName(title);
        card->addRow(row);
    };
    auto *app = new QWidget;
    QHBoxLayout *line = Card::layoutRow(app, Board::length(56));
    m_icon = new Drawing({28, 28}, [this](QPainter &painter, const QRectF &rect, const auto &) {
        if (const auto pane = m_picture.currentPane(); pane && pane->app)
            AppIcons::shared().paint(painter, rect, *pane->app);
    });
    connect(&AppIcons::shared(), &AppIcons::loaded, m_icon, qOverload<>(&QWidget::update));
    line->addWidget(m_icon);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    m_app = new BoardText({});
    m_running = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    texts->addWidget(m_app);
    texts->addWidget(m_running);
    line->addLayout(texts, 1);
    auto *choose = new QPushButton(tr("Choose App…"));
    connect(choose, &QPushButton::clicked, this, &PaneCard::appAsked);
    line->addWidget(choose);
    card->addRow(app);

    m_title = new QLineEdit;
    m_title->setPlaceholderText(tr("Any window"));
    m_title->setClearButtonEnabled(true);
    auto *completer = new QCompleter(&m_titles, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    m_title->setCompleter(completer);
    connect(m_title, &QLineEdit::editingFinished, this, [this] {
        const QString text = m_title->text().trimmed();
        change(tr("Change Title"), [&text](Pane &pane) {
            pane.titleContains = text.isEmpty() ? std::nullopt : std::optional(text);
        });
    });
    addRow(tr("Title contains"), m_title);

    m_launch = new Switch;
    auto *launch = new QWidget;
    line = Card::layoutRow(launch, Board::length(44));
    line->addWidget(new BoardText(tr("Open when not running")), 1);
    line->addWidget(m_launch);
    m_launch->setAccessibleName(tr("Open when not running"));
    card->addRow(launch);
    connect(m_launch, &Switch::toggled, this, [this](bool isOn) {
        change(tr("Change Opening"), [isOn](Pane &pane) { pane.launch = isOn; });
    });

    m_display = new QComboBox;
    connect(m_display, &QComboBox::activated, this, &PaneCard::moveTo);
    addRow(tr("Display"), m_display);

    for (const auto signal : {&LayoutPicture::currentPaneChanged, &LayoutPicture::shownChanged})
        connect(&picture, signal, this, &PaneCard::follow);
    Applications &applications = Platform::current().applications();
    connect(&applications, &Applications::launched, this, &PaneCard::follow);
    connect(&applications, &Applications::terminated, this, &PaneCard::follow);
    follow();
}

void PaneCard::editTitle()
{
    m_title->setFocus(Qt::OtherFocusReason);
    m_title->selectAll();
}

void PaneCard::change(const QString &undoTitle, const std::function<void(Pane &)> &change)
{
    const auto current = m_picture.currentPane();
    if (!current)
        return;
    m_picture.edit(undoTitle, [&](WindowLayout &layout) {
        const auto pane = std::ranges::find(layout.panes, current->id, &Pane::id);
        if (pane != layout.panes.end())
            change(*pane);
    });
}

/// A display that the layout does not have yet becomes one of its.
void PaneCard::moveTo(int choice)
{
    const auto current = m_picture.currentPane();
    if (!current || choice < 0)
        return;
    const DisplayKey key = m_choices[choice];
    m_picture.edit(tr("Change Display"), [&](WindowLayout &layout) {
        if (choice >= layout.displays.size()) {
            layout.displays << key;
            choice = int(layout.displays.size()) - 1;
        }
        std::ranges::find(layout.panes, current->id, &Pane::id)->display = choice;
    });
}

void PaneCard::follow()
{
    const auto pane = m_picture.currentPane();
    setEnabled(pane.has_value());
    if (!pane)
        return;
    if (m_picture.hasGesture() && m_shown == pane->id)
        return; // nothing here changes meanwhile
    m_app->setText(pane->app ? oneLine(pane->app->name) : tr("Empty"));
    m_icon->setVisible(pane->app.has_value());
    m_icon->update();
    m_running->setText(pane->app ? stateText(*pane->app) : QString());
    m_running->setVisible(pane->app.has_value());
    m_titles.setStringList(pane->app ? titlesOf(*pane->app) : QStringList());
    const QString title = pane->titleContains.value_or(QString());
    if (m_title->text().trimmed() != title && (!m_title->hasFocus() || m_shown != pane->id))
        m_title->setText(title);
    m_shown = pane->id;
    m_launch->setChecked(pane->launch);
    m_choices = m_picture.shown().displays;
    for (const DisplayKey &key : Screens::signature()) {
        if (!m_choices.contains(key))
            m_choices << key;
    }
    m_display->clear();
    for (const DisplayKey &key : std::as_const(m_choices))
        m_display->addItem(key.label());
    m_display->setCurrentIndex(pane->display);
}

} // namespace corvane
