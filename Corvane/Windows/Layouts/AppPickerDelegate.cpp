#include "AppPickerDelegate.h"

#include "AppIcons.h"
#include "AppPickerModel.h"
#include "BoardStyle.h"
#include "DevicePixels.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace corvane {

namespace {

const AppCandidate *candidateAt(const QModelIndex &index)
{
    return static_cast<const AppPickerModel *>(index.model())->candidate(index);
}

void drawText(QPainter &painter, const QRect &rect, Qt::LayoutDirection direction,
    const QFont &font, const QColor &color, const QString &text)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // the text's own
    painter.drawText(rect,
        int(QStyle::visualAlignment(direction, Qt::AlignLeading)) | int(Qt::AlignAbsolute)
            | int(Qt::AlignVCenter) | int(Qt::TextSingleLine),
        QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width()));
}

/// The title in capitals, as labels are, close to what it stands above.
void drawSection(QPainter &painter, const QStyleOptionViewItem &option, const QString &title)
{
    const int margin = Board::length(16);
    drawText(painter, option.rect.adjusted(margin, Board::length(6), -margin, 0), option.direction,
        Board::font(Board::Type::label), BoardStyle::shared().colors().muted, title);
}

void drawGround(QPainter &painter, const QStyleOptionViewItem &option)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const bool isChosen = option.state & QStyle::State_Selected;
    if (!isChosen && !(option.state & QStyle::State_MouseOver))
        return;
    const int margin = Board::length(6);
    const QRect ground = QStyle::visualRect(
        option.direction, option.rect, option.rect.adjusted(margin, 0, -Board::length(2), 0));
    drawField(painter, ground, Board::length(7), isChosen ? palette.accent : palette.grid,
        isChosen ? palette.accent : palette.grid);
}

} // namespace

AppPickerDelegate::AppPickerDelegate(QObject *parent) : QStyledItemDelegate(parent)
{
    const int body = QFontMetrics(Board::font(Board::Type::body)).height();
    const int small = QFontMetrics(Board::font(Board::Type::secondary)).height();
    m_rowHeight = std::max(Board::length(44), body + small + Board::length(8));
    m_sectionHeight = std::max(Board::length(30), small + Board::length(12));
}

void AppPickerDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    const AppCandidate *candidate = candidateAt(index);
    if (!candidate) {
        drawSection(*painter, option, index.data().toString());
        return painter->restore();
    }
    drawGround(*painter, option);
    const Board::Palette &palette = BoardStyle::shared().colors();
    const bool isChosen = option.state & QStyle::State_Selected;
    const int margin = Board::length(16);
    const int side = Board::length(24);
    const QRect area = option.rect.adjusted(margin, 0, -margin, 0);
    const QRect icon(area.left(), area.center().y() - side / 2, side, side);
    AppIcons::shared().paint(
        *painter, QStyle::visualRect(option.direction, area, icon), candidate->app);

    const QFont body = Board::font(Board::Type::body);
    const QFont small = Board::font(Board::Type::secondary);
    const QString detail = candidate->detail();
    QRect name = area.adjusted(side + Board::length(10), 0, 0, 0);
    if (!detail.isEmpty()) {
        const int lines = QFontMetrics(body).height() + QFontMetrics(small).height();
        name.setTop(name.top() + (name.height() - lines) / 2);
        QRect below = name;
        name.setHeight(QFontMetrics(body).height());
        below.setTop(name.bottom() + 1);
        below.setHeight(QFontMetrics(small).height());
        drawText(*painter, QStyle::visualRect(option.direction, area, below), option.direction,
            small, isChosen ? palette.onAccent : palette.muted, detail);
    }
    drawText(*painter, QStyle::visualRect(option.direction, area, name), option.direction, body,
        isChosen ? palette.onAccent : palette.fore, index.data().toString());
    painter->restore();
}

QSize AppPickerDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    return {0, candidateAt(index) ? m_rowHeight : m_sectionHeight};
}

} // namespace corvane
