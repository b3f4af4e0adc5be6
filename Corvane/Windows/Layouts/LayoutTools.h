#pragma once

#include "LayoutPicture.h"

class QPushButton;

namespace corvane {

class KeySentence;

/// The buttons below the picture. Short of room, they are icons, the last one first.
class LayoutTools final : public QWidget
{
    Q_OBJECT

public:
    /// The layout is shown over the desktop from the picture, the list or the last button.
    LayoutTools(AppModel &model, LayoutPicture &picture, QWidget &list, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void follow();

    LayoutPicture &m_picture;
    QPushButton *m_columns;
    QPushButton *m_rows;
    QPushButton *m_remove;
    KeySentence *m_hint; ///< shown while an edge is dragged
    QPushButton *m_preview;
};

} // namespace corvane
