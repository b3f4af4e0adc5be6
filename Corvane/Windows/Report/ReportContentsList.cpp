#include "ReportContentsList.h"

#include "Board.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace corvane {

ReportContentsList::ReportContentsList(QWidget *parent) : QListView(parent)
{
    setModel(&m_contents);
    setFont(Board::font(Board::Type::smallNumerals));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
    setTextElideMode(Qt::ElideNone);
    setLayoutDirection(Qt::LeftToRight); // as the log is, in any language
    viewport()->setAutoFillBackground(false);
}

// All lines are as long as the longest one, so that none is measured before it is shown.
void ReportContentsList::setReport(const ProblemReport &report)
{
    m_contents.setReport(report);
    const QFontMetrics metrics = fontMetrics();
    const qsizetype width =
        m_contents.length() * metrics.horizontalAdvance(u'0') + 2 * Board::length(6);
    setGridSize(
        {int(std::min<qsizetype>(width, QWIDGETSIZE_MAX)), metrics.height() + Board::length(2)});
    setCurrentIndex(m_contents.index(0)); // for who comes here by Tab
    clearSelection();
}

void ReportContentsList::copy() const
{
    QModelIndexList selected = selectedIndexes();
    std::ranges::sort(selected, {}, &QModelIndex::row);
    QStringList lines;
    for (const QModelIndex &index : std::as_const(selected))
        lines << m_contents.line(index.row());
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void ReportContentsList::keyPressEvent(QKeyEvent *event)
{
    const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (isSideways)
        horizontalScrollBar()->triggerAction(event->key() == Qt::Key_Left
                ? QAbstractSlider::SliderSingleStepSub
                : QAbstractSlider::SliderSingleStepAdd);
    else
        QListView::keyPressEvent(event);
}

} // namespace corvane
