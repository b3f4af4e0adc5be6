#pragma once

#include "AppModel.h"
#include "MenuTarget.h"
#include "OnboardingController.h"
#include "ReportSession.h"
#include "UpdateSession.h"

#include <QtCore/QPointer>

namespace corvane {

class ReportSheet;
class SettingsWindow;
class Sheet;
class UpdateSheet;

/// Shows the program's windows when the model asks for them, in front and in its look.
class WindowOpener final : public QObject
{
    Q_OBJECT

public:
    WindowOpener(AppModel &model, MenuTarget target);
    ~WindowOpener() override;

    /// Shows the session, which lives longer, in place of any other.
    void openUpdate(UpdateSession &session);
    void closeUpdate();

private:
    void openSettings();
    void openTour();
    void openReport();
    void openUpdatePreview();
    /// What a sheet belongs to; none where that is not to be seen.
    [[nodiscard]] QWidget *sheetParent() const;
    void open(Sheet &sheet);
    /// In front of all others, with the permission of who asked for it.
    void bringForward(QWidget &window, bool isNew);

    AppModel &m_model;
    MenuTarget m_target;
    ReportSession m_report;
    QPointer<SettingsWindow> m_settings;
    OnboardingController m_tour;
    QPointer<ReportSheet> m_reportSheet;
    UpdateSession m_updatePreview;
    QPointer<UpdateSheet> m_updateSheet;
};

} // namespace corvane
