#include "ApplyReport.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "Buttons.h"
#include "Card.h"
#include "DisplayMapping.h"
#include "Drawing.h"
#include "FoldRow.h"
#include "Platform.h"
#include "ReportRow.h"
#include "Screens.h"
#include "SettingsPane.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Whether these are results on the layout as it is now.
bool isAbout(const AppModel::LastApply &apply, const WindowLayout &layout)
{
    return std::ranges::equal(apply.results, layout.panes, {}, &PaneResult::pane);
}

bool isPlaced(const PaneResult &result)
{
    return std::holds_alternative<PaneStatus::Placed>(result.status.value);
}

bool isEmpty(const PaneResult &result)
{
    return std::holds_alternative<PaneStatus::Empty>(result.status.value);
}

} // namespace

ApplyReport::ApplyReport(AppModel &model, LayoutPicture &picture,
    std::function<void(const WindowLayout &)> apply, QWidget *parent)
    : QWidget(parent), m_model(model), m_picture(picture), m_apply(std::move(apply))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(8));
    addHead();
    addBanner();
    setVisible(false);
    for (const auto signal :
        {&AppModel::applyingChanged, &AppModel::applyProgressChanged, &AppModel::lastApplyChanged})
        connect(&model, signal, this, &ApplyReport::follow);
    connect(&model, &AppModel::layoutsChanged, this, &ApplyReport::follow);
    connect(&model, &AppModel::accessibilityTrustedChanged, this, &ApplyReport::showTrust);
    connect(&picture, &LayoutPicture::currentPaneChanged, this, &ApplyReport::showCurrent);
}

void ApplyReport::addHead()
{
    auto *line = new QHBoxLayout;
    line->setSpacing(Board::length(8));
    m_head = new BoardText({}, Board::Type::label, &Board::Palette::faint);
    m_head->setWordWrap(true);
    m_head->setFocusPolicy(Qt::TabFocus);
    m_again = new QPushButton(title(PaneCure::applyAgain));
    m_again->setDefault(true);
    connect(m_again, &QPushButton::clicked, this, &ApplyReport::apply);
    QToolButton *close = symbolButton(u"xmark"_s, &Board::Palette::muted, tr("Close Report"));
    connect(close, &QToolButton::clicked, this, &ApplyReport::end);
    line->addWidget(m_head, 1);
    line->addWidget(m_again);
    line->addWidget(close);
    static_cast<QVBoxLayout *>(layout())->addLayout(line);
}

void ApplyReport::addBanner()
{
    auto *banner = new Card;
    auto *row = new QWidget;
    QHBoxLayout *line = Card::layoutRow(row, Board::length(48));
    auto *show = new QPushButton(tr("Show Why"));
    connect(show, &QPushButton::clicked, this,
        [this] { m_model.pendingPane = rawValue(SettingsPane::general); });
    auto *text = new BoardText(tr("Corvane can move no window at all at the moment."));
    show->setAccessibleDescription(text->text());
    line->addWidget(
        Drawing::ofSymbol(16, u"exclamationmark.triangle"_s, &Board::Palette::attention));
    line->addWidget(text, 1);
    line->addWidget(show);
    banner->addRow(row);
    banner->setAccessibleName(text->text());
    m_banner = banner;
    layout()->addWidget(m_banner);
}

void ApplyReport::setLayout(const QUuid &id)
{
    leave();
    m_id = id;
    follow();
}

void ApplyReport::follow()
{
    const auto layout = m_model.layout(m_id);
    if (layout && m_model.applying.value() == m_id) {
        leave();
        return m_picture.setResults(m_model.applyProgress.value().settled, true);
    }
    const auto &apply = m_model.lastApply.value();
    if (!layout || !apply || apply->layout != m_id) {
        leave();
        return m_picture.setResults({});
    }
    if (m_shown != apply) {
        leave();
        return isAbout(*apply, *layout) ? show(*apply, *layout) : end();
    }
    const bool isAsBefore = layout->panes == m_about.panes && layout->displays == m_about.displays;
    if (!isAsBefore && !takesCure(*layout))
        end();
}

void ApplyReport::end()
{
    m_model.lastApply = std::nullopt;
}

void ApplyReport::leave()
{
    if (!m_shown)
        return;
    const bool hasFocus = isAncestorOf(window()->focusWidget());
    m_shown.reset();
    m_curing = {};
    m_picture.setAccessibleDescription({});
    if (hasFocus)
        Q_EMIT left();
    setVisible(false);
    Q_EMIT shownChanged();
}

void ApplyReport::show(const AppModel::LastApply &apply, const WindowLayout &layout)
{
    m_shown = apply;
    m_about = layout;
    m_cured.clear();
    m_rows.clear();
    if (m_card) { // which a click in it may have led here from
        m_card->setVisible(false);
        m_card->deleteLater();
    }
    m_card = new Card;
    m_card->setAccessibleName(tr("Report"));
    this->layout()->addWidget(m_card);
    m_head->setText(headText(apply));
    // Who stays in the picture hears it there.
    m_picture.setAccessibleDescription(m_head->text());
    QList<PaneResult> others;
    for (const PaneResult &result : apply.results) {
        if (needsNothing(result.status))
            others << result;
        else
            addRow(result, false);
    }
    if (!others.isEmpty())
        addFold(others);
    showTrust();
    showCurrent();
    showBadges();
    setVisible(true);
    Q_EMIT shownChanged();
}

QString ApplyReport::headText(const AppModel::LastApply &apply) const
{
    const auto placed = std::ranges::count_if(apply.results, isPlaced);
    const auto empty = std::ranges::count_if(apply.results, isEmpty);
    const QString time = QLocale().toString(apply.date.toLocalTime().time(), QLocale::ShortFormat);
    return tr("Applied %1 · %2 of %3 placed")
        .arg(time)
        .arg(placed)
        .arg(apply.results.size() - empty);
}

void ApplyReport::addRow(const PaneResult &result, bool isFolded)
{
    auto *row = new ReportRow(result, m_about, cureOf(result));
    row->setHidden(isFolded);
    connect(row, &ReportRow::chosen, this,
        [this, row] { m_picture.setCurrentPane(row->result().pane.id); });
    if (QPushButton *button = row->cure())
        connect(button, &QPushButton::clicked, this, [this, row] { cure(*row); });
    m_card->addRow(row);
    m_rows << row;
}

/// What needs nothing takes one row, which opens.
void ApplyReport::addFold(const QList<PaneResult> &results)
{
    QStringList counts;
    const int placed = int(std::ranges::count_if(results, isPlaced));
    const int empty = int(results.size()) - placed;
    if (placed > 0)
        counts << tr("%n placed", nullptr, placed);
    if (empty > 0)
        counts << tr("%n pane(s) without an app", nullptr, empty);
    auto *fold = new FoldRow(counts.join(u", "_s));
    m_card->addRow(fold);
    const qsizetype first = m_rows.size();
    for (const PaneResult &result : results)
        addRow(result, true);
    connect(fold, &QPushButton::toggled, this, [this, first](bool isOpen) {
        for (ReportRow *row : m_rows.mid(first))
            row->setVisible(isOpen);
        m_card->update();
    });
}

/// Where no window can be moved, each row for itself would say the same.
void ApplyReport::showTrust()
{
    const bool isTrusted = m_model.accessibilityTrusted;
    m_banner->setVisible(!isTrusted);
    for (const ReportRow *row : std::as_const(m_rows)) {
        if (row->cure() && cureOf(row->result()) == PaneCure::applyAgain)
            row->cure()->setVisible(isTrusted);
    }
}

void ApplyReport::showCurrent()
{
    const auto current = m_picture.currentPane();
    for (ReportRow *row : std::as_const(m_rows))
        row->setCurrent(current && row->result().pane.id == current->id);
}

void ApplyReport::showBadges()
{
    QList<PaneResult> results = m_shown->results;
    results.removeIf([this](const PaneResult &each) { return m_cured.contains(each.pane.id); });
    m_picture.setResults(results);
}

void ApplyReport::turnTo()
{
    m_head->setFocus(Qt::OtherFocusReason);
}

void ApplyReport::apply()
{
    m_picture.finish();
    if (const auto layout = m_model.layout(m_id))
        m_apply(*layout);
}

void ApplyReport::cure(ReportRow &row)
{
    m_picture.setCurrentPane(row.result().pane.id);
    switch (cureOf(row.result())) {
    case PaneCure::none:
        return;
    case PaneCure::applyAgain:
        return apply();
    case PaneCure::chooseApp:
        m_curing = row.result().pane.id;
        return Q_EMIT m_picture.appAsked();
    case PaneCure::useAnotherDisplay:
        return askForDisplay(row);
    case PaneCure::turnOnOpening:
        return change(
            row, tr("Change Opening"), [](WindowLayout &, Pane &pane) { pane.launch = true; });
    case PaneCure::changeTitle:
        end();
        return Q_EMIT titleAsked();
    case PaneCure::openWindow:
        return openWindow(row);
    }
}

void ApplyReport::change(ReportRow &row, const QString &undoTitle,
    const std::function<void(WindowLayout &layout, Pane &pane)> &change)
{
    m_picture.finish();
    auto layout = m_model.layout(m_id);
    if (!layout)
        return;
    const QUuid id = row.result().pane.id;
    const auto pane = std::ranges::find(layout->panes, id, &Pane::id);
    if (pane == layout->panes.end())
        return;
    change(*layout, *pane);
    m_curing = id;
    m_model.updateLayout(*layout, undoTitle);
}

void ApplyReport::askForDisplay(ReportRow &row)
{
    auto *menu = new QMenu(&row);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QList<DisplayKey> connected = Screens::signature();
    const QMap<int, int> mapping = displayMapping(m_about.displays, connected);
    for (int index = 0; index < connected.size(); ++index) {
        const DisplayKey key = connected[index];
        const int known = mapping.key(index, -1);
        menu->addAction(key.label(), &row, [this, &row, key, known] {
            change(row, tr("Change Display"), [&](WindowLayout &layout, Pane &pane) {
                if (known < 0)
                    layout.displays << key;
                pane.display = known < 0 ? int(layout.displays.size()) - 1 : known;
            });
        });
    }
    const QWidget &button = *row.cure();
    menu->popup(button.mapToGlobal(QPoint(0, button.height())));
}

void ApplyReport::openWindow(ReportRow &row)
{
    const auto opened =
        Platform::current().applications().openWindow(row.result().pane.app->bundleID);
    if (opened)
        settle(row, tr("was asked for a window"));
    else
        row.setSentence(opened.error());
}

bool ApplyReport::takesCure(const WindowLayout &layout)
{
    const QUuid id = std::exchange(m_curing, QUuid());
    const auto before = std::ranges::find(m_about.panes, id, &Pane::id);
    WindowLayout uncured = layout;
    const auto pane = std::ranges::find(uncured.panes, id, &Pane::id);
    if (before == m_about.panes.end() || pane == uncured.panes.end())
        return false;
    *pane = *before;
    // Another display may have come to those that there were.
    const bool hasItsDisplays =
        uncured.displays.mid(0, m_about.displays.size()) == m_about.displays;
    if (uncured.panes != m_about.panes || !hasItsDisplays)
        return false;
    m_about = layout;
    for (ReportRow *row : std::as_const(m_rows)) {
        if (row->result().pane.id == id)
            settle(*row, tr("has changed since"));
    }
    return true;
}

/// Nothing is applied again unasked.
void ApplyReport::settle(ReportRow &row, const QString &sentence)
{
    m_cured.insert(row.result().pane.id);
    row.showCured(m_about, sentence);
    showBadges();
    m_again->setFocus(Qt::OtherFocusReason);
}

} // namespace corvane
