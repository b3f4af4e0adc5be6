#include "StatusMenus.h"

#include "Platform.h"

#include <cstdio>

namespace corvane {

using namespace Qt::StringLiterals;

StatusMenus::StatusMenus(AppModel &model, const MenuTarget &target)
    : m_model(model), m_drawn(RowForm::drawn, model, target), m_plain(RowForm::plain, model, target)
{
    m_item.setMenus(&m_drawn.menu(), &m_plain.menu());
    connect(&m_item, &StatusItem::aboutToOpen, this, &StatusMenus::prepareToOpen);
    connect(&m_drawn.menu(), &QMenu::aboutToHide, this, [this] {
        if (m_isStale)
            rebuildMenu();
    });
    connect(&m_item, &StatusItem::unreachable, this, [] {
        std::fputs(
            "Corvane: this desktop has no tray for its icon. Start Corvane again to open its "
            "settings; its actions are in the desktop's menu, too.\n",
            stderr);
    });
}

void StatusMenus::start()
{
    connect(&m_model, &AppModel::settingsChanged, this, &StatusMenus::rebuildMenu);
    connect(&m_model, &AppModel::layoutsChanged, this, &StatusMenus::rebuildMenu);
    connect(&m_model, &AppModel::unregisteredChanged, this, &StatusMenus::rebuildMenu);
    connect(&m_model, &AppModel::accessibilityTrustedChanged, this, &StatusMenus::rebuildMenu);
    connect(&m_model, &AppModel::competitorsChanged, this, &StatusMenus::rebuildMenu);
    connect(&m_model, &AppModel::updateStatusChanged, this, &StatusMenus::rebuildMenu);
    connect(&m_model, &AppModel::lookChanged, this, &StatusMenus::rebuildMenu);
    connect(&Platform::current().displays(), &Displays::changed, this, &StatusMenus::rebuildMenu);
    rebuildMenu();
}

void StatusMenus::rebuildMenu()
{
    m_isStale = true;
    if (std::exchange(m_isFillPending, true))
        return;
    QMetaObject::invokeMethod(this, &StatusMenus::fill, Qt::QueuedConnection);
}

void StatusMenus::popUp()
{
    m_item.popUp();
}

void StatusMenus::prepareToOpen()
{
    m_model.refreshTrust();
    m_model.refreshCompetitors();
    m_model.refreshFiles();
    Q_EMIT aboutToOpen();
    fill();
}

void StatusMenus::fill()
{
    m_isFillPending = false;
    if (!m_isStale)
        return;
    // The rows of an open menu stay what they are under the pointer, until it has closed.
    if (m_drawn.menu().isVisible())
        return;
    m_isStale = false;
    Board::useFont(m_model.look);
    m_drawn.fill();
    m_plain.fill();
    refreshStatusIcon(
        m_drawn.needsAttention() ? StatusIcon::Form::attention : StatusIcon::Form::ordinary);
    m_item.setVisible(m_model.settings().showMenuBarIcon);
}

void StatusMenus::refreshStatusIcon(StatusIcon::Form form)
{
    DesktopLook panel = m_model.look;
    panel.isDark = panel.isDark || Platform::current().ownWindows().tray().isDark;
    m_item.setIcon(
        StatusIcon::icon(form, StatusIcon::colors(panel)), StatusIcon::description(form));
}

} // namespace corvane
