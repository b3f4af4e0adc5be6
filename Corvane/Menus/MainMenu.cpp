#include "MainMenu.h"

#include "MenuParts.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include <algorithm>

namespace corvane::MainMenu {

using namespace Qt::StringLiterals;

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("MainMenu", text);
}

/// The keys as `KeyCombo::parts` has them.
QStringList parts(QKeyCombination keys)
{
    QStringList parts;
    if (keys.keyboardModifiers() & Qt::ControlModifier)
        parts << u"⌃"_s;
    if (keys.keyboardModifiers() & Qt::AltModifier)
        parts << u"⌥"_s;
    if (keys.keyboardModifiers() & Qt::ShiftModifier)
        parts << u"⇧"_s;
    return parts << QKeySequence(keys.key()).toString();
}

/// Presses the Delete key, since text fields have no slot that deletes.
void deleteSelection()
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus || !focus->testAttribute(Qt::WA_InputMethodEnabled))
        return;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(focus, &press);
}

/// Fills the menus of one bar.
class Builder
{
public:
    Builder(MenuRows &rows, const MenuTarget &target, const AppModel &model, QMenuBar &bar)
        : m_rows(rows), m_target(target), m_model(model), m_bar(bar)
    {
    }

    void addApplication();
    void addEdit();
    void addPlacements();
    void addLayouts();
    void addHelp();

private:
    QMenu *addMenu(const QString &title);
    void add(QMenu &menu, const char *title, std::function<void()> perform,
        std::optional<QKeyCombination> keys = {});
    /// Performs the slot of the text field that has the focus, else `otherwise`.
    void addEditing(QMenu &menu, const char *title, const char *slot, QKeyCombination keys,
        std::function<void()> otherwise = {});

    MenuRows &m_rows;
    const MenuTarget &m_target;
    const AppModel &m_model;
    QMenuBar &m_bar;
};

QMenu *Builder::addMenu(const QString &title)
{
    QMenu *menu = m_rows.makeMenu(&m_bar);
    menu->setTitle(title);
    m_bar.addMenu(menu);
    return menu;
}

// The shortcut is an object of its own: the menu would leave room for the text of an action's.
void Builder::add(QMenu &menu, const char *title, std::function<void()> perform,
    std::optional<QKeyCombination> keys)
{
    MenuRow row{.title = translated(title)};
    if (keys)
        row.keys = parts(*keys);
    QAction *action = m_rows.add(menu, row, std::move(perform));
    if (keys) {
        auto *shortcut = new QShortcut(QKeySequence(*keys), &m_bar);
        QObject::connect(shortcut, &QShortcut::activated, action, &QAction::trigger);
    }
}

void Builder::addEditing(QMenu &menu, const char *title, const char *slot, QKeyCombination keys,
    std::function<void()> otherwise)
{
    const auto perform = [slot, otherwise = std::move(otherwise)] {
        QWidget *focus = QApplication::focusWidget();
        if (!focus || focus->metaObject()->indexOfSlot(QByteArray(slot) + "()") < 0)
            return otherwise ? otherwise() : void();
        QMetaObject::invokeMethod(focus, slot);
    };
    add(menu, title, perform, keys);
}

void Builder::addApplication()
{
    QMenu *menu = addMenu(translated(QT_TRANSLATE_NOOP("MainMenu", "Corvane")));
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "About Corvane"), m_target.openAbout);
    menu->addSeparator();
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Settings"), m_target.openSettings,
        Qt::CTRL | Qt::Key_Comma);
    menu->addSeparator();
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Hide Corvane"), m_target.hide, Qt::CTRL | Qt::Key_H);
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Hide Others"), m_target.hideOthers,
        Qt::CTRL | Qt::ALT | Qt::Key_H);
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Show All"), m_target.showAll);
    menu->addSeparator();
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Quit Corvane"), m_target.quit, Qt::CTRL | Qt::Key_Q);
    m_rows.layoutRows(*menu, 0);
}

void Builder::addEdit()
{
    QMenu *menu = addMenu(translated(QT_TRANSLATE_NOOP("MainMenu", "Edit")));
    addEditing(
        *menu, QT_TRANSLATE_NOOP("MainMenu", "Undo"), "undo", Qt::CTRL | Qt::Key_Z, m_target.undo);
    addEditing(*menu, QT_TRANSLATE_NOOP("MainMenu", "Redo"), "redo",
        Qt::CTRL | Qt::SHIFT | Qt::Key_Z, m_target.redo);
    menu->addSeparator();
    addEditing(*menu, QT_TRANSLATE_NOOP("MainMenu", "Cut"), "cut", Qt::CTRL | Qt::Key_X);
    addEditing(*menu, QT_TRANSLATE_NOOP("MainMenu", "Copy"), "copy", Qt::CTRL | Qt::Key_C);
    addEditing(*menu, QT_TRANSLATE_NOOP("MainMenu", "Paste"), "paste", Qt::CTRL | Qt::Key_V);
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Delete"), deleteSelection);
    menu->addSeparator();
    addEditing(
        *menu, QT_TRANSLATE_NOOP("MainMenu", "Select All"), "selectAll", Qt::CTRL | Qt::Key_A);
    m_rows.layoutRows(*menu, 0);
}

void Builder::addPlacements()
{
    QMenu *menu = addMenu(translated(QT_TRANSLATE_NOOP("MainMenu", "Placements")));
    for (const PlacementGroup group : placementGroups()) {
        const QList<Placement> placements = inGroup(group);
        QMenu *submenu =
            m_rows.addSubmenu(*menu, {.title = title(group), .image = placements.first()});
        for (const Placement placement : placements) {
            MenuParts::addPlacement(
                m_rows, *submenu, placement, m_model, m_target, MenuParts::Shortcuts::hidden);
        }
        m_rows.layoutRows(*submenu, 0);
    }
    m_rows.layoutRows(*menu, 0);
}

void Builder::addLayouts()
{
    QMenu *menu = addMenu(translated(QT_TRANSLATE_NOOP("MainMenu", "Layouts")));
    MenuParts::addLayouts(m_rows, *menu, m_model, m_target, MenuParts::Shortcuts::hidden);
    if (!m_model.layouts().isEmpty())
        menu->addSeparator();
    MenuParts::addCapture(m_rows, *menu, m_model, m_target);
    m_rows.layoutRows(*menu, 0);
}

void Builder::addHelp()
{
    QMenu *menu = addMenu(translated(QT_TRANSLATE_NOOP("MainMenu", "Help")));
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Corvane Tour"), m_target.showTour);
    add(*menu, QT_TRANSLATE_NOOP("MainMenu", "Report a Problem…"), m_target.reportProblem);
    m_rows.layoutRows(*menu, 0);
}

} // namespace

std::unique_ptr<QMenuBar> build(MenuRows &rows, const MenuTarget &target, const AppModel &model)
{
    auto bar = std::make_unique<QMenuBar>();
    rows.setLook(model.look);
    Builder builder(rows, target, model, *bar);
    builder.addApplication();
    builder.addEdit();
    builder.addPlacements();
    builder.addLayouts();
    builder.addHelp();
    return bar;
}

} // namespace corvane::MainMenu
