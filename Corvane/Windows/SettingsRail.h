#pragma once

#include "AppModel.h"
#include "SettingsPane.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QListView>

namespace corvane {

class BoardText;

/// The mark, the status, and the list of the panes.
class SettingsRail final : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsRail(const AppModel &model, QWidget *parent = nullptr);

    void setCurrent(SettingsPane pane);
    /// Numerals alone.
    void setNarrow(bool isNarrow);
    [[nodiscard]] QListView &list() { return *m_list; }

Q_SIGNALS:
    void chosen(corvane::SettingsPane pane);
    /// The user wants the main menu at this point of the screen.
    void menuAsked(const QPoint &at);

protected:
    void paintEvent(QPaintEvent *) override;

private:
    void showStatus();

    const AppModel &m_model;
    QStandardItemModel m_panes;
    QListView *m_list;
    BoardText *m_name;
    BoardText *m_status;
};

} // namespace corvane
