#pragma once

#include "AppModel.h"
#include "MenuRows.h"
#include "MenuTarget.h"

#include <QtWidgets/QMenu>

#include <memory>

namespace corvane {

/// The status item's menu. It has no state beside its rows: whoever changes the model fills it anew.
class StatusMenu final : public QObject
{
    Q_OBJECT

public:
    StatusMenu(RowForm form, const AppModel &model, MenuTarget target);

    [[nodiscard]] QMenu &menu() { return *m_menu; }

    /// Removes all rows, and adds those that the model now calls for.
    void fill();
    /// Brings the header and the rows of problems up to date. The menu does so whenever it opens.
    void refreshFlags();
    /// Whether there is a row of a problem.
    [[nodiscard]] bool needsAttention() const { return !m_flags.isEmpty(); }

private:
    [[nodiscard]] QString failedShortcuts() const;
    void addFlags();
    void addFlag(const MenuRow &row, std::function<void()> perform);
    void addUpdate();
    void addSettings();
    void addLayouts();
    void addPlacements();
    void addGroup(PlacementGroup group, Placement picture);
    void addPlacement(QMenu &menu, Placement placement);
    void addInformation();

    const AppModel &m_model;
    MenuTarget m_target;
    MenuRows m_rows;
    std::unique_ptr<QMenu> m_menu;
    QAction *m_header = nullptr;
    QAction *m_afterFlags = nullptr;
    QList<QAction *> m_flags; ///< the rows of problems and the separator after them
};

} // namespace corvane
