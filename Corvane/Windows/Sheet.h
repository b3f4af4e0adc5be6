#pragma once

#include "BoardText.h"

#include <QtCore/QSet>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>

class QVBoxLayout;

namespace corvane {

/// A dialog of one width that is as high as its content. Where the screen is too low for that, the
/// content scrolls and the buttons stay. Return presses the button that has the focus, else the default
/// one. Deletes itself when it is closed.
class Sheet : public QDialog
{
    Q_OBJECT

public:
    /// The width is one of the drawings.
    Sheet(const QString &title, double width, QWidget *window);

    /// A large text.
    [[nodiscard]] static BoardText *headline(const QString &text);

protected:
    /// The product's mark and name, and in capitals what this is about, which is returned.
    BoardText *addHead(const QString &label, BoardText::Tone tone = &Board::Palette::muted);
    [[nodiscard]] QVBoxLayout &content() { return *m_content; }
    QPushButton *addButton(const QString &title, QDialogButtonBox::ButtonRole role);
    void addButton(QAbstractButton *button, QDialogButtonBox::ButtonRole role);
    void clearButtons();

    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QVBoxLayout *m_content;
    QDialogButtonBox *m_buttons;
    QSet<int> m_begunKeys; ///< those pressed since it opened; others are still held from before
};

} // namespace corvane
