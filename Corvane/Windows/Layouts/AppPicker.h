#pragma once

#include "AppPickerModel.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

class QListView;
class QPushButton;
class QStackedWidget;

namespace corvane {

class BoardText;
class SearchField;

/// Asks which application a pane is to have, of those that run and those that are installed.
class AppPicker final : public QDialog
{
    Q_OBJECT

public:
    /// Reads the applications. Deletes itself when it is closed.
    explicit AppPicker(QWidget *window);

Q_SIGNALS:
    /// The user wants this application, or none; before the sheet closes.
    void chosen(const std::optional<corvane::AppRef> &app);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QWidget *searchBar();
    [[nodiscard]] QListView *list();
    [[nodiscard]] QWidget *nothing();
    [[nodiscard]] QWidget *foot();
    void follow();
    void search();
    void setCurrent(const QModelIndex &index);
    void showCurrent();
    void choose();
    [[nodiscard]] bool goesToList(const QKeyEvent &event) const;
    [[nodiscard]] bool returnsToSearch(const QKeyEvent &event) const;

    QList<InstalledApplication> m_installed; ///< as of when the sheet opened
    AppPickerModel m_apps;
    QTimer m_changes; ///< of what runs, which come several at once
    SearchField *m_search = nullptr;
    QStackedWidget *m_stack = nullptr;
    QListView *m_list = nullptr;
    QWidget *m_nothing = nullptr; ///< in place of the list
    BoardText *m_nothingTitle = nullptr;
    BoardText *m_nothingHelp = nullptr;
    QPushButton *m_clear = nullptr;
    QPushButton *m_choose = nullptr;
};

} // namespace corvane
