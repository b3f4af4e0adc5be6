#include "SettingsRail.h"

#include "AppStatus.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "Buttons.h"
#include "CorvaneMark.h"
#include "DevicePixels.h"
#include "Symbol.h"

#include <QtGui/QPainter>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QToolButton>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double wide = 196;
constexpr double narrow = 56;

/// A numeral and the pane's title, in a field where it is the current one.
class RailDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override
    {
        const Board::Palette &palette = BoardStyle::shared().colors();
        const bool isCurrent = option.state & QStyle::State_Selected;
        const QRectF field = QRectF(option.rect).adjusted(1, 1, -1, -1);
        if (isCurrent)
            drawField(*painter, field, Board::length(7), palette.control, palette.hairline);
        if (isCurrent && option.state & QStyle::State_HasFocus
            && option.widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
            drawField(*painter, field, Board::length(7), palette.control, palette.accent,
                {.side = 2, .bottom = 2});
        const int margin = Board::length(10);
        QRect rest = option.rect.adjusted(margin, 0, -margin, 0);
        const QString numeral = u"%1"_s.arg(index.row() + 1, 2, 10, QChar(u'0'));
        painter->setFont(Board::font(Board::Type::smallNumerals));
        painter->setPen(isCurrent ? palette.accentType : palette.muted);
        const bool isNarrow = rest.width() < Board::length(60);
        painter->drawText(rest,
            int(isNarrow ? Qt::AlignHCenter : Qt::AlignLeading) | int(Qt::AlignVCenter), numeral);
        if (isNarrow)
            return;
        const int column = Board::length(28);
        const QRect title =
            QStyle::visualRect(option.direction, rest, rest.adjusted(column, 0, 0, 0));
        QFont font = Board::font(Board::Type::body);
        if (isCurrent)
            font.setWeight(QFont::Medium);
        painter->setFont(font);
        painter->setPen(isCurrent ? palette.fore : palette.muted);
        painter->drawText(title, int(Qt::AlignLeading) | int(Qt::AlignVCenter),
            painter->fontMetrics().elidedText(
                index.data().toString(), Qt::ElideRight, title.width()));
    }
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        const int text = QFontMetrics(Board::font(Board::Type::body)).height();
        return {0, std::max(Board::length(34), text + Board::length(12))};
    }
};

} // namespace

SettingsRail::SettingsRail(const AppModel &model, QWidget *parent)
    : QWidget(parent), m_model(model), m_list(new QListView)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Board::length(11), Board::length(22), Board::length(11), 0);
    column->setSpacing(Board::length(22));
    auto *head = new QHBoxLayout;
    head->setContentsMargins(Board::margins(Board::length(9), 0, 0, 0));
    head->setSpacing(Board::length(10));
    head->addWidget(CorvaneMark::widget(32));
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    m_name = new BoardText(u"Corvane"_s, Board::Type::label);
    m_status = new BoardText({}, Board::Type::secondary);
    QFont small = m_status->font();
    small.setPixelSize(Board::length(11));
    m_status->setFont(small);
    texts->addWidget(m_name);
    texts->addWidget(m_status);
    head->addLayout(texts, 1);
    column->addLayout(head);
    for (const SettingsPane pane : settingsPanes) {
        auto *item = new QStandardItem(title(pane));
        item->setEditable(false);
        m_panes.appendRow(item);
    }
    m_list->setModel(&m_panes);
    m_list->setItemDelegate(new RailDelegate(m_list));
    m_list->setAccessibleName(tr("Panes"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->viewport()->setAutoFillBackground(false);
    column->addWidget(m_list, 1);
    QToolButton *menu = symbolButton(u"line.3.horizontal"_s, &Board::Palette::muted, tr("Menu"));
    connect(menu, &QToolButton::clicked, this,
        [this, menu] { Q_EMIT menuAsked(menu->mapToGlobal(QPoint(0, 0))); });
    column->addWidget(menu, 0, Qt::AlignLeading);
    column->addSpacing(Board::length(11));
    // Assistive technology selects a row without making it the current one.
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        [this](const QItemSelection &selected) {
            if (!selected.isEmpty())
                Q_EMIT chosen(settingsPanes[size_t(selected.indexes().first().row())]);
        });
    for (const auto signal : {&AppModel::accessibilityTrustedChanged,
             &AppModel::unregisteredChanged, &AppModel::competitorsChanged})
        connect(&model, signal, this, &SettingsRail::showStatus);
    showStatus();
    setNarrow(false);
}

void SettingsRail::setCurrent(SettingsPane pane)
{
    m_list->setCurrentIndex(m_panes.index(int(pane), 0));
}

void SettingsRail::setNarrow(bool isNarrow)
{
    setFixedWidth(Board::length(isNarrow ? narrow : wide));
    m_name->setVisible(!isNarrow);
    m_status->setVisible(!isNarrow);
    for (const SettingsPane pane : settingsPanes)
        m_panes.item(int(pane))->setToolTip(isNarrow ? title(pane) : QString());
}

void SettingsRail::showStatus()
{
    m_status->setText(AppStatus::line(m_model));
    m_status->setTone(AppStatus::tone(m_model) == AppStatus::Tone::ready
            ? &Board::Palette::ready
            : &Board::Palette::attention);
}

void SettingsRail::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const double thickness = snappedLength(painter, 1);
    const QRectF edge(
        layoutDirection() == Qt::LeftToRight ? width() - thickness : 0, 0, thickness, height());
    painter.fillRect(edge, BoardStyle::shared().colors().hairline);
}

} // namespace corvane
