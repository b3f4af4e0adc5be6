#pragma once

#include <QtCore/QBasicTimer>
#include <QtWidgets/QMenu>

namespace corvane {

class MenuRows;

/// A menu whose rows `MenuStyle` draws, with rounded corners. Typing goes to the row that begins so.
class RowMenu final : public QMenu
{
    Q_OBJECT

public:
    RowMenu(MenuRows &rows, QWidget *parent);

    /// Whether the desktop shows what is behind translucent pixels.
    [[nodiscard]] bool isTranslucent() const { return m_isTranslucent; }

protected:
    void initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void cutCorners();
    [[nodiscard]] QAction *rowBeginning(const QString &typed) const;

    MenuRows &m_rows;
    bool m_isTranslucent = true;
    QString m_typed;
    QBasicTimer m_typing;
};

} // namespace corvane
