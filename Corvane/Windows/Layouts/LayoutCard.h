#pragma once

#include "AppModel.h"
#include "Card.h"

#include <functional>

class QHBoxLayout;
class QMenu;
class QPushButton;
class QToolButton;

namespace corvane {

class BoardText;
class ShortcutRecorder;
class Switch;

/// What concerns a layout as a whole: its name and state, saving and applying it, its shortcut.
class LayoutCard final : public QWidget
{
    Q_OBJECT

public:
    /// `actions` is what else can be done with the layout.
    LayoutCard(AppModel &model, std::function<void(const WindowLayout &)> apply, QMenu *actions,
        QWidget *parent = nullptr);

    void setLayout(const QUuid &id);
    /// While a report shows, its own button is the one to go on with.
    void setReported(bool isReported);
    [[nodiscard]] QPushButton &applyButton() { return *m_applying; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void addActions(Card &card, QMenu *actions);
    void addWaiting(Card &card);
    void addShortcut(Card &card);
    void addApplying(Card &card);
    void arrange();
    void follow();
    void showApplying();
    void showState(const WindowLayout &layout);

    AppModel &m_model;
    std::function<void(const WindowLayout &)> m_apply;
    QUuid m_id;
    QString m_fullName;
    BoardText *m_name; ///< cut off where there is no room for all of it
    QWidget *m_state;
    QHBoxLayout *m_first; ///< the rows, for what changes places with the room
    QHBoxLayout *m_second;
    QHBoxLayout *m_third;
    QWidget *m_lastRow;
    BoardText *m_waiting;
    QPushButton *m_revert;
    QPushButton *m_save;
    QPushButton *m_applying;
    ShortcutRecorder *m_recorder;
    QWidget *m_applies; ///< the switch and its words
    Switch *m_switch;
    BoardText *m_precedence;
};

} // namespace corvane
