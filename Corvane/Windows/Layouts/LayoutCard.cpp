#include "LayoutCard.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "Buttons.h"
#include "Drawing.h"
#include "LayoutList.h"
#include "OneLine.h"
#include "Platform.h"
#include "Screens.h"
#include "SettingsPage.h"
#include "ShortcutRecorder.h"
#include "Switch.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// The layout before this one that is applied instead of it when its displays connect.
std::optional<WindowLayout> earlier(const QList<WindowLayout> &layouts, const WindowLayout &layout)
{
    for (const WindowLayout &each : layouts) {
        if (each.id == layout.id)
            break;
        if (each.applyOnConnect && layout.applyOnConnect && each.matches(layout.displays))
            return each;
    }
    return std::nullopt;
}

/// What the row's widgets but this one need, with the spaces around them.
int widthWithout(const QHBoxLayout &row, const QWidget *guest)
{
    int width = row.contentsMargins().left() + row.contentsMargins().right() - row.spacing();
    for (int i = 0; i < row.count(); ++i) {
        const QWidget *each = row.itemAt(i)->widget();
        width += row.spacing() + (each && each != guest ? each->sizeHint().width() : 0);
    }
    return width;
}

} // namespace

LayoutCard::LayoutCard(AppModel &model, std::function<void(const WindowLayout &)> apply,
    QMenu *actions, QWidget *parent)
    : QWidget(parent), m_model(model), m_apply(std::move(apply))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto *card = new Card;
    card->setAccessibleName(tr("Layout"));
    column->addWidget(card);
    setMinimumWidth(Board::length(300)); // else what is arranged for more room keeps that room
    addActions(*card, actions);
    addWaiting(*card);
    addShortcut(*card);
    addApplying(*card);
    for (const auto signal : {&AppModel::layoutsChanged, &AppModel::settingsChanged})
        connect(&model, signal, this, &LayoutCard::follow);
    for (const auto signal : {&AppModel::unregisteredChanged, &AppModel::recordingLayoutChanged,
             &AppModel::applyingChanged, &AppModel::applyProgressChanged})
        connect(&model, signal, this, &LayoutCard::follow);
    connect(&Platform::current().displays(), &Displays::changed, this, &LayoutCard::follow);
}

void LayoutCard::addActions(Card &card, QMenu *actions)
{
    auto *row = new QWidget;
    m_first = Card::layoutRow(row, Board::length(42));
    m_first->setSpacing(Board::length(8));
    m_name = new BoardText({});
    QFont strong = m_name->font();
    strong.setWeight(QFont::DemiBold);
    m_name->setFont(strong);
    m_name->setWordWrap(false);
    m_name->setMinimumWidth(Board::length(40));
    m_state = new QWidget;
    auto *state = new QHBoxLayout(m_state);
    state->setContentsMargins(0, 0, 0, 0);
    state->setSpacing(Board::length(5));
    m_first->addWidget(m_name);
    m_first->addStretch(1);
    const auto add = [&](const QString &title, const QString &explanation, auto &&act) {
        auto *button = new QPushButton(title);
        button->setToolTip(explanation);
        button->setAccessibleDescription(explanation);
        connect(button, &QPushButton::clicked, this, act);
        m_first->addWidget(button);
        return button;
    };
    m_revert = add(tr("Revert"), tr("Put this layout back the way it was last saved"),
        [this] { m_model.revertLayout(m_id); });
    m_save =
        add(tr("Save"), tr("Keep this version to revert to"), [this] { m_model.saveLayout(m_id); });
    m_applying = add(tr("Apply"), {}, [this] {
        if (const auto layout = m_model.layout(m_id))
            m_apply(*layout);
    });
    m_applying->setDefault(true);
    QToolButton *more = symbolButton(u"ellipsis"_s, &Board::Palette::fore, tr("More"));
    connect(more, &QToolButton::clicked, this,
        [more, actions] { actions->popup(more->mapToGlobal(QPoint(0, more->height()))); });
    m_first->addWidget(more);
    card.addRow(row);
}

/// For as long as panes wait for their windows.
void LayoutCard::addWaiting(Card &card)
{
    auto *row = new QWidget;
    QHBoxLayout *line = Card::layoutRow(row, Board::length(40));
    constexpr auto patience = LayoutApplier::launchWait + LayoutApplier::retryFor;
    m_waiting =
        new BoardText(tr("Waiting for apps to open, at most %1 seconds.")
                          .arg(std::chrono::duration_cast<std::chrono::seconds>(patience).count()),
            Board::Type::secondary, &Board::Palette::muted);
    line->addWidget(Drawing::ofSymbol(16, u"circle.dotted"_s, &Board::Palette::muted));
    line->addWidget(m_waiting, 1);
    row->setVisible(false);
    card.addRow(row);
}

void LayoutCard::addShortcut(Card &card)
{
    auto *row = new QWidget;
    m_second = Card::layoutRow(row, Board::length(40));
    m_recorder = new ShortcutRecorder(tr("Layout"));
    m_recorder->onBegin = [this] { m_model.recordingLayout = m_id; };
    m_recorder->onRecord = [this](const std::optional<KeyCombo> &combo) {
        m_model.assign(combo, {m_id});
        m_model.endRecording();
    };
    m_recorder->onCancel = [this] { m_model.endRecording(); };
    m_second->setSpacing(0); // the recorder has room of its own before its keys
    m_second->addStretch(0);
    m_second->addWidget(new BoardText(tr("Shortcut")));
    m_second->addWidget(m_recorder);
    m_second->addStretch(1);
    card.addRow(row);
}

void LayoutCard::addApplying(Card &card)
{
    m_switch = new Switch;
    m_switch->setAccessibleName(tr("Apply when these displays connect"));
    connect(m_switch, &Switch::toggled, this, [this](bool isOn) {
        auto layout = m_model.layout(m_id);
        if (!layout || layout->applyOnConnect == isOn)
            return;
        layout->applyOnConnect = isOn;
        m_model.updateLayout(*layout, tr("Change Apply on Connect"));
    });
    m_applies = new QWidget;
    auto *pair = new QHBoxLayout(m_applies);
    pair->setContentsMargins(0, 0, 0, 0);
    pair->setSpacing(Board::length(12));
    auto *words = new BoardText(tr("Apply when these displays connect"));
    words->setWordWrap(false);
    pair->addWidget(words, 1);
    pair->addWidget(m_switch);
    m_lastRow = new QWidget;
    m_third = Card::layoutRow(m_lastRow, Board::length(40));
    card.addRow(m_lastRow);
    auto *row = new QWidget;
    QHBoxLayout *line = Card::layoutRow(row, Board::length(32));
    m_precedence = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    m_precedence->setWordWrap(true);
    line->addWidget(m_precedence);
    card.addRow(row);
    row->hide();
    arrange();
}

/// Where there is room, the state stands beside the name, and the switch beside the shortcut.
void LayoutCard::arrange()
{
    m_name->setText(m_fullName);
    const int state = m_state->sizeHint().width();
    const int applies = m_applies->sizeHint().width() + Board::length(24);
    const bool isWide = widthWithout(*m_first, m_state) + state <= width()
        && widthWithout(*m_second, m_applies) + applies <= width();
    const bool wasWide = m_first->indexOf(m_state) >= 0;
    if (isWide != wasWide || !m_applies->parentWidget()) {
        (isWide ? m_first : m_second)->insertWidget(isWide ? 1 : 0, m_state);
        (isWide ? m_second : m_third)->addWidget(m_applies);
        for (QWidget *moved : {m_state, m_applies})
            moved->show();
    }
    const int recorder = m_second->indexOf(m_recorder);
    m_second->setStretch(recorder - 2, isWide ? 0 : 1);
    m_second->setStretch(recorder + 1, isWide ? 1 : 0);
    m_lastRow->setVisible(!isWide);
    m_name->setText(m_name->fontMetrics().elidedText(m_fullName, Qt::ElideRight,
        std::max(m_name->minimumWidth(), width() - widthWithout(*m_first, m_name))));
    m_name->setToolTip(m_name->text() == m_fullName ? QString() : m_fullName);
}

void LayoutCard::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void LayoutCard::setLayout(const QUuid &id)
{
    if (std::exchange(m_id, id) != id)
        m_model.endRecording();
    follow();
}

void LayoutCard::setReported(bool isReported)
{
    m_applying->setDefault(!isReported);
}

void LayoutCard::showApplying()
{
    const bool isApplying = m_model.applying.value() == m_id;
    const bool waits = isApplying && m_model.applyProgress.value().waiting > 0;
    m_applying->setText(isApplying ? tr("Applying…") : tr("Apply"));
    // Who pressed it hears it there.
    m_applying->setAccessibleDescription(waits ? m_waiting->text() : QString());
    m_waiting->parentWidget()->setVisible(waits);
}

void LayoutCard::showState(const WindowLayout &layout)
{
    const QList<DisplayKey> connected = Screens::signature();
    const LayoutState state = LayoutState::of(layout, connected);
    const bool isElsewhere = state.kind == LayoutState::Kind::missing
        && std::ranges::none_of(
            layout.displays, [&](const DisplayKey &each) { return connected.contains(each); });
    SettingsPage::empty(*m_state->layout());
    if (!state.symbol().isEmpty())
        m_state->layout()->addWidget(Drawing::ofSymbol(13, state.symbol(), state.tone()));
    auto *words =
        new BoardText(isElsewhere ? tr("Made for displays that are not connected.") : state.text,
            Board::Type::secondary, state.tone());
    words->setWordWrap(false);
    m_state->layout()->addWidget(words);
}

void LayoutCard::follow()
{
    const auto layout = m_model.layout(m_id);
    if (!layout)
        return m_recorder->setRecording(false);
    m_fullName = oneLine(layout->name);
    showState(*layout);
    showApplying();
    const auto saved = m_model.savedVersion(m_id);
    m_save->setEnabled(saved != layout);
    m_revert->setEnabled(saved && saved != layout);
    m_recorder->setCombo(layout->shortcut);
    const UnregisteredShortcuts &unregistered = m_model.unregistered.value();
    m_recorder->setTaken(unregistered.contains({m_id}), unregistered.value({m_id}));
    m_recorder->setRecording(m_model.recordingLayout.value() == m_id);
    m_switch->setChecked(layout->applyOnConnect);
    const auto first = earlier(m_model.layouts(), *layout);
    m_precedence->parentWidget()->setVisible(first.has_value());
    m_precedence->setText(
        first ? tr("“%1” comes first for these displays.").arg(oneLine(first->name)) : QString());
    arrange();
}

} // namespace corvane
