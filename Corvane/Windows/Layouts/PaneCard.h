#pragma once

#include "LayoutPicture.h"

#include <QtCore/QStringListModel>

class QComboBox;
class QLineEdit;

namespace corvane {

class BoardText;
class Drawing;
class Switch;

/// What concerns the current pane: its application, which of its windows is meant, where it is.
class PaneCard final : public QWidget
{
    Q_OBJECT

public:
    explicit PaneCard(LayoutPicture &picture, QWidget *parent = nullptr);

    /// Gives the title the focus, to be typed over.
    void editTitle();

Q_SIGNALS:
    void appAsked();

private:
    void follow();
    /// Changes the current pane in a copy of the layout.
    void change(const QString &undoTitle, const std::function<void(Pane &)> &change);
    void moveTo(int choice);

    LayoutPicture &m_picture;
    Drawing *m_icon;
    BoardText *m_app;
    BoardText *m_running;
    QLineEdit *m_title;
    Switch *m_launch;
    QComboBox *m_display;
    QList<DisplayKey> m_choices;
    QStringListModel m_titles; ///< to complete what is typed
    QUuid m_shown; ///< the pane whose title stands in the field
};

} // namespace corvane
