#include "MenuRows.h"

#include "RowMenu.h"

#include <QtGui/QAction>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// An ampersand, which a name that the user gave may hold, would be taken for a mnemonic.
QString verbatim(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

} // namespace

MenuRows::MenuRows(RowForm form) : m_form(form) { }

QMenu *MenuRows::makeMenu(QWidget *parent)
{
    if (m_form == RowForm::plain)
        return new QMenu(parent);
    auto *menu = new RowMenu(m_look, parent);
    menu->setStyle(&m_style);
    return menu;
}

QAction *MenuRows::add(
    QMenu &menu, const MenuRow &row, std::function<void()> perform, QAction *before)
{
    auto *action = new QAction(&menu);
    action->setEnabled(bool(perform));
    if (perform)
        connect(action, &QAction::triggered, this, std::move(perform));
    fill(*action, row);
    menu.insertAction(before, action);
    return action;
}

QMenu *MenuRows::addSubmenu(QMenu &menu, const MenuRow &row)
{
    QMenu *submenu = makeMenu(&menu);
    addSubmenu(menu, *submenu, row);
    return submenu;
}

void MenuRows::addSubmenu(QMenu &menu, QMenu &submenu, const MenuRow &row)
{
    fill(*submenu.menuAction(), row);
    menu.addMenu(&submenu);
}

QAction *MenuRows::addHeader(QMenu &menu, std::function<void()> perform)
{
    auto *action = new QAction(&menu);
    if (perform)
        connect(action, &QAction::triggered, this, std::move(perform));
    menu.addAction(action);
    return action;
}

void MenuRows::setHeader(QAction &action, const MenuHeader &header)
{
    action.setData(QVariant::fromValue(header));
    action.setText(header.spoken());
    action.setEnabled(m_form == RowForm::drawn);
}

void MenuRows::fill(QAction &action, const MenuRow &row)
{
    action.setData(QVariant::fromValue(row));
    action.setMenuRole(QAction::NoRole);
    if (m_form == RowForm::drawn) {
        action.setText(verbatim(row.spokenText()));
    } else {
        action.setText(verbatim(row.plainText()));
        action.setIcon(row.icon(m_look.palette));
    }
}

// A row may be in the middle of being chosen, or its submenu open.
void MenuRows::clear(QMenu &menu)
{
    for (QAction *action : menu.actions())
        remove(menu, *action);
}

void MenuRows::remove(QMenu &menu, QAction &action)
{
    menu.removeAction(&action);
    if (auto *submenu = action.menu<QMenu *>())
        submenu->deleteLater();
    else
        action.deleteLater();
}

void MenuRows::layoutRows(QMenu &menu, double minimumWidth)
{
    // A desktop lays out by itself the menus that it draws itself.
    if (auto *drawn = qobject_cast<RowMenu *>(&menu))
        drawn->layoutRows(m_look, minimumWidth);
}

} // namespace corvane
