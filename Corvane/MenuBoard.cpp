#include "MenuBoard.h"

#include <cstdio>

namespace corvane {

MenuBoard::MenuBoard(AppModel &model, const MenuTarget &target)
    : m_model(model), m_drawn(RowForm::drawn, model, target), m_plain(RowForm::plain, model, target)
{
    m_item.setMenus(&m_drawn.menu(), &m_plain.menu());
    connect(&m_item, &StatusItem::aboutToOpen, this, &MenuBoard::prepareToOpen);
    connect(&m_item, &StatusItem::unreachable, this, [] {
        std::fputs(
            "Corvane: this desktop has no tray for its icon. Start Corvane again to open its "
            "settings; its actions are in the desktop's menu, too.\n",
            stderr);
    });
}

void MenuBoard::start()
{
    connect(&m_model, &AppModel::settingsChanged, this, &MenuBoard::rebuild);
    connect(&m_model, &AppModel::layoutsChanged, this, &MenuBoard::rebuild);
    connect(&m_model, &AppModel::unregisteredChanged, this, &MenuBoard::rebuild);
    connect(&m_model, &AppModel::accessibilityTrustedChanged, this, &MenuBoard::rebuild);
    connect(&m_model, &AppModel::competitorsChanged, this, &MenuBoard::rebuild);
    connect(&m_model, &AppModel::updateStatusChanged, this, &MenuBoard::rebuild);
    connect(&m_model, &AppModel::lookChanged, this, &MenuBoard::rebuild);
    rebuild();
}

void MenuBoard::rebuild()
{
    m_isStale = true;
    if (std::exchange(m_isFillPending, true))
        return;
    QMetaObject::invokeMethod(this, &MenuBoard::fill, Qt::QueuedConnection);
}

void MenuBoard::popUp()
{
    m_item.popUp();
}

void MenuBoard::prepareToOpen()
{
    m_model.refreshTrust();
    fill();
}

void MenuBoard::fill()
{
    m_isFillPending = false;
    if (!m_isStale)
        return;
    // A menu that is open keeps its rows until it has closed.
    if (m_drawn.menu().isVisible())
        return;
    m_isStale = false;
    m_drawn.fill();
    m_plain.fill();
    drawIcon();
    m_item.setVisible(m_model.settings().showMenuBarIcon);
}

void MenuBoard::drawIcon()
{
    const auto form =
        m_drawn.needsAttention() ? StatusIcon::Form::attention : StatusIcon::Form::ordinary;
    m_item.setIcon(
        StatusIcon::icon(form, StatusIcon::colors(m_model.look)), StatusIcon::description(form));
}

} // namespace corvane
