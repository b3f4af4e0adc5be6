#pragma once

#include "AppModel.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMainWindow>

#include <functional>

namespace corvane {

/// Shows the tour in a window of its own. Once that is closed, in whatever way, the user has seen it.
class OnboardingController final : public QObject
{
    Q_OBJECT

public:
    explicit OnboardingController(AppModel &model) : m_model(model) { }
    ~OnboardingController() override;

    /// The user has closed the tour, on its last page with Done or before that.
    std::function<void(bool isDone)> onFinished;
    int startPage = 0; ///< the first one to show, from 0

    [[nodiscard]] QMainWindow *window() const { return m_window; }
    /// Makes the window, or turns the one that there is to the first page to show.
    void show();

Q_SIGNALS:
    /// A window to try shortcuts on is there, which is to have the focus.
    void practiceShown(QWidget &window);

private:
    void finish(bool isDone);

    AppModel &m_model;
    QPointer<QMainWindow> m_window;
};

} // namespace corvane
