#include "LayoutList.h"

#include "BoardStyle.h"
#include "DevicePixels.h"
#include "DisplayMapping.h"
#include "ListSelection.h"
#include "OneLine.h"
#include "Platform.h"
#include "Screens.h"
#include "Symbol.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyledItemDelegate>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

enum Role { idRole = Qt::UserRole, kindRole, stateRole, appliesRole };

class LayoutDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        const int lines = QFontMetrics(Board::font(Board::Type::body)).height()
            + QFontMetrics(Board::font(Board::Type::secondary)).height();
        return {0, std::max(Board::length(44), lines + Board::length(14))};
    }
};

void LayoutDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const bool isCurrent = option.state & QStyle::State_Selected;
    const int margin = Board::length(10);
    if (isCurrent)
        drawField(*painter, QRectF(option.rect).adjusted(2, 2, -2, -2), Board::length(7),
            palette.control,
            option.state & QStyle::State_HasFocus ? palette.accent : palette.hairline);
    const QRect area = option.rect.adjusted(margin, Board::length(6), -margin, -Board::length(6));
    const int half = area.height() / 2;
    QRect name(area.left(), area.top(), area.width(), half);
    painter->save();
    if (index.data(appliesRole).toBool()) {
        const int side = Board::length(12);
        const QRect bolt(name.right() - side, name.top() + (half - side) / 2, side, side);
        Symbol::paint(
            *painter, QStyle::visualRect(option.direction, area, bolt), u"bolt"_s, {palette.muted});
        name.setRight(bolt.left() - 4);
    }
    painter->setFont(Board::font(Board::Type::body));
    painter->setPen(palette.fore);
    painter->drawText(QStyle::visualRect(option.direction, area, name),
        int(Qt::AlignLeading) | int(Qt::AlignVCenter),
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, name.width()));
    const LayoutState shown{LayoutState::Kind(index.data(kindRole).toInt()), {}};
    QRect state(area.left(), area.top() + half, area.width(), half);
    if (!shown.symbol().isEmpty()) {
        const int side = Board::length(12);
        const QRect mark(state.left(), state.top() + (half - side) / 2, side, side);
        Symbol::paint(*painter, QStyle::visualRect(option.direction, area, mark), shown.symbol(),
            {palette.*shown.tone()});
        state.setLeft(mark.right() + 4);
    }
    painter->setFont(Board::font(Board::Type::secondary));
    painter->setPen(shown.kind == LayoutState::Kind::missing ? palette.attention : palette.muted);
    painter->drawText(QStyle::visualRect(option.direction, area, state),
        int(Qt::AlignLeading) | int(Qt::AlignVCenter),
        painter->fontMetrics().elidedText(
            index.data(stateRole).toString(), Qt::ElideRight, state.width()));
    painter->restore();
}

} // namespace

LayoutState LayoutState::of(const WindowLayout &layout, const QList<DisplayKey> &connected)
{
    const int count = int(layout.displays.size());
    if (count == 0)
        return {Kind::noDisplays, LayoutList::tr("No displays")};
    const int missing = count - int(displayMapping(layout.displays, connected).size());
    if (missing > 0)
        return {Kind::missing, LayoutList::tr("%1 of %2 not connected").arg(missing).arg(count)};
    const QString displays = LayoutList::tr("%n display(s)", nullptr, count);
    return layout.matches(connected)
        ? LayoutState{Kind::matches, LayoutList::tr("%1 · matches").arg(displays)}
        : LayoutState{Kind::other, displays};
}

QString LayoutState::symbol() const
{
    return kind == Kind::missing ? u"exclamationmark.triangle"_s
        : kind == Kind::matches  ? u"checkmark"_s
                                 : QString();
}

BoardText::Tone LayoutState::tone() const
{
    return kind == Kind::missing ? &Board::Palette::attention
        : kind == Kind::matches  ? &Board::Palette::ready
                                 : &Board::Palette::muted;
}

LayoutList::LayoutList(AppModel &model, QWidget *parent) : QListView(parent), m_model(model)
{
    setModel(&m_rows);
    setItemDelegate(new LayoutDelegate(this));
    setAccessibleName(tr("Layouts"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    setDragDropMode(QAbstractItemView::InternalMove);
    viewport()->setAutoFillBackground(false);
    fillMenu();
    connect(&model, &AppModel::layoutsChanged, this, &LayoutList::follow);
    connect(&Platform::current().displays(), &Displays::changed, this, &LayoutList::follow);
    connect(&BoardStyle::shared(), &BoardStyle::lookChanged, this, &LayoutList::doItemsLayout);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (!m_isFollowing)
            Q_EMIT currentLayoutChanged();
    });
    keepCurrentSelected(*this);
    connect(&m_rows, &QStandardItemModel::itemChanged, this, [this](QStandardItem *item) {
        const QString name = item->text().trimmed();
        if (!m_isFollowing && !name.isEmpty())
            m_model.renameLayout(item->data(idRole).toUuid(), name);
        else if (!m_isFollowing)
            follow();
    });
    follow();
}

void LayoutList::fillMenu()
{
    m_menu.addAction(tr("Rename"), this, [this] { rename(current()); });
    m_menu.addAction(tr("Duplicate"), this, [this] {
        if (const auto copy = m_model.duplicateLayout(current()))
            rename(copy->id);
    });
    m_menu.addSeparator();
    QAction *up = m_menu.addAction(tr("Move Up"), this, [this] { move(-1); });
    QAction *down = m_menu.addAction(tr("Move Down"), this, [this] { move(1); });
    m_menu.addSeparator();
    m_menu.addAction(tr("Delete"), this, &LayoutList::remove);
    connect(&m_menu, &QMenu::aboutToShow, this, [this, up, down] {
        up->setEnabled(currentIndex().row() > 0);
        down->setEnabled(currentIndex().row() < m_rows.rowCount() - 1);
    });
}

void LayoutList::move(int by)
{
    m_model.moveLayout(current(), currentIndex().row() + by);
}

void LayoutList::remove()
{
    const auto layout = m_model.layout(current());
    if (!layout)
        return;
    m_model.deleteLayout(layout->id);
    Q_EMIT deleted(layout->name);
}

/// Rows of the same layouts stay, and with them the name that is being typed.
void LayoutList::follow()
{
    const QUuid before = current();
    const int row = currentIndex().row();
    const QList<WindowLayout> layouts = m_model.layouts();
    {
        const QScopedValueRollback following(m_isFollowing, true);
        const QList<DisplayKey> connected = Screens::signature();
        QList<QUuid> shown;
        for (int i = 0; i < m_rows.rowCount(); ++i)
            shown << m_rows.item(i)->data(idRole).toUuid();
        QList<QUuid> wanted;
        for (const WindowLayout &layout : layouts)
            wanted << layout.id;
        if (shown != wanted) {
            m_rows.clear();
            for (qsizetype i = 0; i < wanted.size(); ++i) {
                auto *item = new QStandardItem;
                item->setDropEnabled(false);
                m_rows.appendRow(item);
            }
        }
        for (int i = 0; i < m_rows.rowCount(); ++i) {
            const LayoutState state = LayoutState::of(layouts[i], connected);
            QStandardItem &item = *m_rows.item(i);
            item.setText(oneLine(layouts[i].name));
            item.setData(layouts[i].id, idRole);
            item.setData(int(state.kind), kindRole);
            item.setData(state.text, stateRole);
            item.setData(layouts[i].applyOnConnect, appliesRole);
            item.setData(QString(item.text() + u", "_s + state.text), Qt::AccessibleTextRole);
        }
        QModelIndex index = indexOf(before);
        if (!index.isValid())
            index = m_rows.index(std::clamp(row, 0, std::max(0, m_rows.rowCount() - 1)), 0);
        if (index != currentIndex())
            setCurrentIndex(index);
    }
    if (current() != before)
        Q_EMIT currentLayoutChanged();
}

QModelIndex LayoutList::indexOf(const QUuid &id) const
{
    for (int row = 0; row < m_rows.rowCount(); ++row) {
        if (m_rows.item(row)->data(idRole).toUuid() == id)
            return m_rows.index(row, 0);
    }
    return {};
}

QUuid LayoutList::current() const
{
    return currentIndex().data(idRole).toUuid();
}

void LayoutList::setCurrent(const QUuid &id)
{
    if (const QModelIndex index = indexOf(id); index.isValid())
        setCurrentIndex(index);
}

void LayoutList::rename(const QUuid &id)
{
    setCurrent(id);
    setFocus(Qt::OtherFocusReason);
    edit(currentIndex());
}

void LayoutList::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState)
        return QListView::keyPressEvent(event);
    const bool isUp = event->key() == Qt::Key_Up;
    if (event->modifiers() == Qt::AltModifier && (isUp || event->key() == Qt::Key_Down))
        return move(isUp ? -1 : 1);
    if (event->key() == Qt::Key_Delete)
        return remove();
    QListView::keyPressEvent(event);
}

void LayoutList::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!isByKey && !indexAt(event->pos()).isValid())
        return;
    m_menu.popup(isByKey ? viewport()->mapToGlobal(visualRect(currentIndex()).center())
                         : event->globalPos());
}

/// The model moves the layout, and its list follows.
void LayoutList::dropEvent(QDropEvent *event)
{
    const QModelIndex over = indexAt(event->position().toPoint());
    const int from = currentIndex().row();
    int to = over.isValid() ? over.row() : m_rows.rowCount() - 1;
    if (over.isValid() && dropIndicatorPosition() == QAbstractItemView::AboveItem && to > from)
        --to;
    if (over.isValid() && dropIndicatorPosition() == QAbstractItemView::BelowItem && to < from)
        ++to;
    event->setDropAction(Qt::CopyAction); // so that the view takes no row away
    event->accept();
    if (event->source() == this)
        m_model.moveLayout(current(), to);
}

} // namespace corvane
