#include "RowMenu.h"

#include "MenuRow.h"
#include "Platform.h"
#include "RowDrawing.h"

#include <QtGui/QBitmap>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionMenuItem>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr int typingPause = 1000; // milliseconds, after which a letter begins a new word

bool begins(const QString &title, const QString &typed)
{
    return title.startsWith(typed, Qt::CaseInsensitive);
}

} // namespace

RowMenu::RowMenu(const RowLook &look, QWidget *parent) : QMenu(parent), m_look(look)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
}

void RowMenu::layoutRows(const RowLook &look, double minimumWidth)
{
    const QList<QAction *> all = actions();
    const bool hasIcons = std::ranges::any_of(all, [](const QAction *action) {
        const auto row = MenuRow::of(*action);
        return row && row->hasIcon();
    });
    m_look = hasIcons ? look : look.withoutIcons();
    double width = minimumWidth;
    for (const QAction *action : all) {
        if (!action->isSeparator())
            width = std::max(width, RowDrawing::size(*action, m_look).width());
    }
    m_columnEnd = std::ceil(width) - RowDrawing::margin();
}

void RowMenu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    // `MenuStyle`, which is told of no action, finds it here.
    option->styleObject = const_cast<QAction *>(action);
}

void RowMenu::showEvent(QShowEvent *event)
{
    m_isTranslucent = Platform::current().ownWindows().showsTranslucency();
    cutCorners();
    QMenu::showEvent(event);
}

void RowMenu::resizeEvent(QResizeEvent *event)
{
    QMenu::resizeEvent(event);
    cutCorners();
}

void RowMenu::cutCorners()
{
    if (m_isTranslucent)
        return clearMask();
    QBitmap shape(size());
    shape.clear();
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect(), RowDrawing::cornerRadius(), RowDrawing::cornerRadius());
    painter.end();
    setMask(shape);
}

// A space chooses the row, as in any menu, unless it goes on with a title.
void RowMenu::keyPressEvent(QKeyEvent *event)
{
    const QString letter = event->text();
    const bool isText = (event->modifiers() & ~Qt::ShiftModifier) == 0 && letter.size() == 1
        && letter.at(0).isPrint();
    QAction *row = isText ? rowBeginning(m_typed + letter) : nullptr;
    if (!row)
        return QMenu::keyPressEvent(event);
    m_typed += letter;
    m_typing.start(typingPause, this);
    setActiveAction(row);
}

void RowMenu::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_typing.timerId())
        return QMenu::timerEvent(event);
    m_typing.stop();
    m_typed.clear();
}

// A letter, also when it is typed again and again, goes on to the next row that begins with it. A longer
// text may stay on the row that it has reached.
QAction *RowMenu::rowBeginning(const QString &typed) const
{
    const QList<QAction *> all = actions();
    const bool isOneLetter = std::ranges::all_of(
        typed, [&](QChar letter) { return letter.toCaseFolded() == typed.at(0).toCaseFolded(); });
    const QString wanted = isOneLetter ? typed.left(1) : typed;
    const qsizetype start = all.indexOf(activeAction()) + (isOneLetter ? 1 : 0);
    for (qsizetype i = 0; i < all.size(); ++i) {
        QAction *row = all[(std::max<qsizetype>(start, 0) + i) % all.size()];
        const auto shown = MenuRow::of(*row);
        if (row->isEnabled() && shown && begins(shown->title, wanted))
            return row;
    }
    return nullptr;
}

} // namespace corvane
