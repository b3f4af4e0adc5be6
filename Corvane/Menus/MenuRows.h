#pragma once

#include "KeyCaps.h"
#include "MenuHeader.h"
#include "MenuStyle.h"
#include "Symbol.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QAction>
#include <QtGui/QIcon>

#include <functional>
#include <optional>
#include <variant>

class QMenu;
class QWidget;

namespace corvane {

enum class RowForm {
    drawn,
    /// For desktops that draw our menus themselves and take only texts and icons.
    plain,
};

/// The rows of menus: a title column and a trailing column of key caps. Outlives the menus.
class MenuRows final : public QObject
{
    Q_OBJECT

public:
    /// Lengths in points.
    struct Style {
        double capHeight = 0;
        double capGap = 0;
        double capCornerRadius = 0;
        QFont glyphFont;
        QFont nameFont;
        QStringList glyphs = {}; ///< the texts that are drawn with the glyph font
        QFont trailingFont;
        QFont titleFont;
        double iconSlot = 0; ///< width kept for the icon
        double gap = 0; ///< between icon and title

        /// After the desktop's font.
        [[nodiscard]] static Style current();
    };

    struct Trailing {
        struct Keys {
            QStringList parts; ///< one key cap each
        };
        struct Text {
            QString text;
        };
        struct None {
        };

        std::variant<None, Keys, Text> value;
    };

    struct Row {
        QString title;
        std::optional<QString> subtitle = {};
        std::optional<QString> symbol = {};
        std::optional<Placement> image = {};
        std::optional<Symbol::Colors> symbolColors = {};
        Trailing trailing = {};
        bool bold = false;
        std::optional<QColor> tint = {};
        std::optional<QString> spokenTrailing = {};
    };

    explicit MenuRows(RowForm form);

    [[nodiscard]] RowForm form() const { return m_form; }
    [[nodiscard]] const Board::Palette &palette() const { return m_palette; }
    /// Takes the fonts and the palette anew, for the menus that are filled from now on.
    void setLook(const DesktopLook &look);

    /// An empty menu in this form. Of its rows only those added here are drawn.
    [[nodiscard]] QMenu *makeMenu(QWidget *parent);
    /// Before `before`, or at the end. Disabled where there is nothing to perform.
    QAction *add(
        QMenu &menu, const Row &row, std::function<void()> perform, QAction *before = nullptr);
    QMenu *addSubmenu(QMenu &menu, const Row &row);
    QAction *addHeader(QMenu &menu, std::function<void()> perform);
    void setHeader(QAction &action, const MenuHeader &header);
    /// Removes all rows, none of which needs to be idle.
    static void clear(QMenu &menu);
    static void remove(QMenu &menu, QAction &action);
    /// One trailing column for all rows of the menu, which gets at least so wide. Submenus are laid
    /// out by themselves.
    void layoutRows(QMenu &menu, double minimumWidth);

    /// For the rows of this menu: without a slot where none of them has an icon.
    [[nodiscard]] Style styleOf(const QMenu &menu) const;

    /// With the key caps that the row's trailing column holds.
    [[nodiscard]] static QString spokenText(const Row &row);
    [[nodiscard]] static QString plainText(const Row &row);

    Style style;
    QHash<const QAction *, Row> rows;
    QHash<const QAction *, MenuHeader> headers;
    QPointer<QAction> lit; ///< in the menu that is drawn now
    QHash<const QMenu *, double> tabLocation; ///< where the trailing column ends, from the left

private:
    void note(QAction &action, const Row &row);
    void forgetWith(const QMenu &menu);

    RowForm m_form;
    Board::Palette m_palette;
    QSet<const QMenu *> m_textMenus; ///< those without an icon
    MenuStyle m_menuStyle;
};

} // namespace corvane
