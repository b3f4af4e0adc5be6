#include "TremorLogPane.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "KeyCaps.h"
#include "KeySentence.h"
#include "Platform.h"
#include "ScrollFade.h"
#include "SearchField.h"
#include "Segments.h"
#include "Symbol.h"
#include "TremorLogList.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// A trace of a quiet day, a title, and what helps.
class EmptyLog final : public QWidget
{
public:
    EmptyLog(const QString &title, QWidget *help)
    {
        auto *column = new QVBoxLayout(this);
        column->setSpacing(Board::length(8));
        column->addSpacing(Board::length(96));
        auto *text = new BoardText(title, Board::Type::title);
        text->setAlignment(Qt::AlignCenter);
        column->addWidget(text);
        column->addWidget(help, 0, Qt::AlignHCenter);
        column->addStretch(1);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const double side = Board::length(48);
        Symbol::paint(painter, {width() / 2.0 - side / 2, Board::length(40) * 1.0, side, side},
            u"waveform.path.ecg"_s, {BoardStyle::shared().colors().faint});
    }
};

} // namespace

TremorLogPane::TremorLogPane(AppModel &model, QWidget *parent)
    : SettingsPage(SettingsPane::tremorLog, parent), m_model(model)
{
    m_bar = bar();
    addFoot(m_bar);
    m_list = new TremorLogList(m_log);
    m_list->setAccessibleName(corvane::title(SettingsPane::tremorLog));
    new ScrollFade(*m_list);
    addContent(m_list);
    m_empty = new QWidget;
    new QVBoxLayout(m_empty);
    addContent(m_empty);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_filter,
        [this] { m_filter->setFocus(Qt::ShortcutFocusReason); });
    connect(&model, &AppModel::activityChanged, this, &TremorLogPane::show);
    show();
}

QWidget *TremorLogPane::bar()
{
    auto *bar = new QWidget;
    auto *column = new QVBoxLayout(bar);
    column->setContentsMargins(0, Board::length(16), 0, Board::length(4));
    column->setSpacing(Board::length(12));
    column->addWidget(new BoardText(
        tr("Every window Corvane moves, and every one an app would not let it move, is "
           "written here for thirty days."),
        Board::Type::secondary, &Board::Palette::muted));
    auto *row = new QHBoxLayout;
    row->setSpacing(Board::length(10));
    m_kinds = new Segments(tr("Show"), {tr("All"), tr("Moves"), tr("Refused")});
    m_kinds->setCurrent(0);
    connect(m_kinds, &Segments::chosen, this, &TremorLogPane::filter);
    m_filter = new SearchField(tr("Filter by app or title"));
    m_filter->installEventFilter(this);
    connect(m_filter, &QLineEdit::textChanged, this, &TremorLogPane::filter);
    auto *reveal = new QPushButton(tr("Show in Finder"));
    reveal->setIcon(BoardStyle::icon(u"folder"_s, &Board::Palette::fore));
    connect(reveal, &QPushButton::clicked, this,
        [] { Platform::current().session().reveal(ActivityLog().url()); });
    row->addWidget(m_kinds);
    row->addWidget(m_filter, 1);
    row->addWidget(reveal, 0, Qt::AlignTrailing);
    column->addLayout(row);
    return bar;
}

void TremorLogPane::filter()
{
    m_log.setFilter(TremorLogModel::Kind(m_kinds->current()), m_filter->text());
    show();
}

void TremorLogPane::show()
{
    const ActivityEntry *current = m_list->current();
    const QString id = current ? current->id() : QString();
    QScrollBar &bar = *m_list->verticalScrollBar();
    const int fromEnd = bar.maximum() - bar.value();
    const bool isAtTop = bar.value() == 0;
    m_log.setEntries(m_model.activity);
    m_list->doItemsLayout();
    if (!id.isEmpty())
        m_list->setCurrentIndex(m_log.indexOf(id));
    bar.setValue(isAtTop ? 0 : bar.maximum() - fromEnd);

    const bool hasRows = m_log.rowCount() > 0;
    m_bar->setVisible(m_log.hasEntries());
    m_list->setVisible(hasRows);
    m_empty->setVisible(!hasRows);
    if (hasRows)
        return;
    empty(*m_empty->layout());
    if (m_log.hasEntries()) {
        auto *clear = new QPushButton(tr("Clear"));
        connect(clear, &QPushButton::clicked, this, [this] {
            m_kinds->setCurrent(0);
            m_filter->clear();
            filter();
        });
        m_empty->layout()->addWidget(new EmptyLog(tr("Nothing matches"), clear));
        return;
    }
    const auto combo = m_model.settings().shortcuts.value(Placement::leftHalf);
    auto *help = new KeySentence(
        tr("Press [[%1]] to move a window to the left half.").arg(KeyCaps::glyphsOf(combo)),
        Board::Type::body, &Board::Palette::muted);
    m_empty->layout()->addWidget(new EmptyLog(tr("No tremors yet"), help));
}

bool TremorLogPane::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (watched == m_filter && key.key() == Qt::Key_Escape && !m_filter->text().isEmpty()) {
            m_filter->clear();
            return true;
        }
    }
    return SettingsPage::eventFilter(watched, event);
}

void TremorLogPane::showEvent(QShowEvent *event)
{
    SettingsPage::showEvent(event);
    m_model.refreshActivity();
}

} // namespace corvane
