#pragma once

#include "MainMenu.h"
#include "StatusIcon.h"
#include "StatusItem.h"
#include "StatusMenu.h"

namespace corvane {

/// The status item and its menus, brought up to date with the model.
class StatusMenus final : public QObject
{
    Q_OBJECT

public:
    StatusMenus(AppModel &model, const MenuTarget &target);

    /// Shows the status item, if the settings want one.
    void start();
    /// Fills the menus anew in the next turn of the event loop, once for any number of calls.
    void rebuildMenu();
    /// Opens the status menu without a click.
    void popUp();

Q_SIGNALS:
    /// A menu is about to open. What nobody tells the model of is to be asked for now.
    void aboutToOpen();

private:
    void prepareToOpen();
    void fill();
    void refreshStatusIcon(StatusIcon::Form form);

    AppModel &m_model;
    StatusMenu m_drawn;
    StatusMenu m_plain;
    StatusItem m_item;
    bool m_isStale = true; ///< the menus differ from the model
    bool m_isFillPending = false;
};

} // namespace corvane
