#pragma once

#include "AppModel.h"

namespace corvane {

/// Keeps the session's login item in step with the settings, and the settings with what the user does
/// to the login item elsewhere.
class LoginItemSwitch final : public QObject
{
    Q_OBJECT

public:
    explicit LoginItemSwitch(AppModel &model) : m_model(model) { }

    /// A failure becomes a notice.
    void set(bool opensAtLogin);
    /// Once in this user's life: a login item that an earlier identity of the program had stays.
    void carryOver();
    /// Looks at the login item now and whenever the settings are looked at.
    void start();
    /// Looks at the login item. Without a change since the last look, the settings stand.
    void follow();

private:
    /// Tells the model when the user has to allow the login item.
    void refreshNote();

    AppModel &m_model;
    std::optional<LoginItem> m_seen;
    bool m_isFollowing = false;
};

} // namespace corvane
