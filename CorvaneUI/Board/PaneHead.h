#pragma once

#include "Board.h"

#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QWidget>

namespace corvane {

class BoardText;

/// The head of a pane: its place among the panes, its title, a trailing text, and for a while after
/// each save the mark that says so.
class PaneHead final : public QWidget
{
    Q_OBJECT

public:
    PaneHead(int numeral, int of, const QString &title, QWidget *parent = nullptr);

    void setTrailing(const QString &text);
    void showSaved();

protected:
    void paintEvent(QPaintEvent *) override;

private:
    void fade(double to);

    BoardText *m_trailing;
    QVariantAnimation m_opacity; ///< of the mark
    QTimer m_shown;
};

} // namespace corvane
