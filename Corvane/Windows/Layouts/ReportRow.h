#pragma once

#include "PaneCure.h"
#include "WindowLayout.h"

#include <QtWidgets/QWidget>

class QHBoxLayout;
class QPushButton;

namespace corvane {

class BoardText;

/// One pane in the report on an apply: its app, where it is, what became of it, and what helps.
class ReportRow final : public QWidget
{
    Q_OBJECT

public:
    ReportRow(const PaneResult &result, const WindowLayout &layout, PaneCure cure,
        QWidget *parent = nullptr);

    [[nodiscard]] const PaneResult &result() const { return m_result; }
    /// The button that does it; null where nothing is to be done.
    [[nodiscard]] QPushButton *cure() const { return m_cure; }
    void setCurrent(bool isCurrent);
    /// Shows the pane as it is in the layout by now, with this sentence on what was done for it.
    void showCured(const WindowLayout &layout, const QString &sentence);
    /// Says why the cure did not help.
    void setSentence(const QString &sentence);

Q_SIGNALS:
    /// The user turned to it.
    void chosen();

protected:
    void paintEvent(QPaintEvent *) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addMarks(QHBoxLayout &line);
    void addCure(QHBoxLayout &line, PaneCure cure, const WindowLayout &layout);
    void follow(const WindowLayout &layout);

    PaneResult m_result;
    QString m_sentence;
    QString m_place;
    BoardText *m_name;
    BoardText *m_text;
    BoardText *m_hint = nullptr;
    QPushButton *m_cure = nullptr;
    bool m_isCurrent = false;
    bool m_isCured = false;
};

} // namespace corvane
