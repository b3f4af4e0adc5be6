#include "TremorLogList.h"

#include "Board.h"
#include "SettingsPage.h"
#include "TremorLogDelegate.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QScrollBar>

namespace corvane {

TremorLogList::TremorLogList(TremorLogModel &log) : m_log(log)
{
    const int bar = verticalScrollBar()->sizeHint().width();
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setViewportMargins(SettingsPage::sides() + Board::margins(0, 0, -bar, 0));
    setModel(&log);
    setItemDelegate(new TremorLogDelegate(this));
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
}

const ActivityEntry *TremorLogList::current() const
{
    const QModelIndex index = currentIndex();
    return index.isValid() && m_log.row(index).entry ? &*m_log.row(index).entry : nullptr;
}

void TremorLogList::focusInEvent(QFocusEvent *event)
{
    QListView::focusInEvent(event);
    if (current() && !selectionModel()->hasSelection())
        setCurrentIndex(currentIndex());
}

void TremorLogList::copy() const
{
    if (const ActivityEntry *entry = current())
        QGuiApplication::clipboard()->setText(TremorLogModel::line(*entry));
}

} // namespace corvane
