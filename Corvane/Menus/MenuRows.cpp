#include "MenuRows.h"

#include "Match.h"
#include "PlacementIcon.h"
#include "RowDrawing.h"
#include "RowMenu.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// What a user has named may hold an ampersand, which would be taken for a mnemonic.
QString verbatim(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

QString trailingText(
    const MenuRows::Trailing &trailing, QString (*textOf)(const QStringList &parts))
{
    using Trailing = MenuRows::Trailing;
    return match(
        trailing.value, [](Trailing::None) { return QString(); },
        [textOf](const Trailing::Keys &keys) { return textOf(keys.parts); },
        [](const Trailing::Text &text) { return text.text; });
}

QIcon iconOf(const MenuRows::Row &row, const Board::Palette &palette)
{
    if (row.image)
        return PlacementIcon::icon(*row.image, palette);
    const Symbol::Colors colors =
        row.symbolColors.value_or(Symbol::Colors{row.tint.value_or(palette.fore)});
    return row.symbol ? Symbol::icon(*row.symbol, colors) : QIcon();
}

} // namespace

MenuRows::Style MenuRows::Style::current()
{
    const KeyCapStyle caps = KeyCapStyle::ofHeight(20);
    Style style{.capHeight = caps.height,
        .capGap = caps.gap,
        .capCornerRadius = caps.cornerRadius,
        .glyphFont = caps.glyphFont,
        .nameFont = caps.nameFont,
        .trailingFont = Board::font(Board::Type::secondary),
        .titleFont = Board::font(Board::Type::body),
        .iconSlot = static_cast<double>(Board::length(20)),
        .gap = static_cast<double>(Board::length(10))};
    for (const QStringView glyph : KeyCap::glyphs)
        style.glyphs << glyph.toString();
    return style;
}

MenuRows::MenuRows(RowForm form) : m_form(form), m_menuStyle(*this)
{
    setLook({});
}

void MenuRows::setLook(const DesktopLook &look)
{
    style = Style::current();
    m_palette = Board::palette(look);
}

QMenu *MenuRows::makeMenu(QWidget *parent)
{
    if (m_form == RowForm::plain)
        return new QMenu(parent);
    auto *menu = new RowMenu(*this, parent);
    menu->setStyle(&m_menuStyle);
    return menu;
}

QAction *MenuRows::add(QMenu &menu, const Row &row, std::function<void()> perform, QAction *before)
{
    auto *action = new QAction(&menu);
    action->setEnabled(bool(perform));
    if (perform)
        connect(action, &QAction::triggered, this, std::move(perform));
    note(*action, row);
    menu.insertAction(before, action);
    return action;
}

QMenu *MenuRows::addSubmenu(QMenu &menu, const Row &row)
{
    QMenu *submenu = makeMenu(&menu);
    note(*submenu->menuAction(), row);
    menu.addMenu(submenu);
    return submenu;
}

QAction *MenuRows::addHeader(QMenu &menu, std::function<void()> perform)
{
    auto *action = new QAction(&menu);
    if (perform)
        connect(action, &QAction::triggered, this, std::move(perform));
    connect(action, &QObject::destroyed, this, [this, action] { headers.remove(action); });
    menu.addAction(action);
    return action;
}

void MenuRows::setHeader(QAction &action, const MenuHeader &header)
{
    headers.insert(&action, header);
    action.setText(header.spoken());
    action.setEnabled(m_form == RowForm::drawn);
}

void MenuRows::note(QAction &action, const Row &row)
{
    rows.insert(&action, row);
    connect(&action, &QObject::destroyed, this, [this, key = &action] { rows.remove(key); });
    action.setMenuRole(QAction::NoRole);
    if (m_form == RowForm::drawn) {
        action.setText(verbatim(spokenText(row)));
    } else {
        action.setText(verbatim(plainText(row)));
        action.setIcon(iconOf(row, m_palette));
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
    const QList<QAction *> actions = menu.actions();
    const bool hasIcons = std::ranges::any_of(actions, [this](const QAction *action) {
        const Row row = rows.value(action);
        return row.symbol || row.image;
    });
    if (hasIcons)
        m_textMenus.remove(&menu);
    else
        m_textMenus.insert(&menu);
    const Style rowStyle = styleOf(menu);
    double width = minimumWidth;
    for (const QAction *action : actions) {
        if (const auto row = rows.constFind(action); row != rows.cend())
            width = std::max(
                width, RowDrawing::size(*row, rowStyle, RowDrawing::kindOf(*action)).width());
        else if (const auto header = headers.constFind(action); header != headers.cend())
            width = std::max(width, RowDrawing::headerSize(*header).width());
    }
    forgetWith(menu);
    tabLocation.insert(&menu, std::ceil(width) - RowDrawing::margin());
}

void MenuRows::forgetWith(const QMenu &menu)
{
    if (tabLocation.contains(&menu))
        return;
    connect(&menu, &QObject::destroyed, this, [this, key = &menu] {
        tabLocation.remove(key);
        m_textMenus.remove(key);
    });
}

MenuRows::Style MenuRows::styleOf(const QMenu &menu) const
{
    Style result = style;
    if (m_textMenus.contains(&menu))
        result.iconSlot = result.gap = 0;
    return result;
}

QString MenuRows::spokenText(const Row &row)
{
    const QString trailing = trailingText(row.trailing, KeyCaps::spoken);
    QStringList texts{row.title};
    if (row.subtitle)
        texts << *row.subtitle;
    if (row.spokenTrailing || !trailing.isEmpty())
        texts << row.spokenTrailing.value_or(trailing);
    return texts.join(u", "_s);
}

// Desktops on Qt put what follows the tab into a column of its own, the others leave a gap.
QString MenuRows::plainText(const Row &row)
{
    const QString title = row.subtitle
        ? QCoreApplication::translate("MenuRows", "%1 (%2)").arg(row.title, *row.subtitle)
        : row.title;
    const QString trailing = trailingText(row.trailing, KeyCaps::plainText);
    return trailing.isEmpty() ? title : title + u'\t' + trailing;
}

} // namespace corvane
