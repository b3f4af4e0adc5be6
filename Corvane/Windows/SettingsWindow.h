#pragma once

#include "AppModel.h"
#include "MenuRows.h"
#include "MenuTarget.h"
#include "SettingsPane.h"

#include <QtWidgets/QMainWindow>

class QStackedWidget;

namespace corvane {

class NoticeStrips;
class SettingsPage;
class SettingsRail;

/// The one window in which the user sees and changes everything. It exists while it is open.
class SettingsWindow final : public QMainWindow
{
    Q_OBJECT

public:
    SettingsWindow(AppModel &model, MenuTarget target);
    ~SettingsWindow() override;

    [[nodiscard]] SettingsPane pane() const { return m_pane; }
    void show(SettingsPane pane);

protected:
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void build();
    void fit();
    void rebuild();
    [[nodiscard]] SettingsPage *makePage(SettingsPane pane);
    [[nodiscard]] SettingsPage &page(SettingsPane pane);
    void placeInTheMiddle();
    void addMainMenu();
    void popMenu(const QPoint &bottomLeft);
    void addKeys();
    void turn(int by);
    void showPending();
    void showNotices();
    void showSaved();
    void askForSteal();

    AppModel &m_model;
    MenuTarget m_target;
    MenuRows m_rows;
    SettingsPane m_pane;
    SettingsRail *m_rail = nullptr;
    NoticeStrips *m_notices = nullptr;
    QStackedWidget *m_stack = nullptr;
    QHash<SettingsPane, SettingsPage *> m_pages; ///< those that were shown
    bool m_isRebuilding = false;
};

} // namespace corvane
