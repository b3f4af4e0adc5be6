#include "RowMenu.h"

#include "MenuRows.h"
#include "Platform.h"

#include <QtGui/QBitmap>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionMenuItem>

#include <algorithm>

namespace corvane {

namespace {

constexpr int typingPause = 1000; // milliseconds; then the next letter begins a new word

bool begins(const QString &title, const QString &typed)
{
    return title.startsWith(typed, Qt::CaseInsensitive);
}

} // namespace

RowMenu::RowMenu(MenuRows &rows, QWidget *parent) : QMenu(parent), m_rows(rows)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
}

void RowMenu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    // The style finds the row by it; it changes nothing there.
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

void RowMenu::paintEvent(QPaintEvent *event)
{
    m_rows.lit = activeAction();
    QMenu::paintEvent(event);
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
    painter.drawRoundedRect(rect(), MenuStyle::cornerRadius(), MenuStyle::cornerRadius());
    painter.end();
    setMask(shape);
}

// A space that belongs to no title chooses the row, as anywhere.
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

// One letter, also when typed again and again, goes on to the next row that begins so; more letters
// may stay where they are.
QAction *RowMenu::rowBeginning(const QString &typed) const
{
    const QList<QAction *> all = actions();
    const bool isOneLetter = std::ranges::all_of(
        typed, [&](QChar letter) { return letter.toCaseFolded() == typed.at(0).toCaseFolded(); });
    const QString wanted = isOneLetter ? typed.left(1) : typed;
    const qsizetype start = all.indexOf(activeAction()) + (isOneLetter ? 1 : 0);
    for (qsizetype i = 0; i < all.size(); ++i) {
        QAction *row = all[(std::max<qsizetype>(start, 0) + i) % all.size()];
        if (row->isEnabled() && begins(m_rows.rows.value(row).title, wanted))
            return row;
    }
    return nullptr;
}

} // namespace corvane
