#pragma once

#include "AppModel.h"

#include <QtWidgets/QMainWindow>

namespace corvane {

/// A window to try shortcuts on. It is moved as any other window is, by the keys in force, and says which
/// keys come next.
class PracticeWindow final : public QMainWindow
{
    Q_OBJECT

public:
    struct Step {
        Placement placement; ///< that the window then has
        QString sentence; ///< with keys between "[[" and "]]"
    };

    /// Whether the keys that it asks for work now.
    [[nodiscard]] static bool canPractise(const AppModel &model);

    explicit PracticeWindow(AppModel &model, QWidget *parent = nullptr);

    /// A list of the steps, ticked off as far as they are done.
    [[nodiscard]] QWidget *makeList() const;

Q_SIGNALS:
    void progressed();
    void closed();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void build();
    void follow();

    AppModel &m_model;
    QList<Step> m_steps;
    qsizetype m_done = 0; ///< the number of steps
    bool m_isBuilding = false;
};

} // namespace corvane
