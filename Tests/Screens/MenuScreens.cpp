#include "Catalogues.h"
#include "MainMenu.h"
#include "ModelDesk.h"
#include "PlacementIcon.h"
#include "RowDrawing.h"
#include "RowMenu.h"
#include "StatusIcon.h"
#include "StatusMenu.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <cmath>
#include <cstdio>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 allModifiers = KeyCombo::control | KeyCombo::option | KeyCombo::command;

QSet<QString> failures;

void expect(bool holds, const QString &subject, const QString &rule)
{
    if (!holds)
        failures << subject + u": "_s + rule;
}

bool fits(const QFont &font, const QString &text, const QRectF &rect)
{
    const QFontMetricsF metrics(font);
    return metrics.horizontalAdvance(text) <= rect.width() + 0.5
        && metrics.height() <= rect.height() + 0.5;
}

/// What must hold of a menu's row however large its text is.
void check(const RowMenu &menu, QAction *action)
{
    expect(action->isSeparator() || !action->text().isEmpty(), u"a row"_s, u"has a name"_s);
    const auto found = MenuRow::of(*action);
    if (!found)
        return;
    const MenuRow &row = *found;
    const QRectF rect = menu.actionGeometry(action);
    const auto at = RowDrawing::places(rect, row, menu.look(), RowDrawing::kindOf(*action));
    const auto that = [&row](bool holds, const QString &rule) { expect(holds, row.title, rule); };

    that(QRectF(menu.rect()).contains(rect), u"is within the menu"_s);
    that(rect.height() <= Board::length(row.subtitle ? 46 : 30), u"is as tall as its text"_s);
    that(fits(menu.look().titleFont, row.title, at.title), u"is shown whole"_s);
    that(!row.subtitle || fits(Board::font(Board::Type::secondary), *row.subtitle, at.subtitle),
        u"its subtitle is shown whole"_s);
    if (at.trailing.isNull())
        return;
    that(rect.contains(at.trailing), u"its key caps are within the row"_s);
    that(std::abs(at.trailing.right() - rect.left() - menu.columnEnd()) < 0.01,
        u"its trailing part ends where those of the others do"_s);
    that(at.trailing.left() - at.title.right() >= Board::length(20),
        u"its key caps stand clear of the title"_s);
}

/// Every row can be chosen.
MenuTarget fullTarget()
{
    const auto nothing = [](auto &&...) {};
    return {nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing,
        nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing};
}

/// The pictures of one look, at the process's scale and size of text.
struct MenuScreens {
    QString folder;
    QString name;
    DesktopLook look;
    const Board::Palette &palette = Board::palette(look);

    /// Draws on the ground of a window.
    template <typename Draw>
    void picture(const QString &what, QSize size, Draw draw) const
    {
        const double scale = qApp->devicePixelRatio();
        QPixmap pixmap(size * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(palette.ground);
        QPainter painter(&pixmap);
        draw(painter);
        painter.end();
        const QString file = u"%1/menus-%2-%3-%4x-%5px.png"_s.arg(folder, what, name)
                                 .arg(scale)
                                 .arg(QApplication::font().pixelSize());
        expect(pixmap.save(file), file, u"can be written"_s);
    }
    void shoot(QMenu &menu, const QString &what, qsizetype lit) const
    {
        constexpr int border = 16;
        menu.ensurePolished();
        menu.resize(menu.sizeHint());
        menu.setActiveAction(menu.actions().value(lit));
        for (QAction *action : menu.actions())
            check(static_cast<RowMenu &>(menu), action);
        const QPixmap shot = menu.grab();
        picture(what, menu.size() + QSize(2, 2) * border,
            [&](QPainter &painter) { painter.drawPixmap(border, border, shot); });
    }
    void drawMenus(AppModel &model) const;
    void drawKeyCaps() const;
    void drawIcons() const;
};

void MenuScreens::drawMenus(AppModel &model) const
{
    StatusMenu status(RowForm::drawn, model, fullTarget());
    status.fill();
    QMenu &menu = status.menu();
    shoot(menu, u"status"_s, menu.actions().size() - 7);
    for (QAction *action : menu.actions()) {
        if (auto *submenu = action->menu<QMenu *>())
            shoot(*submenu, u"status-"_s + MenuRow::of(*action)->title.toLower(), 1);
    }
    MenuRows rows(RowForm::drawn);
    const auto bar = MainMenu::build(rows, fullTarget(), model);
    for (const QAction *action : bar->actions())
        shoot(*action->menu<QMenu *>(), u"main-"_s + action->text().toLower(), 0);

    model.accessibilityTrusted = false;
    model.unregistered = QSet<ShortcutOwner>{
        {Placement::leftHalf}, {Placement::maximize}, {model.layouts().first().id}};
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};
    model.updateStatus = UpdateStatus{.availability = {UpdateAvailability::Available{u"1.2"_s}},
        .lastChecked = {},
        .canUpdate = true};
    status.fill();
    shoot(menu, u"status-flags"_s, -1);
    model.accessibilityTrusted = true;
    model.unregistered = QSet<ShortcutOwner>();
    model.competitors = QList<Competitor::Running>();
    model.updateStatus = UpdateStatus();
}

void MenuScreens::drawKeyCaps() const
{
    const KeyCapStyle style = KeyCapStyle::ofHeight(20);
    const int row = Board::length(30);
    QStringList glyphs;
    for (const QStringView glyph : KeyCap::glyphs)
        glyphs << glyph.toString();
    const KeyCaps caps(
        KeyCombo(123, allModifiers).parts() << u"F12"_s << u"Space"_s << u","_s << u"g"_s << u"Q"_s,
        style);
    const QSize size(Board::length(620), 5 * row);
    picture(u"key-caps"_s, size, [&](QPainter &painter) {
        KeyCaps(glyphs, style).paint(painter, {10, 8}, palette, KeyCaps::Form::plain);
        caps.paint(painter, QPointF(10, row + 8), palette, KeyCaps::Form::plain);
        caps.paint(painter, QPointF(10, 2 * row + 8), palette, KeyCaps::Form::dimmed);
        painter.fillRect(QRect(0, 3 * row, size.width(), row + 8), palette.accent);
        caps.paint(painter, QPointF(10, 3 * row + 8), palette, KeyCaps::Form::lit);
    });
}

void MenuScreens::drawIcons() const
{
    const QSize size(34 * placementCount + 10, 160);
    picture(u"placement-icons"_s, size, [&](QPainter &painter) {
        double y = 8;
        for (const int height : {16, 24, 13}) {
            for (const auto form : {PlacementIcon::Form::plain, PlacementIcon::Form::lit}) {
                if (form == PlacementIcon::Form::lit)
                    painter.fillRect(QRectF(0, y - 2, size.width(), height + 4), palette.accent);
                QRectF rect(8, y, height * 1.25, height);
                for (const Placement placement : allPlacements()) {
                    PlacementIcon::paint(
                        painter, rect, placement, PlacementIcon::colors(palette, form));
                    rect.translate(rect.width() + 4, 0);
                }
                y += height + 8;
            }
        }
    });
    DesktopLook other = look;
    other.isDark = !other.isDark;
    picture(u"status-icons"_s, {560, 160}, [&](QPainter &painter) {
        painter.fillRect(0, 80, 560, 80, Board::palette(other).ground); // a panel of the other tone
        for (const double y : {10, 88}) {
            double x = 10;
            for (const int side : {16, 22, 24, 32, 48, 64}) {
                for (const auto form : {StatusIcon::Form::ordinary, StatusIcon::Form::attention}) {
                    StatusIcon::paint(
                        painter, QRectF(x, y, side, side), form, StatusIcon::colors(look));
                    x += side + 8;
                }
            }
        }
    });
}

void addLayouts(const ModelDesk &desk)
{
    QList<WindowLayout> layouts;
    for (const auto &[name, shortcut] :
        {std::pair(u"Writing"_s, std::optional(KeyCombo(18, allModifiers))),
            {u"Review & Chat"_s, KeyCombo(19, allModifiers)},
            {u"Desk with Two Displays"_s, std::nullopt}}) {
        layouts << ModelDesk::leftHalfLayout(Screens::signature());
        layouts.last().name = name;
        layouts.last().shortcut = shortcut;
    }
    layouts.last().displays << DisplayKey{u"Desk"_s, 1920, 1080};
    std::ignore = LayoutStore(desk.folder.path()).save(layouts);
}

} // namespace

/// menu-screens PIXELS FOLDER: text of so many pixels.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Catalogues catalogues({u"en"_s});
    const QStringList arguments = QApplication::arguments();
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(arguments.at(1).toInt());
    QApplication::setFont(font);
    QDir().mkpath(arguments.at(2));

    ModelDesk desk;
    addLayouts(desk);
    AppModel model = desk.model();
    for (const auto &[name, look] :
        {std::pair(u"light"_s, DesktopLook{false, false}), {u"dark"_s, {true, false}},
            {u"light-contrast"_s, {false, true}}, {u"dark-contrast"_s, {true, true}}}) {
        model.look = look;
        const MenuScreens screens{arguments.at(2), name, look};
        screens.drawMenus(model);
        screens.drawKeyCaps();
        screens.drawIcons();
    }
    for (const QString &failure : std::as_const(failures))
        std::fprintf(stderr, "%s\n", qUtf8Printable(failure));
    return failures.isEmpty() ? 0 : 1;
}
