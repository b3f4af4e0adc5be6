#pragma once

#include "AppModel.h"
#include "SettingsPage.h"

#include <QtCore/QPointer>

class QStackedWidget;
class QToolButton;

namespace corvane {

class AppPicker;
class ApplyReport;
class BoardText;
class DisplayCard;
class EmptyBoard;
class LayoutCard;
class LayoutList;
class LayoutPicture;
class PaneCard;

/// The drawing board: the saved layouts, and the current one as a picture that can be edited.
class LayoutsPane final : public SettingsPage
{
    Q_OBJECT

public:
    LayoutsPane(AppModel &model, std::function<void(const WindowLayout &)> apply,
        std::function<void()> capture, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void addCommands();
    void addKeys();
    [[nodiscard]] QWidget *list();
    [[nodiscard]] QWidget *editor(std::function<void(const WindowLayout &)> apply);
    [[nodiscard]] QWidget *withoutDisplays();
    void addReport(QBoxLayout &column, std::function<void(const WindowLayout &)> apply);
    void showReport();
    void takeTyped();
    void apply();
    void addEmpty();
    void capture();
    void showStrip(const QString &text, bool canUndo);
    void useConnectedDisplays();
    void goToNextPart(int direction);
    void follow();
    void followPicture();
    void showCurrent();
    void showPending();
    void askForApp();

    AppModel &m_model;
    std::function<void()> m_capture;
    QToolButton *m_undo = nullptr;
    QToolButton *m_redo = nullptr;
    QStackedWidget *m_stack = nullptr;
    LayoutList *m_list = nullptr;
    QWidget *m_strip = nullptr; ///< says what has just happened to the list
    BoardText *m_stripText = nullptr;
    EmptyBoard *m_empty = nullptr; ///< shown where there are no layouts
    QWidget *m_stripUndo = nullptr;
    LayoutCard *m_card = nullptr;
    QStackedWidget *m_drawing = nullptr; ///< the picture, or what a layout without displays shows
    LayoutPicture *m_picture = nullptr;
    PaneCard *m_paneCard = nullptr;
    DisplayCard *m_displayCard = nullptr;
    QBoxLayout *m_cards = nullptr;
    ApplyReport *m_report = nullptr;
    QScrollArea *m_area = nullptr;
    QPointer<AppPicker> m_picker;
};

} // namespace corvane
