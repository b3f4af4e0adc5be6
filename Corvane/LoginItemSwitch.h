#pragma once

#include "AppModel.h"

namespace corvane {

/// Changes the session's login item as the settings want it, and the settings when the user changes the
/// login item elsewhere.
class LoginItemSwitch final : public QObject
{
    Q_OBJECT

public:
    explicit LoginItemSwitch(AppModel &model) : m_model(model) { }

    /// Adds the login item or takes it out. A failure becomes a notice.
    void set(bool opensAtLogin);
    /// Gives the program the login item that an earlier identity of it had. Happens once for each user.
    void carryOver();
    /// Reads the login item now, and whenever the settings are shown.
    void start();
    /// Reads the login item. Where it has changed since it was last read, the settings are changed to
    /// match.
    void follow();

private:
    /// Tells the model whether the user has to allow the login item.
    void refreshApproval();

    AppModel &m_model;
    std::optional<LoginItem> m_seen;
    bool m_isFollowing = false;
};

} // namespace corvane
