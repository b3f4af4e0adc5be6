#pragma once

#include "AppModel.h"
#include "MenuTarget.h"

#include <QtCore/QPointer>

namespace corvane {

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

    AppModel &m_model;
    MenuTarget m_target;
    QPointer<SettingsWindow> m_settings;
};

} // namespace corvane
