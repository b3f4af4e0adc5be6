#include "TourScreens.h"

#include "OnboardingController.h"
#include "OnboardingView.h"

#include <QtWidgets/QApplication>

using namespace corvane;
using namespace Qt::StringLiterals;

void drawTour(
    AppModel &model, const std::function<void(QWidget &window, const QString &what)> &shoot)
{
    OnboardingController tour(model);
    tour.show();
    const auto shootPage = [&](TourPage page, const QString &what) {
        tour.startPage = int(page);
        tour.show();
        shoot(*tour.window(), u"tour-"_s + what);
    };
    shootPage(TourPage::welcome, u"welcome"_s);
    shootPage(TourPage::accessibility, u"trusted"_s);
    shootPage(TourPage::alsoRunning, u"clear"_s);
    shootPage(TourPage::shortcuts, u"shortcuts"_s);
    shootPage(TourPage::layouts, u"layouts"_s);
    auto &view = static_cast<OnboardingView &>(*tour.window()->centralWidget());
    shootPage(TourPage::shortcuts, u"shortcuts"_s);
    PracticeWindow *practice = nullptr;
    QObject::connect(&view, &OnboardingView::practiceShown, &view,
        [&](QWidget &window) { practice = static_cast<PracticeWindow *>(&window); });
    view.practise();
    model.lastMove = MoveRecord{.date = QDateTime::currentDateTimeUtc(),
        .placement = Placement::leftHalf,
        .appName = {},
        .windowTitle = practice->windowTitle(),
        .from = {},
        .to = {},
        .displayName = {}};
    shoot(*practice, u"practice"_s);
    shoot(*tour.window(), u"tour-practice"_s);
    model.findFreeCombos = [](const QList<Placement> &taken) {
        ShortcutMap free;
        for (const Placement each : taken.first(taken.size() - 1))
            free.insert(each, KeyCombo(123, KeyCombo::option | KeyCombo::command));
        return free;
    };
    model.unregistered = UnregisteredShortcuts{
        {{Placement::leftHalf}, {}}, {{Placement::rightHalf}, {}}, {{Placement::maximize}, {}}};
    model.accessibilityTrusted = false;
    model.competitors =
        QList<Competitor::Running>{{Competitor::known()[0], {}}, {Competitor::known()[1], {}}};
    shootPage(TourPage::accessibility, u"untrusted"_s);
    shootPage(TourPage::alsoRunning, u"rivals"_s);
    shootPage(TourPage::shortcuts, u"taken"_s);
    tour.window()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    model.findFreeCombos = {};
    model.unregistered = UnregisteredShortcuts();
    model.accessibilityTrusted = true;
    model.competitors = QList<Competitor::Running>();
}
