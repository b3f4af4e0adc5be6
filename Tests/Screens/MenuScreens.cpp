#include "Catalogues.h"
#include "ModelDesk.h"
#include "RowDrawing.h"
#include "RowMenu.h"
#include "StatusMenu.h"

#include <QtWidgets/QApplication>

#include <cstdio>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

QStringList failures;
QString fileName; ///< but for what it shows

bool fits(const QFont &font, const QString &text, const QRectF &rect)
{
    const QFontMetricsF metrics(font);
    return metrics.horizontalAdvance(text) <= rect.width() + 0.5
        && metrics.height() <= rect.height() + 0.5;
}

/// What must hold of a menu's row however large its text is.
void check(const RowMenu &menu, const MenuRow &row, QAction *action)
{
    const QRectF rect = menu.actionGeometry(action);
    const auto at = RowDrawing::places(rect, row, menu.look(), RowDrawing::kindOf(*action));
    const bool isWhole = QRectF(menu.rect()).contains(rect)
        && fits(menu.look().titleFont, row.title, at.title)
        && (!row.subtitle || fits(Board::font(Board::Type::secondary), *row.subtitle, at.subtitle));
    const bool isInColumn = at.trailing.isNull()
        || (rect.contains(at.trailing)
            && qAbs(at.trailing.right() - rect.left() - menu.columnEnd()) < 0.01
            && at.trailing.left() - at.title.right() >= Board::length(20));
    if (!isWhole || !isInColumn)
        failures << row.title + (isWhole ? u": its end is out of line"_s : u": does not fit"_s);
}

void shoot(QMenu &menu, const QString &what, qsizetype lit)
{
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    menu.setActiveAction(menu.actions().value(lit));
    for (QAction *action : menu.actions()) {
        if (const auto row = MenuRow::of(*action))
            check(static_cast<RowMenu &>(menu), *row, action);
    }
    if (!menu.grab().save(fileName.arg(what)))
        failures << what + u": cannot be written"_s;
}

void drawMenus(AppModel &model)
{
    const auto nothing = [](auto &&...) {};
    const MenuTarget target{nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing,
        nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing,
        nothing, nothing};
    StatusMenu status(RowForm::drawn, model, target);
    status.fill();
    QMenu &menu = status.menu();
    shoot(menu, u"status"_s, menu.actions().size() - 8);
    for (QAction *action : menu.actions()) {
        if (auto *submenu = action->menu<QMenu *>())
            shoot(*submenu, u"status-"_s + MenuRow::of(*action)->title.toLower(), 1);
    }
    model.accessibilityTrusted = false;
    model.unregistered = UnregisteredShortcuts{{{model.layouts().first().id}, {}}};
    model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};
    model.updateStatus =
        UpdateStatus{{UpdateAvailability::Available{u"1.2"_s}}, false, false, {}, true};
    status.fill();
    shoot(menu, u"status-flags"_s, -1);
}

} // namespace

/// menu-screens PIXELS FOLDER: text of so many pixels
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Catalogues catalogues({u"en"_s});
    const QStringList arguments = QApplication::arguments();
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(arguments.at(1).toInt());
    QApplication::setFont(font);
    QDir().mkpath(arguments.at(2));
    const QString pixels = u"-%1x-%2px.png"_s.arg(qApp->devicePixelRatio()).arg(font.pixelSize());

    ModelDesk desk;
    QList<WindowLayout> layouts(2, ModelDesk::leftHalfLayout(Screens::signature()));
    layouts[0].shortcut = KeyCombo(18, KeyCombo::control | KeyCombo::option | KeyCombo::command);
    layouts[1].name = u"Desk & Chat with Two Displays"_s;
    layouts[1].displays << DisplayKey{u"Desk"_s, 1920, 1080};
    desk.save(layouts);
    for (const auto &[name, look] :
        {std::pair(u"light"_s, DesktopLook{false, false}), {u"dark"_s, {true, false}},
            {u"light-contrast"_s, {false, true}}, {u"dark-contrast"_s, {true, true}}}) {
        AppModel model = desk.model();
        model.look = look;
        fileName = arguments.at(2) + u"/menus-%1-"_s + name + pixels;
        drawMenus(model);
    }
    std::fputs(qUtf8Printable(failures.join(u'\n')), stderr);
    return failures.isEmpty() ? 0 : 1;
}
