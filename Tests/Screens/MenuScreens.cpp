#include "Catalogues.h"
#include "MainMenu.h"
#include "MenuChecks.h"
#include "MenuDesk.h"
#include "PlacementIcon.h"
#include "StatusIcon.h"
#include "StatusMenu.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <cstdio>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

constexpr int border = 16;

struct Look {
    QString name;
    DesktopLook look;
};

const QList<Look> &looks()
{
    static const QList<Look> looks{{u"light"_s, {false, false}}, {u"dark"_s, {true, false}},
        {u"light-contrast"_s, {false, true}}, {u"dark-contrast"_s, {true, true}}};
    return looks;
}

/// Every row can be chosen.
MenuTarget fullTarget()
{
    const auto nothing = [](auto &&...) {};
    return {nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing,
        nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing};
}

/// Draws the pictures of one look at the process's scale and size of text.
class MenuScreens
{
public:
    MenuScreens(const QString &folder, const Look &look, AppModel &model)
        : m_folder(folder), m_look(look), m_model(model)
    {
        m_model.look = look.look;
    }

    void drawStatusMenus();
    void drawMainMenu();
    void drawKeyCaps();
    void drawPlacementIcons();
    void drawStatusIcons();
    [[nodiscard]] const QStringList &failures() const { return m_failures; }

private:
    /// On the ground of a window.
    [[nodiscard]] QPixmap ground(QSize size) const;
    void save(const QPixmap &picture, const QString &name);
    void shoot(QMenu &menu, const QString &name, qsizetype lit = -1);
    void shootSubmenus(StatusMenu &status);

    QString m_folder;
    const Look &m_look;
    AppModel &m_model;
    QStringList m_failures;
};

QPixmap MenuScreens::ground(QSize size) const
{
    const double scale = qApp->devicePixelRatio();
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Board::palette(m_look.look).ground);
    return pixmap;
}

void MenuScreens::save(const QPixmap &picture, const QString &name)
{
    const QString file = u"%1/menus-%2-%3-%4x-%5px.png"_s.arg(m_folder, name, m_look.name)
                             .arg(qApp->devicePixelRatio())
                             .arg(QApplication::font().pixelSize());
    if (!picture.save(file))
        m_failures << u"%1 could not be written"_s.arg(file);
}

void MenuScreens::shoot(QMenu &menu, const QString &name, qsizetype lit)
{
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    menu.setActiveAction(lit < 0 ? nullptr : menu.actions().at(lit));
    m_failures << MenuChecks::failures(static_cast<RowMenu &>(menu));
    const QPixmap menuPicture = menu.grab();
    QPixmap picture = ground(menu.size() + QSize(2, 2) * border);
    QPainter painter(&picture);
    painter.drawPixmap(border, border, menuPicture);
    painter.end();
    save(picture, name);
}

void MenuScreens::shootSubmenus(StatusMenu &status)
{
    for (QAction *action : status.menu().actions()) {
        if (auto *submenu = action->menu<QMenu *>()) {
            const QString title = MenuRow::of(*action)->title;
            shoot(*submenu, u"status-"_s + title.toLower(), 1);
        }
    }
}

void MenuScreens::drawStatusMenus()
{
    StatusMenu status(RowForm::drawn, m_model, fullTarget());
    status.fill();
    shoot(status.menu(), u"status"_s, status.menu().actions().size() - 7);
    shootSubmenus(status);

    m_model.accessibilityTrusted = false;
    m_model.unregistered = QSet<ShortcutOwner>{
        {Placement::leftHalf}, {Placement::maximize}, {m_model.layouts().first().id}};
    m_model.competitors = QList<Competitor::Running>{{Competitor::known().front(), {}}};
    m_model.updateStatus = UpdateStatus{.availability = {UpdateAvailability::Available{u"1.2"_s}},
        .lastChecked = {},
        .canUpdate = true};
    status.fill();
    shoot(status.menu(), u"status-flags"_s);
    m_model.accessibilityTrusted = true;
    m_model.unregistered = QSet<ShortcutOwner>();
    m_model.competitors = QList<Competitor::Running>();
    m_model.updateStatus = UpdateStatus();
}

void MenuScreens::drawMainMenu()
{
    MenuRows rows(RowForm::drawn);
    const auto bar = MainMenu::build(rows, fullTarget(), m_model);
    for (const QAction *action : bar->actions())
        shoot(*action->menu<QMenu *>(), u"main-"_s + action->text().toLower(), 0);
}

void MenuScreens::drawKeyCaps()
{
    const auto &palette = Board::palette(m_look.look);
    const KeyCapStyle style = KeyCapStyle::ofHeight(20);
    const int row = Board::length(30);
    QPixmap picture = ground({Board::length(620), 5 * row});
    QPainter painter(&picture);
    QStringList glyphs;
    for (const QStringView glyph : KeyCap::glyphs)
        glyphs << glyph.toString();
    KeyCaps(glyphs, style).paint(painter, {10, 8}, palette, KeyCaps::Form::plain);
    const KeyCaps caps(KeyCombo(123, MenuDesk::allModifiers).parts()
            << u"F12"_s << u"Space"_s << u","_s << u"g"_s << u"Q"_s,
        style);
    caps.paint(painter, QPointF(10, row + 8), palette, KeyCaps::Form::plain);
    caps.paint(painter, QPointF(10, 2 * row + 8), palette, KeyCaps::Form::dimmed);
    painter.fillRect(QRect(0, 3 * row, picture.width(), row + 8), palette.accent);
    caps.paint(painter, QPointF(10, 3 * row + 8), palette, KeyCaps::Form::lit);
    painter.end();
    save(picture, u"key-caps"_s);
}

void MenuScreens::drawPlacementIcons()
{
    const auto &palette = Board::palette(m_look.look);
    QPixmap picture = ground({34 * placementCount + 10, 160});
    QPainter painter(&picture);
    double y = 8;
    for (const int height : {16, 24, 13}) {
        for (const auto form : {PlacementIcon::Form::plain, PlacementIcon::Form::lit}) {
            const bool isLit = form == PlacementIcon::Form::lit;
            if (isLit)
                painter.fillRect(QRectF(0, y - 2, picture.width(), height + 4), palette.accent);
            double x = 8;
            for (const Placement placement : allPlacements()) {
                const QRectF rect(x, y, height * 1.25, height);
                PlacementIcon::paint(
                    painter, rect, placement, PlacementIcon::colors(palette, form));
                x += height * 1.25 + 4;
            }
            y += height + 8;
        }
    }
    painter.end();
    save(picture, u"placement-icons"_s);
}

void MenuScreens::drawStatusIcons()
{
    QPixmap picture = ground({560, 160});
    QPainter painter(&picture);
    DesktopLook other = m_look.look;
    other.isDark = !other.isDark;
    painter.fillRect(0, 80, 560, 80, Board::palette(other).ground); // a panel of the other tone
    for (const double y : {10, 88}) {
        double x = 10;
        for (const int size : {16, 22, 24, 32, 48, 64}) {
            for (const auto form : {StatusIcon::Form::ordinary, StatusIcon::Form::attention}) {
                StatusIcon::paint(
                    painter, QRectF(x, y, size, size), form, StatusIcon::colors(m_look.look));
                x += size + 8;
            }
        }
    }
    painter.end();
    save(picture, u"status-icons"_s);
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

    MenuDesk desk;
    desk.addLayouts();
    AppModel model = desk.model();
    QStringList failures;
    for (const Look &look : looks()) {
        MenuScreens screens(arguments.at(2), look, model);
        screens.drawStatusMenus();
        screens.drawMainMenu();
        screens.drawKeyCaps();
        screens.drawPlacementIcons();
        screens.drawStatusIcons();
        failures << screens.failures();
    }
    failures.removeDuplicates();
    for (const QString &failure : std::as_const(failures))
        std::fprintf(stderr, "%s\n", qUtf8Printable(failure));
    return failures.isEmpty() ? 0 : 1;
}
