#pragma once

#include "AppModel.h"
#include "MenuTarget.h"
#include "OnboardingController.h"
#include "ReportSession.h"

#include <QtCore/QPointer>

namespace corvane {

class ReportSheet;
class SettingsWindow;

/// Shows the program's windows when the model asks for them, in front and in its look.
class WindowOpener final : public QObject
{
    Q_OBJECT

public:
    WindowOpener(AppModel &model, MenuTarget target);
    ~WindowOpener() override;

private:
    void openSettings();
    void openTour();
    void openReport();
    /// In front of all others, with the permission of who asked for it.
    void bringForward(QWidget &window, bool isNew);

    AppModel &m_model;
    MenuTarget m_target;
    ReportSession m_report;
    QPointer<SettingsWindow> m_settings;
    OnboardingController m_tour;
    QPointer<ReportSheet> m_reportSheet;
};

} // namespace corvane
