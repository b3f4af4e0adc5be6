#pragma once

#include "AppModel.h"
#include "SettingsPage.h"
#include "ShortcutRecorder.h"

namespace corvane {

/// The saved layouts: their shortcuts, and applying and capturing them.
class LayoutsPane final : public SettingsPage
{
    Q_OBJECT

public:
    LayoutsPane(AppModel &model, std::function<void(const WindowLayout &)> apply,
        std::function<void()> capture, QWidget *parent = nullptr);

private:
    void show();
    void showRecording();

    AppModel &m_model;
    std::function<void(const WindowLayout &)> m_apply;
    std::function<void()> m_capture;
    QWidget *m_list = nullptr;
    QHash<QUuid, ShortcutRecorder *> m_recorders;
};

} // namespace corvane
