#pragma once

#include "AppModel.h"
#include "BoardText.h"
#include "PracticeWindow.h"
#include "TourPage.h"

#include <QtCore/QPointer>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

#include <functional>

namespace corvane {

/// What the tour's window holds: a picture, the text of one page, and the buttons that turn it. The page
/// follows the model as long as it is shown.
class OnboardingView final : public QWidget
{
    Q_OBJECT

public:
    /// `startPage` counts from 0. `finish` is called with true from the last page's button.
    OnboardingView(AppModel &model, int startPage, std::function<void(bool isDone)> finish);
    ~OnboardingView() override;

    /// Where there is no such page, the nearest one.
    void turnTo(int page);
    [[nodiscard]] TourPage page() const { return m_page; }
    /// Opens a window to try shortcuts on.
    void practise();

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// A window to try shortcuts on is there, which is to have the focus.
    void practiceShown(QWidget &window);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *) override;

private:
    void build();
    void buildFoot(QVBoxLayout &column);
    void turnBy(int pages);
    /// Makes the page's text anew, and keeps the focus where it is as far as that is still there.
    void showPage();
    void fillPage();
    void addHead(const QString &label, const QString &title);
    void addWelcome();
    void addAccessibility();
    void addAlsoRunning();
    void addShortcuts();
    void addTakenShortcuts();
    void addPractice();
    void addLayouts();
    void addParagraph(const QString &sentence);
    /// The line, to which more can be added.
    QBoxLayout &addRow(const TourRow &row, BoardText::Tone tone = &Board::Palette::accentType);
    void addButton(const QString &title, std::function<void()> act);
    void openLink(const QString &address);

    AppModel &m_model;
    TourPage m_page;
    std::function<void(bool)> m_finish;
    QScrollArea *m_scrolled = nullptr;
    QVBoxLayout *m_text = nullptr; ///< of the page
    QWidget *m_picture = nullptr; ///< none with large text
    QPointer<BoardText> m_title; ///< of the page
    BoardText *m_place = nullptr;
    QWidget *m_dots = nullptr;
    QPushButton *m_back = nullptr;
    QPushButton *m_next = nullptr;
    QPointer<PracticeWindow> m_practice;
    bool m_isRebuilding = false;
};

} // namespace corvane
