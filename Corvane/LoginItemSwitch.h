#pragma once

#include "AppModel.h"

namespace corvane {

/// Keeps the session's login item in step with the settings.
class LoginItemSwitch final : public QObject
{
    Q_OBJECT

public:
    explicit LoginItemSwitch(AppModel &model) : m_model(model) { }

    /// A failure becomes a notice.
    void set(bool opensAtLogin);
    /// Once in this user's life: a login item that an earlier identity of the program had stays.
    void carryOver();
    /// Tells the model when the user has to allow the login item.
    void refreshNote();

private:
    AppModel &m_model;
};

} // namespace corvane
