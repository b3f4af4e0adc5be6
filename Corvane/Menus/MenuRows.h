#pragma once

#include "MenuHeader.h"
#include "MenuRow.h"
#include "MenuStyle.h"
#include "RowLook.h"

#include <functional>

class QMenu;

namespace corvane {

enum class RowForm {
    drawn,
    plain, ///< only texts and icons, for desktops that draw the menus of programs themselves
};

/// Makes menus and fills them with rows. It outlives the menus that it makes.
class MenuRows final : public QObject
{
    Q_OBJECT

public:
    explicit MenuRows(RowForm form);

    [[nodiscard]] const Board::Palette &palette() const { return m_look.palette; }
    /// Menus that are filled from now on have this look.
    void setLook(const DesktopLook &look) { m_look = RowLook::of(look); }

    [[nodiscard]] QMenu *makeMenu(QWidget *parent);
    /// The row stands before `before`, or last. A row without anything to perform is disabled.
    QAction *add(
        QMenu &menu, const MenuRow &row, std::function<void()> perform, QAction *before = nullptr);
    QMenu *addSubmenu(QMenu &menu, const MenuRow &row);
    /// One of these rows' menus, which stays its owner's.
    void addSubmenu(QMenu &menu, QMenu &submenu, const MenuRow &row);
    /// The row of the header, which `setHeader` fills.
    QAction *addHeader(QMenu &menu, std::function<void()> perform);
    void setHeader(QAction &action, const MenuHeader &header);
    /// Removes all rows, even while one of them is being chosen.
    static void clear(QMenu &menu);
    static void remove(QMenu &menu, QAction &action);
    /// Lays out the rows of a menu that has all of them; see `RowMenu`.
    void layoutRows(QMenu &menu, double minimumWidth);

private:
    void fill(QAction &action, const MenuRow &row);

    RowForm m_form;
    RowLook m_look = RowLook::of({});
    MenuStyle m_style;
};

} // namespace corvane
