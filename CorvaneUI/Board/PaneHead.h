#pragma once

#include "Board.h"

#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QBoxLayout>
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
    /// Adds one at the trailing end, after those that are there. Short of room, all stand below the
    /// title.
    void addControl(QWidget *control);
    void showControls(bool areShown) { m_controls->setVisible(areShown); }
    void showSaved();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *) override;

private:
    void fade(double to);

    QHBoxLayout *m_row;
    BoardText *m_trailing;
    QWidget *m_controls;
    QVariantAnimation m_opacity; ///< of the mark
    QTimer m_shown;
};

} // namespace corvane
