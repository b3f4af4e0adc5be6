#pragma once

#include "RowLook.h"

#include <QtCore/QBasicTimer>
#include <QtWidgets/QMenu>

namespace corvane {

/// A menu with rounded corners, whose rows `MenuStyle` draws. Typing goes to the row whose title begins
/// with what was typed.
class RowMenu final : public QMenu
{
    Q_OBJECT

public:
    RowMenu(const RowLook &look, QWidget *parent);

    /// Gives all rows one trailing column, and the menu at least this width. Submenus are laid out by
    /// themselves.
    void layoutRows(const RowLook &look, double minimumWidth);

    [[nodiscard]] const RowLook &look() const { return m_look; }
    /// Where the trailing column ends, in points from the menu's left edge.
    [[nodiscard]] double columnEnd() const { return m_columnEnd; }
    /// Whether the desktop shows what is behind translucent pixels.
    [[nodiscard]] bool isTranslucent() const { return m_isTranslucent; }

protected:
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void cutCorners();
    [[nodiscard]] QAction *rowBeginning(const QString &typed) const;

    RowLook m_look;
    double m_columnEnd = 0;
    bool m_isTranslucent = true;
    QString m_typed;
    QBasicTimer m_typing;
};

} // namespace corvane
