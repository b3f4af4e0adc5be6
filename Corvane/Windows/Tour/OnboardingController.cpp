#include "OnboardingController.h"

#include "CorvaneMark.h"
#include "FocusRing.h"
#include "OnboardingView.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Says when the user closes it. A program that quits closes its windows, too.
class TourWindow final : public QMainWindow
{
public:
    explicit TourWindow(std::function<void()> onClose) : m_onClose(std::move(onClose)) { }

protected:
    void closeEvent(QCloseEvent *event) override
    {
        if (event->spontaneous())
            m_onClose();
        event->accept();
    }

private:
    std::function<void()> m_onClose;
};

} // namespace

OnboardingController::~OnboardingController()
{
    delete m_window;
}

void OnboardingController::show()
{
    if (m_window) {
        static_cast<OnboardingView *>(m_window->centralWidget())->turnTo(startPage);
        return;
    }
    m_window = new TourWindow([this] { finish(false); });
    m_window->setAttribute(Qt::WA_DeleteOnClose);
    m_window->setWindowTitle(tr("Welcome to Corvane"));
    m_window->setWindowIcon(CorvaneMark::icon());
    new FocusRing(*m_window);
    if (QScreen *users = QGuiApplication::screenAt(QCursor::pos()))
        m_window->setScreen(users);
    const QRect room = m_window->screen()->availableGeometry();
    auto *view = new OnboardingView(m_model, startPage, [this](bool isDone) {
        m_window->close();
        finish(isDone);
    });
    connect(view, &OnboardingView::practiceShown, this, &OnboardingController::practiceShown);
    m_window->setCentralWidget(view);
    m_window->resize(view->sizeHint().boundedTo(room.size()));
    m_window->move(room.center() - m_window->rect().center());
    m_window->show();
}

void OnboardingController::finish(bool isDone)
{
    m_model.completeOnboarding();
    if (onFinished)
        onFinished(isDone);
}

} // namespace corvane
