#pragma once

#include "AppModel.h"

#include <QtWidgets/QDialog>

namespace corvane {

/// Asks whether a shortcut is to move from the one that holds it to the one that is to get it.
class StealSheet final : public QDialog
{
    Q_OBJECT

public:
    /// For the model's pending conflict. Deletes itself when it is closed.
    StealSheet(AppModel &model, const ShortcutSteal &steal, QWidget *window);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void paintEvent(QPaintEvent *) override;

    AppModel &m_model;
};

} // namespace corvane
